#include "results/run_on_entries.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

}  // namespace
