// The reader at a terminal, as a screen reader user meets it: the built
// epwingdict on a pseudo-terminal, keys typed into it, what it shows read
// back. Looking up はな in the first dictionary of the demo card.
#include <string>
#include <vector>

#include "testing/epwingdict_runner.h"
#include "testing/terminal_session.h"

namespace {

class TerminalRunTest : public EpwingdictRunner {
 protected:
  // Starts the reader on a new terminal, with `show` as its --show value
  // (none when empty) and no speech.
  void Start(const std::string& show) {
    std::filesystem::create_directories(work / "run" / "epwingdict");
    std::vector<std::string> args = {program.string(), "--card", card.string(), "--home",
                                     work.string(), "--speech", "none"};
    if (!show.empty()) args.insert(args.end(), {"--show", show});
    ASSERT_TRUE(terminal_.Start(args, {"XDG_RUNTIME_DIR=" + (work / "run").string()}));
  }

  // Looks up はな on the first dictionary and leaves at once (Ctrl-D),
  // waiting for the dictionary list, the word typed and the result.
  void LookUpHana(const std::string& list, const std::string& typed, const std::string& result) {
    ASSERT_TRUE(terminal_.ReadUntil(list)) << terminal_.Shown();
    terminal_.Type("\t");
    terminal_.Type("はな");
    ASSERT_TRUE(terminal_.ReadUntil(typed)) << terminal_.Shown();
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

TEST_F(TerminalRunTest, EachPresentationComesOutOnceWithoutPrefixes) {
  Start("");
  LookUpHana("辞書選択:プラス辞典/ことわざ小辞典\n", "検索ワード:はな\n", "検索結果:はな【花】\n");
  EXPECT_EQ(Count("辞書選択:プラス辞典/ことわざ小辞典"), 1u) << shown_;
  EXPECT_EQ(Count("検索ワード:はな"), 1u) << shown_;
  EXPECT_EQ(Count("検索結果:はな【花】"), 1u) << shown_;
  EXPECT_EQ(shown_.find("BRL "), std::string::npos) << shown_;
  EXPECT_EQ(shown_.find("TTS "), std::string::npos) << shown_;
  EXPECT_EQ(shown_.find("STARTED"), std::string::npos) << shown_;
}

TEST_F(TerminalRunTest, DotsShowTheHeadWordInJapaneseBraille) {
  Start("dots");
  // 検索結果:はな【花】: the head word はな is ⠥⠅, behind the colon ⠐⠂.
  LookUpHana("⠐⠳⠈⠺⠻⠴⠕⠩⠐⠂", "⠐⠂⠥⠅\n", "⠫⠴⠱⠩⠀⠫⠂⠡⠐⠂⠥⠅⠀⠶⠥⠅⠶\n");
  EXPECT_EQ(Count("⠫⠴⠱⠩⠀⠫⠂⠡⠐⠂⠥⠅⠀⠶⠥⠅⠶"), 1u) << shown_;
}

}  // namespace
