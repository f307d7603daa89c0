#include "results/run_on_entries.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/device_path.h"
#include "results/engine_books.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "testing/word_book.h"
#include "tools/body_text.h"
#include "tools/jis_text.h"

namespace {

// Words of a body text, as a dump gives them.
std::vector<uint16_t> Words(std::initializer_list<uint16_t> words) { return words; }

TEST(RunOnEntries, VerdictOnTheFirstWords) {
  // Head starts, no end code: margin, 0x1F41, head, 0x1F61, line end, body.
  EXPECT_TRUE(EntriesRunOn(Words({0x1F02, 0x1F09, 0x0001, 0x1F41, 0x0100, 0x2422, 0x1F61, 0x1F0A,
                                  0x2424, 0x1F0A, 0x1F09, 0x0001, 0x1F41, 0x0100, 0x2426})));
  // The same entries, each ended by an end code.
  EXPECT_FALSE(EntriesRunOn(Words({0x1F02, 0x1F41, 0x0100, 0x2422, 0x1F61, 0x1F0A, 0x2424, 0x1F0A,
                                   0x1F03, 0x1F41, 0x0100, 0x2426, 0x1F0A, 0x1F03})));
  // Entries that start with their text, as most books have them.
  EXPECT_FALSE(EntriesRunOn(Words({0x2422, 0x1F0A, 0x1F03, 0x2424, 0x1F0A, 0x1F03})));
  // A head in a later line of an entry ended by its code.
  EXPECT_FALSE(EntriesRunOn(Words({0x1F41, 0x0100, 0x2422, 0x1F0A, 0x1F41, 0x0100, 0x2424, 0x1F0A,
                                   0x1F03, 0x1F41, 0x0100, 0x2426, 0x1F0A})));
  // An end code behind the last entry ends the text, not the entries.
  EXPECT_TRUE(EntriesRunOn(Words({0x1F41, 0x0100, 0x2422, 0x1F0A, 0x1F41, 0x0100, 0x2424, 0x1F0A,
                                  0x1F03, 0x0000, 0x1F03, 0x1F41})));
  // A second 0x1F41 inside a line starts no entry; one entry and the end
  // of the data tell nothing.
  EXPECT_FALSE(EntriesRunOn(Words({0x1F41, 0x0100, 0x2422, 0x1F41, 0x0100, 0x2424, 0x1F0A})));
  EXPECT_FALSE(EntriesRunOn(Words({0x1F41, 0x0100, 0x2422, 0x1F0A, 0x0000, 0x1F41, 0x0100})));
  EXPECT_FALSE(EntriesRunOn(Words({})));
  // Operands are no codes: the figure's operands hold the word 0x1F41
  // behind a line end, the margin's operand is 0x1F03.
  EXPECT_FALSE(EntriesRunOn(Words({0x1F41, 0x0100, 0x2422, 0x1F0A, 0x1F44, 0x0001, 0x0000, 0x1F41,
                                   0x0000, 0x0001, 0x2424, 0x1F0A})));
  EXPECT_TRUE(
      EntriesRunOn(Words({0x1F41, 0x0100, 0x2422, 0x1F0A, 0x1F09, 0x1F03, 0x1F41, 0x0100})));
}

TEST(RunOnEntries, ListingAndDumpLines) {
  EXPECT_EQ(BodyTextPage(" 0x00:     2-    2\t本文\n"), 2);
  EXPECT_EQ(BodyTextPage(" 0x91:     4-    4\t...\n"), 0);
  EXPECT_EQ(BodyTextPage("INDEX:START -  END\n"), 0);
  EXPECT_EQ(BodyTextPage(" 0x00:99999999999-"), 0);

  std::vector<uint16_t> words;
  AppendDumpedWords("\n", words);
  AppendDumpedWords("     2048(000001 0000): 1F02 1F09 0001\n", words);
  AppendDumpedWords("     2054(000001 0006): 1F41 12345 0100\n", words);  // stops at a bad word
  EXPECT_EQ(words, std::vector<uint16_t>({0x1F02, 0x1F09, 0x0001, 0x1F41}));
}

// Two books at "\SD\runon" and "\SD\ends" with the entries あ, い and う:
// one whose entries start with 0x1F41 and run on, one whose entries end
// with 0x1F03 and hold a 0x1F41 past their first line.
class RunOnBooksTest : public testing::Test {
 protected:
  void SetUp() override {
    SetDeviceFolder(DeviceFolder::kCard, card_.string());
    SetDeviceFolder(DeviceFolder::kRuntime, runtime_.string());
    WriteBook("runon", false);
    WriteBook("ends", true);
  }
  void TearDown() override {
    SetDeviceFolder(DeviceFolder::kCard, "");
    SetDeviceFolder(DeviceFolder::kRuntime, "");
  }
  void WriteBook(const char* folder, bool endCodes) {
    BodyText body, heads;
    body.code(0x1F02);
    std::vector<IndexLeafEntry> entries;
    for (const char* word : {"あ", "い", "う"}) {
      entries.push_back({0, utf8_to_jis(word), body.size(), heads.size(), 0});
      const std::u8string text(word, word + std::char_traits<char>::length(word));
      body.code(0x1F09, {1}).code(0x1F41, {0x0100}).text(text).code(0x1F61).code(0x1F0A);
      body.text(u8"本文").code(0x1F0A);
      if (endCodes) {
        body.code(0x1F41, {0x0100}).text(u8"続き").code(0x1F61).code(0x1F0A).code(0x1F03);
      }
      heads.text(text).code(0x1F0A);
    }
    write_word_book(card_ / folder, body.code(0x1F03), heads, entries);
  }
  EntryEnds Look(const char16_t* path) {
    EntryEnds ends = ENTRY_ENDS_UNKNOWN;
    capture_engine([&] { ends = LookAtEntryEnds(path, 0); });
    return ends;
  }
  std::vector<CString> Bodies(const char16_t* path) {
    ResultItemArray articles, candidates;
    EngineBooks books;
    capture_engine([&] { books.Lookup(path, 0, u"い", articles, candidates); });
    std::vector<CString> bodies;
    for (const ResultItem& article : articles) bodies.push_back(article.body);
    return bodies;
  }

  const std::filesystem::path card_ = fresh_directory("run_on_card");
  const std::filesystem::path runtime_ = fresh_directory("run_on_runtime");
};

TEST_F(RunOnBooksTest, TheBookTellsHowItsArticlesEnd) {
  EXPECT_EQ(Look(u"\\SD\\runon"), ENTRY_ENDS_RUN_ON);
  EXPECT_EQ(Look(u"\\SD\\ends"), ENTRY_ENDS_BY_CODE);
  EXPECT_EQ(Look(u"\\SD\\gone"), ENTRY_ENDS_UNKNOWN);

  // Run on: a lookup has the engine end the article of い at the next
  // head, before う; a book whose entries end keeps its articles whole.
  EXPECT_EQ(Bodies(u"\\SD\\runon"), std::vector<CString>({u"い\r\n本文"}));
  EXPECT_EQ(Bodies(u"\\SD\\ends"), std::vector<CString>({u"い\r\n本文\r\n続き"}));
}

}  // namespace
