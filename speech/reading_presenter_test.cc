#include "speech/reading_presenter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// What the synthesizer's presenter was handed, in order.
class Recorder : public Presenter {
 public:
  void ShowBraille(const CString& line) override { events.push_back(u"BRL " + line.Units()); }
  void Speak(const CString& text, bool sync) override {
    events.push_back((sync ? u"SYNC " : u"TTS ") + text.Units());
  }
  void StopSpeech() override { events.push_back(u"STOP"); }
  std::vector<std::u16string> events;
};

TEST(ReadingPresenterTest, SpeechGetsTheReadingAndTheRestPassesUnchanged) {
  Recorder speech;
  ReadingPresenter reading(speech);
  reading.ShowBraille(u"検索結果:はな【花】");
  reading.Speak(u"検索結果:はな【花】", false);
  reading.StopSpeech();
  reading.Speak(u"私は学校へ", true);
  reading.Speak(u"", false);
  EXPECT_EQ(speech.events,
            (std::vector<std::u16string>{u"BRL 検索結果:はな【花】", u"TTS ケンサクケッカ:ハナ【ハナ】",
                                         u"STOP", u"SYNC ワタシワガッコーエ", u"TTS "}));
}

}  // namespace
