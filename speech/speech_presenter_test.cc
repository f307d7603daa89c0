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
  FakeChannel(const char* name, bool opens, int callsBeforeLoss)
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

// Each case speaks, waits, silences, beeps and speaks again over a server
// and a library channel; each change of channel is told once, and no
// utterance is dropped while a channel is left that works.
TEST(SpeechPresenterTest, ChannelsThatFailAtTheStartOrInTheMiddle) {
  const struct {
    const char* name;
    bool serverOpens;
    int serverCalls;  // before it is lost
    bool libraryOpens;
    int libraryCalls;
    bool started;
    bool speaksAtTheEnd;
    Said server, library;
    const char* told;
  } cases[] = {
      {"the first opens", true, 1000, true, 1000, true, true,
       {"イチ", "ニ (waited)", "(stop)", "(sound)", "サン"}, {}, ""},
      // The utterance that finds the loss goes to the next channel.
      {"the first is lost", true, 1, true, 1000, true, true,
       {"イチ"}, {"ニ (waited)", "(stop)", "(sound)", "サン"},
       "epwingdict: server was lost (gone); speaking through library\n"},
      {"the first refuses, the second is lost", false, 1000, true, 2, true, false,
       {}, {"イチ", "ニ (waited)"},
       "epwingdict: server cannot be used (refused); speaking through library\n"
       "epwingdict: library was lost (gone); no speech from now on\n"},
      {"neither opens", false, 1000, false, 1000, false, false, {}, {},
       "epwingdict: no speech: server cannot be used (refused); library cannot be used "
       "(refused)\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    FakeChannel server("server", c.serverOpens, c.serverCalls);
    FakeChannel library("library", c.libraryOpens, c.libraryCalls);
    Notices notices;
    SpeechPresenter speech({&server, &library}, notices.File());
    EXPECT_EQ(speech.Start(), c.started);
    speech.Speak(u"イチ", false);
    speech.Speak(u"ニ", true);
    speech.Speak(u"", false);  // the empty text silences
    speech.Beep();
    speech.Speak(u"サン", false);
    EXPECT_EQ(server.said, c.server);
    EXPECT_EQ(library.said, c.library);
    EXPECT_EQ(notices.Text(), c.told);
    EXPECT_EQ(speech.Current() != nullptr, c.speaksAtTheEnd);
  }
}

}  // namespace
