#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "testing/utf8_literal.h"
#include "tools/body_text.h"
#include "tools/book_writer.h"
#include "tools/index_tree_writer.h"
#include "tools/jis_text.h"

namespace {

// Searches あ in a book whose one index (0x91) is `page` with its count set
// to 65535; the page is the last of the book, cut to `length` bytes.
EngineRun search_damaged_page(std::string page, size_t length = 2048) {
  const std::filesystem::path root = fresh_directory("walk_counts");
  BookTree tree;
  Book& book = tree.add_book(utf8(u8"辞書"), "JITEN");
  page[2] = page[3] = '\xFF';
  book.text.add_area(0x91, page);
  tree.write(root);
  std::filesystem::resize_file(root / tree.text_path(book), 2048 + length);
  return run_engine({"-D" + root.string(), "-K0x91", "あ"});
}

TEST(IndexWalk, DamagedCountsStayOnThePageAndInTheBook) {
  // Branch entries under the lowest key, which every search passes over:
  // the walk reads no further than the page, and beyond it every entry
  // would fail on its own.
  const std::string branch = branch_page(std::vector<BranchEntry>(340, {"\x21\x21", 2}), 2);
  EXPECT_EQ(search_damaged_page(branch).out, "");
  // The file ends a little way into a page: the walk stops behind the
  // first entry whose reads fail (each failed read of a byte or a word
  // reports) instead of going on through the count.
  for (int identifier : {0x00, 0x80, 0x90}) {
    std::string page = identifier == 0x00 ? branch : std::string(2048, '\0');
    page[0] = static_cast<char>(identifier);
    const std::string out = search_damaged_page(page, 100).out;
    EXPECT_GE(count_of(out, "error 9.\n"), 1u) << identifier;
    EXPECT_LE(count_of(out, "error 9.\n"), 6u) << identifier;
  }
}

// An index whose directory entry claims 2^31 - 1 pages is searched as far
// as the book goes (its last page number once overflowed, and no page was
// in the area).
TEST(IndexWalk, AreaCountToTheLastPageNumber) {
  const std::filesystem::path root = fresh_directory("walk_far_area");
  BookTree tree;
  Book& book = tree.add_book(utf8(u8"辞書"), "JITEN");
  const int32_t body = book.text.add_area(0x00, BodyText().text(u8"花").code(0x1F0A).code(0x1F03).data());
  const int32_t text = (body - 1) * 2048;
  const int32_t index = book.text.add_pages(
      index_tree({{0x00, utf8_to_jis(utf8(u8"花")), text, text}}, book.text.next_page()));
  book.text.add_entry({0x91, index, 0x7FFFFFFF});
  tree.write(root);
  // The walk goes on behind the hit to the page after the tree, the end.
  EXPECT_EQ(run_engine({"-D" + root.string(), "-K0x91", "花"}).out,
            "花\n\n<次項目:" + std::to_string(text + 6) + ">\n\n" +
                "データ読み込みに失敗しました(BYTE:pos=8192)\nerror 9.\n");
}

}  // namespace
