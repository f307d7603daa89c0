// Speech over channels that fail: at the start, in the middle, all of them.
// Each change is told once, and no utterance is dropped while a channel
// is left that works.
#include "speech/speech_presenter.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "testing/notice_stream.h"

namespace {

// A channel that speaks into a list, fails to open when told, and is lost
// after a given number of calls.
class FakeChannel : public SpeechChannel {
 public:
  FakeChannel(const char* name, bool opens, int callsBeforeLoss = 1000)
      : name_(name), opens_(opens), callsLeft_(callsBeforeLoss) {}
  const char* Name() const override { return name_; }
  bool Open(std::string& why) override {
    why = "refused";
    return opens_;
  }
  bool Say(const std::string& utf8, bool wait, std::string& why) override {
    if (!Alive(why)) return false;
    said.push_back(utf8 + (wait ? " (waited)" : ""));
    return true;
  }
  bool Stop(std::string& why) override {
    if (!Alive(why)) return false;
    said.push_back("(stop)");
    return true;
  }
  bool Sound(std::string& why) override {
    if (!Alive(why)) return false;
    said.push_back("(sound)");
    return true;
  }
  std::vector<std::string> said;

 private:
  bool Alive(std::string& why) {
    why = "gone";
    return callsLeft_-- > 0;
  }
  const char* name_;
  bool opens_;
  int callsLeft_;
};

using Said = std::vector<std::string>;

}  // namespace

TEST(SpeechPresenterTest, SpeaksThroughTheFirstChannelSilentlyWhenItOpens) {
  FakeChannel server("server", true), library("library", true);
  Notices notices;
  SpeechPresenter speech({&server, &library}, notices.File());
  ASSERT_TRUE(speech.Start());
  speech.Speak(u"ハナ", false);
  speech.Speak(u"ケンサク", true);
  speech.Speak(u"", false);  // the empty text silences
  speech.Beep();
  EXPECT_EQ(server.said, (Said{"ハナ", "ケンサク (waited)", "(stop)", "(sound)"}));
  EXPECT_TRUE(library.said.empty());
  EXPECT_EQ(notices.Text(), "");
}

TEST(SpeechPresenterTest, FallsBackAtTheStartAndInTheMiddleTellingEachLossOnce) {
  FakeChannel server("server", false), library("library", true, 2);
  Notices notices;
  SpeechPresenter speech({&server, &library}, notices.File());
  ASSERT_TRUE(speech.Start());
  EXPECT_EQ(notices.Text(), "epwingdict: server cannot be used (refused); speaking through library\n");
  speech.Speak(u"イチ", false);
  speech.Speak(u"ニ", false);
  speech.Speak(u"サン", false);  // the library is lost here
  speech.Speak(u"ヨン", false);
  speech.StopSpeech();
  EXPECT_EQ(library.said, (Said{"イチ", "ニ"}));
  EXPECT_EQ(speech.Current(), nullptr);
  EXPECT_EQ(notices.Text(),
            "epwingdict: server cannot be used (refused); speaking through library\n"
            "epwingdict: library was lost (gone); no speech from now on\n");
}

TEST(SpeechPresenterTest, TheUtteranceThatFindsTheLossGoesToTheNextChannel) {
  FakeChannel server("server", true, 1), library("library", true);
  Notices notices;
  SpeechPresenter speech({&server, &library}, notices.File());
  ASSERT_TRUE(speech.Start());
  speech.Speak(u"イチ", false);
  speech.Speak(u"ニ", true);
  speech.Speak(u"サン", false);
  EXPECT_EQ(server.said, Said{"イチ"});
  EXPECT_EQ(library.said, (Said{"ニ (waited)", "サン"}));
  EXPECT_EQ(notices.Text(), "epwingdict: server was lost (gone); speaking through library\n");
}

TEST(SpeechPresenterTest, WithNoChannelThatOpensSaysSoInOneLine) {
  FakeChannel server("server", false), library("library", false);
  Notices notices;
  SpeechPresenter speech({&server, &library}, notices.File());
  EXPECT_FALSE(speech.Start());
  speech.Speak(u"ハナ", false);
  speech.Beep();
  EXPECT_EQ(notices.Text(),
            "epwingdict: no speech: server cannot be used (refused); library cannot be used "
            "(refused)\n");
}
