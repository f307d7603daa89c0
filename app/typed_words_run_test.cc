// Words as users type them, through the built epwingdict, in a book whose
// keys are filed as other writers file them: ICECREAM without its blank,
// アラカルト without its dots. A word that finds no article is tried
// without blanks and symbols, with ASCII letters, and as romaji in
// hiragana; the user hears the form that found the articles.
#include <cstdlib>
#include <fstream>
#include <string>

#include "testing/epwingdict_runner.h"

namespace {

const char kWordsBook[] =
    "@book WORDS 語の辞書\n"
    "@entry apple\nA round fruit.\n"
    "@entry icecream\nA frozen sweet.\n"
    "@entry アラカルト\n一品料理。\n"
    "@entry 花\n@kana はな\n植物の花。\n"
    "@entry 京都\n@kana きょうと\n古い都。\n";

class TypedWordsRunTest : public EpwingdictRunner {
 protected:
  void SetUp() override {
    EpwingdictRunner::SetUp();
    if (IsSkipped()) return;
    std::ofstream(work / "words.txt") << kWordsBook;
    std::filesystem::remove_all(card / "epwing" / "plus");
    const std::string command = (program.parent_path() / "mkbook").string() + " -o " +
                                (card / "epwing" / "plus").string() + " " +
                                (work / "words.txt").string();
    ASSERT_EQ(std::system(command.c_str()), 0);
  }
  // Types `word`, looks it up, opens the first article, reads its second
  // line and closes; the transcript.
  std::string LookUp(const std::string& word) {
    EXPECT_EQ(Run("KEY_NEXT_CTRL\ntext " + word +
                  "\nKEY_ENTER\nKEY_ENTER\n48\n"
                  "KEY_EXIT\nKEY_EXIT\nKEY_EXIT\n"),
              0)
        << ReadWholeFile(work / "stderr.txt");
    return Transcript();
  }
};

TEST_F(TypedWordsRunTest, EachFormFindsTheArticleAndIsAnnounced) {
  const struct {
    const char* typed;
    const char* found;  // the form announced, empty when the word itself finds
    const char* head;
    const char* line;
  } words[] = {
      {"apple", "", "apple", "A round fruit."},
      {"ａｐｐｌｅ", "apple", "apple", "A round fruit."},
      {"ice cream", "icecream", "icecream", "A frozen sweet."},
      {"ア・ラ・カルト", "アラカルト", "アラカルト", "一品料理。"},
      {"hana", "はな", "はな【花】", "植物の花。"},
      {"ｋｙｏｕｔｏ", "きょうと", "きょうと【京都】", "古い都。"},
  };
  for (const auto& word : words) {
    SCOPED_TRACE(word.typed);
    const std::string transcript = LookUp(word.typed);
    const std::string head = std::string("BRL 検索結果:") + word.head;
    if (*word.found == '\0') {
      EXPECT_TRUE(HasLinesInOrder(transcript,
                                  {"TTS 検索開始", head, head, "BRL " + std::string(word.line)}));
      EXPECT_EQ(transcript.find("で見つかりました"), std::string::npos) << transcript;
    } else {
      const std::string found = std::string("「") + word.found + "」で見つかりました";
      EXPECT_TRUE(HasLinesInOrder(transcript, {"TTS 検索開始", "BRL " + found, "TTS " + found, head,
                                               head, "BRL " + std::string(word.line)}));
    }
  }
}

}  // namespace
