#include "engine/index_directory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "command/engine.h"
#include "engine/engine_state.h"
#include "engine/file_access.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "tools/book_writer.h"

namespace {

// "複合検索" as JIS codes.
const std::string kJisTitle("\x4A\x23\x39\x67\x38\x21\x3A\x77", 8);

// Writes a one-book tree under a scratch directory of this name and gives
// the root; the book's text file stands at text_file(root).
std::string write_tree(const std::string& name, const BookText& text, bool english = false) {
  BookTree tree;
  tree.english = english;
  tree.add_book("A", "BOOK").text = text;
  std::string root = scratch_path(name);
  std::filesystem::remove_all(root);
  tree.write(root);
  return root;
}

std::string text_file(const std::string& root) { return root + "/BOOK/data/honmon"; }

// Definitions numbered 1 and 2 behind a first 0xFF entry, 3 behind a
// second, and an index behind them.
std::string multi_search_book() {
  BookText text;
  text.add_entry({0x00, 4, 3});
  text.add_area(0xFF, multi_search_page({{kJisTitle, {{0x05, 30, 1}, {0x91, 40, 7}}},
                                         {"", {{0x05, 31, 1}, {0x06, 32, 1}}}}));
  text.add_entry({0x33, 9, 1});
  text.add_area(0xFF, multi_search_page({{"", {{0x90, 50, 2}}}}));
  text.add_entry({0x92, 12, 3});
  return write_tree("multi_search_book", text);
}

int32_t find_in(const std::string& root, int32_t identifier) {
  snprintf(engine.single_file, sizeof engine.single_file, "%s", text_file(root).c_str());
  int32_t page = find_index(identifier);
  cdclose();
  engine.single_file[0] = '\0';
  return page;
}

TEST(FindIndex, DirectoryEntries) {
  std::string book = multi_search_book();
  EXPECT_EQ(find_in(book, 0x92), 12);
  EXPECT_EQ(engine.found_pages, 3);
  EXPECT_EQ(find_in(book, 0x00), 4);
  EXPECT_EQ(find_in(book, 0x91), 0);  // only a component, not an entry
  EXPECT_EQ(engine.found_pages, 0);
  EXPECT_EQ(find_in(book, -1), 0);

  std::string empty = write_tree("empty_directory", {});
  EXPECT_EQ(find_in(empty, 0x00), 0);
  EXPECT_EQ(find_in(empty, 0xFF), 0);
}

TEST(FindIndex, MultiSearchDefinitions) {
  std::string book = multi_search_book();
  engine.index_id = -1;
  engine.multi_index = 1;  // first index component wins over the heading 0x05
  EXPECT_EQ(find_in(book, 0xFF), 40);
  EXPECT_EQ(engine.index_id, 0x91);
  EXPECT_EQ(engine.found_pages, 7);
  engine.multi_index = 2;  // components all below 0x80
  EXPECT_EQ(find_in(book, 0xFF), 0);
  EXPECT_EQ(engine.index_id, 0x06);
  engine.multi_index = 3;  // numbering runs on into the second 0xFF entry
  EXPECT_EQ(find_in(book, 0xFF), 50);
  EXPECT_EQ(engine.index_id, 0x90);
  for (int none : {0, 4}) {
    engine.index_id = -2;
    engine.multi_index = none;
    EXPECT_EQ(find_in(book, 0xFF), 0);
    EXPECT_EQ(engine.index_id, -2);
  }
  engine.index_id = -1;
  engine.multi_index = 0;
}

TEST(ListIndexes, ExactLines) {
  EngineRun run = run_engine({"-D" + multi_search_book(), "-V"});
  EXPECT_EQ(run.out,
            "INDEX:START -  END\t内容（*:未対応）\n"
            " 0x00:     4-    6\t本文\n"
            " 0xFF:     2-    2\t複合検索定義\n"
            "+\t\t  -X1:\t複合検索                      \n"
            "|0x05:    30-   30\t前方一致見出し\n"
            "|0x91:    40-   46\t前方一致インデックス\n"
            "+\t\t  -X2:\t                              \n"
            "|0x05:    31-   31\t前方一致見出し\n"
            "|0x06:    32-   32\t後方一致（かな）見出し\n"
            " 0x33:     9-    9\t？\n"
            " 0xFF:     3-    3\t複合検索定義\n"
            "+\t\t  -X3:\t                              \n"
            "|0x90:    50-   51\t前方一致（かな）インデックス\n"
            " 0x92:    12-   14\t前方一致（英字）インデックス\n");

  BookText english;
  english.add_area(0xFF, multi_search_page({{std::string("Two\0words", 9), {}}}));
  EXPECT_EQ(run_engine({"-E", "-D" + write_tree("english_titles", english, true), "-V"}).out,
            "INDEX:START -  END\t内容（*:未対応）\n"
            " 0xFF:     2-    2\t複合検索定義\n"
            "+\t\t  -X1:\tTwo words                     \n");

  EXPECT_EQ(run_engine({"-D" + write_tree("empty_listing", {}), "-V"}).out,
            "INDEX:START -  END\t内容（*:未対応）\n");
  // A book that can't be opened lists nothing, only the failure of the catalog.
  EXPECT_EQ(run_engine({"-D" + write_tree("empty_listing", {}), "-B1", "-V"}).out,
            "文書番号が不適当です（-B オプション）\nerror 17.\n");
}

TEST(ListIndexes, ForwardGroupSeen) {
  BookText backward_only;
  backward_only.add_entry({0x71, 2, 1});
  backward_only.add_entry({0xA0, 3, 1});
  std::string root = write_tree("backward_only", backward_only);
  capture_engine([&] { EXPECT_EQ(engine_has_forward_index(root.c_str(), 0), 0); });

  // A forward component of a definition counts like a forward entry.
  BookText through_definition = backward_only;
  through_definition.add_area(0xFF, multi_search_page({{"", {{0x93, 9, 1}}}}));
  root = write_tree("forward_component", through_definition);
  capture_engine([&] { EXPECT_EQ(engine_has_forward_index(root.c_str(), 0), 1); });
}

}  // namespace

TEST(IndexDirectory, DamagedCountsEndWithTheBook) {
  // A directory claiming 65535 entries, every one a 0xFF entry whose
  // definitions stand on page 1 itself (65535 of them again), in a book of
  // one page: the scans stop at the page's end and at the book's end.
  std::string page(2048, '\0');
  page[0] = page[1] = '\xFF';
  for (int offset = 16; offset + 16 <= 2048; offset += 16) {
    page[offset] = '\xFF';
    page[offset + 5] = 1;  // first page 1
  }
  std::string path = scratch_path("damaged_directory");
  std::ofstream(path, std::ios::binary) << page;
  std::string listing = run_engine({"-N" + path, "-V"}).out;
  EXPECT_EQ(count_of(listing, " 0xFF:"), 127u);
  EngineRun search = run_engine({"-N" + path, "-X9999", "-M", "word"});
  EXPECT_EQ(search.err, "");
}
