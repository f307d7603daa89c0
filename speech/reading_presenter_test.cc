#include "speech/reading_presenter.h"

#include <gtest/gtest.h>

#include "testing/recording_presenter.h"

namespace {

TEST(ReadingPresenterTest, SpeechGetsTheReadingAndTheRestPassesUnchanged) {
  RecordingPresenter speech;
  ReadingPresenter reading(speech);
  reading.ShowBraille(u"検索結果:はな【花】");
  reading.Speak(u"検索結果:はな【花】", false);
  reading.StopSpeech();
  reading.Speak(u"私は学校へ", true);
  reading.Speak(u"", false);
  EXPECT_EQ(speech.Events(),
            (std::vector<std::string>{"BRL 検索結果:はな【花】", "TTS ケンサクケッカ:ハナ【ハナ】",
                                      "STOP", "TTS! ワタシワガッコーエ", "TTS "}));
}

}  // namespace
