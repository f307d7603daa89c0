// The epwingdict program on the demo card, driven by key scripts.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

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

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  size_t start = 0;
  for (size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1)
    lines.push_back(text.substr(start, end - start));
  return lines;
}

}  // namespace

TEST_F(EpwingdictRunTest, ShowsTheListMovesAndClosesSavingTheSettings) {
  ASSERT_EQ(Run("# down to the second dictionary and back\n"
                "KEY_OPTION_DOWN\n48\nKEY_OPTION_UP\n"
                "KEY_NEXT_CTRL\ntext 辞書\nKEY_EXIT\n"),
            0)
      << ReadFile(work / "stderr.txt");
  // Whatever the card's books are called: its two folders are listed, and
  // each move presents the other one.
  const std::vector<std::string> lines = Lines(ReadFile(work / "transcript.txt"));
  ASSERT_GE(lines.size(), 12u);
  EXPECT_EQ(lines[0], "STARTED");
  EXPECT_EQ(lines[1].rfind("BRL 辞書選択:", 0), 0u) << lines[1];
  EXPECT_EQ(lines[3].rfind("BRL 辞書選択:", 0), 0u) << lines[3];
  EXPECT_NE(lines[3], lines[1]);
  EXPECT_EQ(lines[5], lines[3]) << "the second move stays on the last item";
  EXPECT_EQ(lines[7], lines[1]);
  EXPECT_NE(std::find(lines.begin(), lines.end(), "BRL 検索ワード:辞書"), lines.end());
  EXPECT_EQ(lines.back(), "ENDED");
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
