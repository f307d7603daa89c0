// The epwingdict program on the demo card, driven by key scripts.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "app/task_script.h"
#include "testing/temp_tree.h"

namespace {

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
}

class EpwingdictRunTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const char* bin = std::getenv("TOMEVIEW_BIN");
    if (bin == nullptr) GTEST_SKIP() << "TOMEVIEW_BIN is not set";
    program = std::filesystem::path(bin) / "epwingdict";
    card = std::filesystem::path(bin) / ".." / "card";
    work = fresh_directory("epwingdict_run");
  }
  // Runs the program on `script`; its exit status.
  int Run(const std::string& script) {
    std::ofstream(work / "script.txt") << script;
    const std::string command = program.string() + " --keys " + (work / "script.txt").string() +
                                " --card " + card.string() + " --home " + work.string() +
                                " --transcript " + (work / "transcript.txt").string() +
                                " 2>" + (work / "stderr.txt").string();
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  std::filesystem::path program, card, work;
};

}  // namespace

TEST_F(EpwingdictRunTest, ShowsTheListMovesAndClosesSavingTheSettings) {
  ASSERT_EQ(Run("# down to the second dictionary and back\n"
                "KEY_OPTION_DOWN\n48\nKEY_OPTION_UP\n"
                "KEY_NEXT_CTRL\ntext 辞書\nKEY_EXIT\n"),
            0)
      << ReadFile(work / "stderr.txt");
  const std::string transcript = ReadFile(work / "transcript.txt");
  EXPECT_EQ(transcript.rfind("STARTED\nBRL 辞書選択:デモ国語辞典/デモ英和辞典\n", 0), 0u)
      << transcript;
  EXPECT_NE(transcript.find("BRL 辞書選択:デモ話題辞典\n"), std::string::npos);
  EXPECT_NE(transcript.find("BRL 検索ワード:辞書\n"), std::string::npos);
  EXPECT_EQ(transcript.substr(transcript.size() - 6), "ENDED\n");
  EXPECT_EQ(ReadFile(work / "epwingdict.ini"),
            "[OPTION_SETTING]\nGAIJI_REPLACE=1\nGAIJI_VISIBLE=0\nSYLLABLE_VISIBLE=0\n"
            "PH_SIGNS_VISIBLE=0\nLINK_VISIBLE=0\n[DICT_LIST]\nLIST_SIZE=0\n");
}

TEST_F(EpwingdictRunTest, AScriptThatEndsSavesNothingAndBadInputFails) {
  ASSERT_EQ(Run("KEY_OPTION_DOWN\n"), 0);
  EXPECT_EQ(ReadFile(work / "transcript.txt").find("ENDED"), std::string::npos);
  EXPECT_EQ(ReadFile(work / "epwingdict.ini"), "");

  EXPECT_EQ(Run("KEY_ENTER\nKEY_NOPE\n"), 2);
  EXPECT_NE(ReadFile(work / "stderr.txt").find("line 2: unknown key \"KEY_NOPE\""),
            std::string::npos);
}

TEST(TaskScriptTest, ParsesEachActionAndNamesTheBadLine) {
  std::vector<TaskAction> actions;
  std::string error;
  ASSERT_TRUE(ParseTaskScript("  # comment\n\nKEY_ENTER\n 4096 \ntext  語 り\ncursor 3\n"
                              "setting 2 -1\nmute 1\nchoose \\SD\\x y\n",
                              actions, error))
      << error;
  ASSERT_EQ(actions.size(), 7u);
  EXPECT_EQ(actions[0].number, 256u);
  EXPECT_EQ(actions[1].number, 4096u);
  EXPECT_EQ(actions[2].kind, TaskAction::kText);
  EXPECT_EQ(actions[2].text, CString(u" 語 り"));
  EXPECT_EQ(actions[3].kind, TaskAction::kCursor);
  EXPECT_EQ(actions[4].value, -1);
  EXPECT_EQ(actions[5].number, 1u);
  EXPECT_EQ(actions[6].text, CString(u"\\SD\\x y"));

  const char* bad[] = {"mute 2", "cursor", "setting 1", "cursor -1", "KEY_ENTER 3", "text",
                       "99999999999", "hello"};
  for (const char* line : bad) {
    actions.clear();
    EXPECT_FALSE(ParseTaskScript(std::string("KEY_ENTER\n") + line + "\n", actions, error)) << line;
    EXPECT_EQ(error.rfind("line 2: ", 0), 0u) << error;
  }
}
