// The reader at a terminal, as a screen reader user meets it: the built
// epwingdict on a pseudo-terminal, keys typed into it, what it shows read
// back. Looking up はな in the first dictionary of the demo card.
#include <signal.h>
#include <sys/wait.h>

#include <string>
#include <vector>

#include "testing/epwingdict_runner.h"
#include "testing/terminal_session.h"

namespace {

class TerminalRunTest : public EpwingdictRunner {
 protected:
  // Starts the reader on a new terminal, with `show` as its --show value
  // (none when empty), no speech, and `more` options.
  void Start(const std::string& show, const std::vector<std::string>& more = {},
             const std::vector<std::string>& environment = {}) {
    std::filesystem::create_directories(work / "run" / "epwingdict");
    std::vector<std::string> args = {program.string(), "--card", card.string(), "--home",
                                     work.string(), "--speech", "none"};
    if (!show.empty()) args.insert(args.end(), {"--show", show});
    args.insert(args.end(), more.begin(), more.end());
    std::vector<std::string> settings = environment;
    settings.push_back("XDG_RUNTIME_DIR=" + (work / "run").string());
    ASSERT_TRUE(terminal_.Start(args, settings));
  }

  // Looks up はな on the first dictionary and leaves at once (Ctrl-D),
  // waiting for the dictionary list, the word typed and the result.
  void LookUpHana(const std::string& list, const std::string& typed, const std::string& result) {
    ASSERT_TRUE(terminal_.ReadUntil(list)) << terminal_.Shown();
    terminal_.Type("\t");
    terminal_.Type("はな");
    ASSERT_TRUE(terminal_.ReadUntil(typed)) << terminal_.Shown();
    LookUpAndLeave(result);
  }

  // Enter on the word typed, then Ctrl-D once `result` has come.
  void LookUpAndLeave(const std::string& result) {
    terminal_.Type("\r");
    ASSERT_TRUE(terminal_.ReadUntil(result)) << terminal_.Shown();
    terminal_.Type("\x04");
    terminal_.ReadUntil("\x04");  // everything up to the end of the run, which never shows ^D
    EXPECT_EQ(terminal_.Wait(), 0) << "the reader did not end well";
  }

  size_t Count(const std::string& line) const { return terminal_.Count(line); }

  TerminalSession terminal_;
  const std::string& shown_ = terminal_.Shown();
};

TEST_F(TerminalRunTest, DotsShowTheHeadWordInJapaneseBraille) {
  Start("dots");
  // 検索結果:はな【花】: the head word はな is ⠥⠅, behind the colon ⠐⠂.
  LookUpHana("⠐⠳⠈⠺⠻⠴⠕⠩⠐⠂", "⠐⠂⠥⠅\n", "⠫⠴⠱⠩⠀⠫⠂⠡⠐⠂⠥⠅⠀⠶⠥⠅⠶\n");
  EXPECT_EQ(Count("⠫⠴⠱⠩⠀⠫⠂⠡⠐⠂⠥⠅⠀⠶⠥⠅⠶"), 1u) << shown_;
}

// Without BRLTTY the reader says so once and goes on at the terminal,
// each presentation once and without the transcript's prefixes; Ctrl-Z
// stops it there and it takes its keys again when continued.
TEST_F(TerminalRunTest, WithoutADisplayItSaysSoOnceAndCtrlZStillStops) {
  // BrlAPI's local server number 99, which no BRLTTY has here.
  Start("", {"--braille", "brlapi"}, {"BRLAPI_HOST=:99"});
  const std::string notice = "epwingdict: no Braille display: BRLTTY cannot be used (";
  ASSERT_TRUE(terminal_.ReadUntil(notice)) << shown_;
  ASSERT_TRUE(terminal_.ReadUntil("辞書選択:プラス辞典/ことわざ小辞典\n")) << shown_;
  terminal_.Type("\tは");
  ASSERT_TRUE(terminal_.ReadUntil("検索ワード:は\n")) << shown_;
  terminal_.Type("\x1a");
  int status = 0;
  ASSERT_EQ(waitpid(terminal_.Pid(), &status, WUNTRACED), terminal_.Pid());
  ASSERT_TRUE(WIFSTOPPED(status)) << shown_;
  kill(terminal_.Pid(), SIGCONT);
  terminal_.Type("な");
  ASSERT_TRUE(terminal_.ReadUntil("検索ワード:はな\n")) << shown_;
  LookUpAndLeave("検索結果:はな【花】\n");
  EXPECT_EQ(shown_.find(notice), shown_.rfind(notice)) << shown_;
  EXPECT_EQ(Count("辞書選択:プラス辞典/ことわざ小辞典"), 1u) << shown_;
  EXPECT_EQ(Count("検索結果:はな【花】"), 1u) << shown_;
  for (const char* prefix : {"BRL ", "TTS ", "STARTED"})
    EXPECT_EQ(shown_.find(prefix), std::string::npos) << shown_;
}

}  // namespace
