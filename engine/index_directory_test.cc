#include "engine/index_directory.h"

#include <gtest/gtest.h>

#include <fstream>

#include "engine/engine_state.h"
#include "engine/file_access.h"
#include "testing/engine_runner.h"
#include "testing/index_directory_writer.h"

namespace {

// "複合検索" as JIS codes.
const std::string kJisTitle("\x4A\x23\x39\x67\x38\x21\x3A\x77", 8);

// Writes a one-file book whose pages are given from page 1 on.
std::string write_book(const std::string& name, const std::vector<std::string>& pages) {
  std::string path = ::testing::TempDir() + name;
  std::ofstream file(path, std::ios::binary);
  for (const std::string& page : pages) file << page;
  return path;
}

// Directory on page 1; definitions on pages 2 and 3 behind two 0xFF entries,
// numbered 1 and 2 on the first, 3 on the second; an index behind them.
std::string multi_search_book() {
  return write_book(
      "multi_search_book",
      {index_directory_page({{0x00, 4, 3}, {0xFF, 2, 1}, {0x33, 9, 1}, {0xFF, 3, 1},
                             {0x92, 12, 3}}),
       multi_search_page({{kJisTitle, {{0x05, 30, 1}, {0x91, 40, 7}}},
                          {"", {{0x05, 31, 1}, {0x06, 32, 1}}}}),
       multi_search_page({{"", {{0x90, 50, 2}}}})});
}

int32_t find_in(const std::string& path, int32_t identifier) {
  snprintf(engine.single_file, sizeof engine.single_file, "%s", path.c_str());
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

  std::string empty = write_book("empty_directory", {index_directory_page({})});
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
  EngineRun run = run_engine({"-N" + multi_search_book(), "-V"});
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

  std::string english = write_book(
      "english_titles", {index_directory_page({{0xFF, 2, 1}}),
                         multi_search_page({{std::string("Two\0words", 9), {}}})});
  EXPECT_EQ(run_engine({"-E", "-N" + english, "-V"}).out,
            "INDEX:START -  END\t内容（*:未対応）\n"
            " 0xFF:     2-    2\t複合検索定義\n"
            "+\t\t  -X1:\tTwo words                     \n");

  std::string empty = write_book("empty_listing", {index_directory_page({})});
  EXPECT_EQ(run_engine({"-N" + empty, "-V"}).out, "INDEX:START -  END\t内容（*:未対応）\n");
  EXPECT_EQ(run_engine({"-N" + ::testing::TempDir() + "no_such_book", "-V"}).out, "");
}

TEST(ListIndexes, ForwardGroupSeen) {
  std::string backward_only = write_book("backward_only", {index_directory_page({{0x71, 2, 1}, {0xA0, 3, 1}})});
  engine.forward_index_seen = 0;
  run_engine({"-N" + backward_only, "-V"});
  EXPECT_EQ(engine.forward_index_seen, 0);

  // A forward component of a definition counts like a forward entry.
  std::string through_definition = write_book(
      "forward_component", {index_directory_page({{0x71, 2, 1}, {0xFF, 3, 1}}),
                            std::string(2048, '\0'), multi_search_page({{"", {{0x93, 9, 1}}}})});
  run_engine({"-N" + through_definition, "-V"});
  EXPECT_EQ(engine.forward_index_seen, 1);
  engine.forward_index_seen = 0;
}

}  // namespace
