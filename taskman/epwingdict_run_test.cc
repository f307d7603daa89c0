// The epwingdict program driven by key scripts: the dictionary list, the
// close that saves the settings, the end of a script, and the script's
// own parsing.
#include <fstream>
#include <string>
#include <vector>

#include "testing/epwingdict_runner.h"
#include "taskman/task_script.h"

namespace {

class EpwingdictRunTest : public EpwingdictRunner {};

}  // namespace

TEST_F(EpwingdictRunTest, ShowsTheListMovesAndClosesSavingTheSettings) {
  // A registered dictionary behind the built-in one, so the list has two.
  std::ofstream(work / "epwingdict.ini")
      << "[DICT_LIST]\nLIST_SIZE=1\nTITLE_0000=second\nPATH_0000=\\SD\\epwing\\plus\n"
         "BOOKNUM_0000=1\n";
  ASSERT_EQ(Run("# down to the second dictionary and back\n"
                "KEY_OPTION_DOWN\n48\nKEY_OPTION_UP\n"
                "KEY_NEXT_CTRL\ntext 辞書\nKEY_EXIT\n"),
            0)
      << ReadWholeFile(work / "stderr.txt");
  // Each move presents the item; the second one down beeps and stays on
  // the last.
  EXPECT_EQ(Transcript(),
            "STARTED\n"
            "BRL 辞書選択:プラス辞典/ことわざ小辞典\nTTS 辞書選択:プラス辞典/ことわざ小辞典\n"
            "BRL 辞書選択:second\nTTS 辞書選択:second\n"
            "BEEP 32\nBRL 辞書選択:second\nTTS 辞書選択:second\n"
            "BRL 辞書選択:プラス辞典/ことわざ小辞典\nTTS 辞書選択:プラス辞典/ことわざ小辞典\n"
            "BRL 検索ワード:\nTTS 検索ワード:空欄\n"
            "BRL 検索ワード:辞書\nTTS 辞書\n"
            "ENDED\n");
  // The list's section stays where the file had it; the options follow.
  EXPECT_EQ(ReadWholeFile(work / "epwingdict.ini"),
            "[DICT_LIST]\nLIST_SIZE=1\nTITLE_0000=second\nPATH_0000=\\SD\\epwing\\plus\n"
            "BOOKNUM_0000=1\n[OPTION_SETTING]\nGAIJI_REPLACE=1\nGAIJI_VISIBLE=0\n"
            "SYLLABLE_VISIBLE=0\nPH_SIGNS_VISIBLE=0\nLINK_VISIBLE=0\n");
}

TEST_F(EpwingdictRunTest, AScriptThatEndsSavesNothingAndBadInputFails) {
  ASSERT_EQ(Run("KEY_OPTION_DOWN\n"), 0);
  EXPECT_EQ(Transcript().find("ENDED"), std::string::npos);
  EXPECT_EQ(ReadWholeFile(work / "epwingdict.ini"), "");

  EXPECT_EQ(Run("KEY_ENTER\nKEY_NOPE\n"), 2);
  EXPECT_NE(ReadWholeFile(work / "stderr.txt").find("line 2: unknown key \"KEY_NOPE\""),
            std::string::npos);
}

TEST(TaskScriptTest, ParsesEachActionAndNamesTheBadLine) {
  std::vector<TaskAction> actions;
  std::string error;
  ASSERT_TRUE(ParseTaskScript("  # comment\n\nKEY_ENTER\n 4096 \ntext  語 り\ncursor 3\n"
                              "setting 2 -1\nmute 1\nchoose \\SD\\x y\nreadall\nreadstop 12\n"
                              "KEY_HELP\npause 20\ndots 136 0 8\n",
                              actions, error))
      << error;
  ASSERT_EQ(actions.size(), 12u);
  EXPECT_EQ(actions[0].number, 256u);
  EXPECT_EQ(actions[1].number, 4096u);
  EXPECT_EQ(actions[2].kind, TaskAction::kText);
  EXPECT_EQ(actions[2].text, CString(u" 語 り"));
  EXPECT_EQ(actions[3].kind, TaskAction::kCursor);
  EXPECT_EQ(actions[4].value, -1);
  EXPECT_EQ(actions[5].number, 1u);
  EXPECT_EQ(actions[6].text, CString(u"\\SD\\x y"));
  EXPECT_EQ(actions[7].kind, TaskAction::kReadAll);
  EXPECT_EQ(actions[8].kind, TaskAction::kReadStop);
  EXPECT_EQ(actions[8].number, 12u);
  EXPECT_EQ(actions[9].number, 65536u);
  EXPECT_EQ(actions[10].kind, TaskAction::kPause);
  EXPECT_EQ(actions[11].kind, TaskAction::kDots);
  EXPECT_EQ(actions[11].text, CString(std::u16string(u"\x25\x00\x80", 3)));

  const char* bad[] = {"mute 2", "cursor", "setting 1", "cursor -1", "KEY_ENTER 3", "text",
                       "99999999999", "hello", "readall 1", "readstop", "readstop -1", "pause",
                       "pause 10001", "dots", "dots 19", "dots 11"};
  for (const char* line : bad) {
    actions.clear();
    EXPECT_FALSE(ParseTaskScript(std::string("KEY_ENTER\n") + line + "\n", actions, error)) << line;
    EXPECT_EQ(error.rfind("line 2: ", 0), 0u) << error;
  }
}

TEST_F(EpwingdictRunTest, BrailleKeyboardCellsTypeKanaAndLookThemUp) {
  // は ⠥ and な ⠅, then a number behind its sign, erased again.
  ASSERT_EQ(Run("KEY_NEXT_CTRL\ndots 136\ndots 13\ndots 3456 1\n64\nKEY_ENTER\n"), 0)
      << ReadWholeFile(work / "stderr.txt");
  EXPECT_TRUE(HasLinesInOrder(Transcript(), {"BRL 検索ワード:は", "BRL 検索ワード:はな",
                                             "BRL 検索ワード:はな1", "BRL 検索ワード:はな",
                                             "TTS 検索開始", "TTS 検索結果:はな【花】"}));
}
