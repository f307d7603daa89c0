// Words as users type them, through the built epwingdict.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "testing/epwingdict_runner.h"
#include "testing/word_book.h"
#include "tools/body_text.h"
#include "tools/jis_text.h"

namespace {

// A book whose keys are filed as other writers file them: ICECREAM
// without its blank, アラカルト without its dots. A word that finds no
// article is tried without blanks and symbols, with ASCII letters, and as
// romaji in hiragana; the user hears the form that found the articles.
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
    return RunScript("KEY_NEXT_CTRL\ntext " + word +
                     "\nKEY_ENTER\nKEY_ENTER\n48\nKEY_EXIT\nKEY_EXIT\nKEY_EXIT\n");
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

// Words that the engine would read as options, typed or held by a book's
// candidate: each is a search, no file appears, standard input is never
// read, and the reader goes on.
using HostileWordsRunTest = EpwingdictRunner;

TEST_F(HostileWordsRunTest, TypedWordsAndCandidatesThatLookLikeOptionsAreSearches) {
  const std::filesystem::path scratch = work / "scratch";
  std::filesystem::create_directories(scratch);
  // A book of two words whose second head line is "○/O<scratch>/c", the
  // path in a half-width run so that it comes out as ASCII.
  BodyText body, heads;
  std::vector<IndexLeafEntry> entries;
  for (const char* word : {"あ", "あい"}) {
    entries.push_back({0, utf8_to_jis(word), body.size(), heads.size(), 0});
    const std::u8string text(word, word + std::char_traits<char>::length(word));
    body.text(text).code(0x1F0A).code(0x1F03);
    if (entries.size() == 1) {
      heads.text(text).code(0x1F0A);
    } else {
      const std::string option = "/O" + (scratch / "c").string();
      heads.text(u8"○").code(0x1F04).text(std::u8string(option.begin(), option.end()));
      heads.code(0x1F05).code(0x1F0A);
    }
  }
  std::filesystem::remove_all(card / "epwing" / "plus");
  write_word_book(card / "epwing" / "plus", body, heads, entries);

  // Each typed word is looked up, then the field emptied through its
  // editing menu ("全文削除"); last the candidate of あ is looked up.
  std::string script = "KEY_NEXT_CTRL\n";
  for (const std::string& word : {"-O" + (scratch / "x").string(), "/O" + (scratch / "y").string(),
                                  std::string("--"), std::string("-V")})
    script += "text " + word + "\nKEY_ENTER\nKEY_EXIT\n41\n24\n234\n";
  script += "text あ\nKEY_ENTER\nKEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_ENTER\nKEY_EXIT\nKEY_EXIT\n";
  // Standard input holds what the engine's prompt loop would run.
  const std::string transcript = RunScript(script, "-O" + (scratch / "z").string() + "\n-C\n");
  EXPECT_EQ(CountLines(transcript, "TTS 検索開始"), 6u) << transcript;
  // Words that nothing finds, in no form tried: the empty list, unannounced.
  EXPECT_EQ(CountLines(transcript, "BRL 検索結果:項目なし"), 5u);
  EXPECT_EQ(transcript.find("で見つかりました"), std::string::npos);
  const size_t candidate = transcript.find("BRL 前方一致検索候補:○");
  ASSERT_NE(candidate, std::string::npos) << transcript;
  EXPECT_TRUE(HasLinesInOrder(transcript.substr(candidate), {"TTS 検索開始", "ENDED"}));
  EXPECT_TRUE(std::filesystem::is_empty(scratch));
  EXPECT_EQ(transcript.find("TOMEVIEW>"), std::string::npos);
}

}  // namespace
