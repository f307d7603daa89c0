// Words that the engine would read as options, typed or held by a book's
// candidate, through the built epwingdict: each is a search, no file
// appears, standard input is never read, and the reader goes on.
#include <filesystem>
#include <string>
#include <vector>

#include "testing/epwingdict_runner.h"
#include "testing/word_book.h"
#include "tools/body_text.h"
#include "tools/index_tree_writer.h"
#include "tools/jis_text.h"

namespace {

class HostileWordsRunTest : public EpwingdictRunner {
 protected:
  // Types `word` on the first dictionary, looks it up, goes back and
  // closes; the run must end normally.
  void TypeAndLookUp(const std::string& word, const std::string& input) {
    ASSERT_EQ(Run("KEY_NEXT_CTRL\ntext " + word + "\nKEY_ENTER\nKEY_EXIT\nKEY_EXIT\n", input), 0)
        << ReadWholeFile(work / "stderr.txt");
    EXPECT_TRUE(HasLinesInOrder(Transcript(), {"TTS 検索開始", "ENDED"}));
  }

  // A folder of the run's own, made once SetUp has chosen work.
  std::filesystem::path Scratch() {
    std::filesystem::create_directories(work / "scratch");
    return work / "scratch";
  }
};

TEST_F(HostileWordsRunTest, TypedOptionsAndThePromptLoopAreSearches) {
  const std::filesystem::path scratch = Scratch();
  // Standard input holds what the engine's prompt loop would run.
  const std::string input = "-O" + (scratch / "z").string() + "\n-C\n";
  TypeAndLookUp("-O" + (scratch / "x").string(), input);
  TypeAndLookUp("/O" + (scratch / "y").string(), input);
  TypeAndLookUp("--", input);
  TypeAndLookUp("-V", input);
  EXPECT_TRUE(std::filesystem::is_empty(scratch));
  EXPECT_EQ(Transcript().find("TOMEVIEW>"), std::string::npos);
}

TEST_F(HostileWordsRunTest, ACandidateThatLooksLikeAnOptionIsASearch) {
  const std::filesystem::path scratch = Scratch();
  const std::string target = (scratch / "y").string();
  // A book of two words whose second head line is "○/O<target>", the
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
      const std::string option = "/O" + target;
      heads.text(u8"○").code(0x1F04).text(std::u8string(option.begin(), option.end()));
      heads.code(0x1F05).code(0x1F0A);
    }
  }
  std::filesystem::remove_all(card / "epwing" / "plus");
  write_word_book(card / "epwing" / "plus", body, heads, entries);

  ASSERT_EQ(Run("KEY_NEXT_CTRL\ntext あ\nKEY_ENTER\n"
                "KEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_ENTER\n"  // the candidate
                "KEY_EXIT\nKEY_EXIT\n",
                "-O" + (scratch / "z").string() + "\n"),
            0)
      << ReadWholeFile(work / "stderr.txt");
  const std::string transcript = Transcript();
  const size_t candidate = transcript.find("BRL 前方一致検索候補:○");
  ASSERT_NE(candidate, std::string::npos) << transcript;
  EXPECT_TRUE(HasLinesInOrder(transcript.substr(candidate), {"TTS 検索開始", "ENDED"}));
  EXPECT_TRUE(std::filesystem::is_empty(scratch));
}

// A book whose article never ends: the reader stops the engine at the work
// file's limit, says so, and shows what came until then.
TEST_F(HostileWordsRunTest, AnEndlessArticleIsStoppedAndSaidSo) {
  std::filesystem::remove_all(card / "epwing" / "plus");
  write_endless_book(card / "epwing" / "plus", 2200000);

  ASSERT_EQ(Run("KEY_NEXT_CTRL\ntext あ\nKEY_ENTER\nKEY_EXIT\nKEY_EXIT\n"), 0)
      << ReadWholeFile(work / "stderr.txt");
  const std::string transcript = Transcript();
  EXPECT_TRUE(HasLinesInOrder(transcript, {"TTS 検索開始", "TTS 検索を途中で打ち切りました", "ENDED"}))
      << transcript.substr(0, 2000);
  EXPECT_NE(transcript.find("BRL 検索結果:ああ"), std::string::npos);
}

}  // namespace
