#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "testing/utf8_literal.h"
#include "tools/book_writer.h"

namespace {

// Areas whose page count in the directory is near 2^31, far beyond the
// book's one page: the dumps read what the file holds and stop.
TEST(Inspection, AreaBeyondEveryPosition) {
  const std::filesystem::path root = fresh_directory("scan_far_area");
  BookTree tree;
  Book& book = tree.add_book(utf8(u8"辞書"), "JITEN");
  book.text.add_area(0x01, std::string(16, '\0'));
  book.text.add_entry({0x00, 2, 0x7FFFFFF0});
  book.text.add_entry({0x91, 2, 0x7FFFFFF0});
  tree.write(root);
  const std::string dir = "-D" + root.string();
  // The index dump shows the one page there is, an empty branch page,
  // and stops at the failed read of the next.
  const std::string failed_read = "データ読み込みに失敗しました(BYTE:pos=4096)\nerror 9.\n";
  EXPECT_EQ(run_engine({dir, "-K0x91", "-Q"}).out,
            "Page 2, i=00, length=0, num=0\n" + failed_read);

  // A page of the dump ends with the book, whatever count it claims: here
  // the 341st entry is the first to run off the end.
  const std::filesystem::path far_root = fresh_directory("dump_far_count");
  BookTree far_tree;
  far_tree.add_book(utf8(u8"辞書"), "JITEN")
      .text.add_area(0x91, std::string("\x00\x02\xFF\xFF", 4) + std::string(2044, '\x21'));
  far_tree.write(far_root);
  const std::string far = run_engine({"-D" + far_root.string(), "-K0x91", "-Q"}).out;
  EXPECT_EQ(far.rfind("Page 2, i=00, length=2, num=65535\n", 0), 0u);
  EXPECT_GE(count_of(far, "error 9."), 1u);
  EXPECT_LE(count_of(far, "error 9."), 4u);

  // The scan's end is worked out from the directory's page numbers: it
  // tells how much of the area was left, beyond any 32-bit position.
  const EngineRun run = run_engine({dir, "-T"});
  EXPECT_EQ(run.out, "ID=00, from 2(2147483632 pages), flag=0\n" + failed_read + failed_read);
  // (2 + 2147483632 - 1) * 2048 - 4096 bytes
  EXPECT_EQ(run.err, "End of file, 4398046476288(2147483631 page)left.\n");
}

// A damaged page count carries the dumps over the whole book: the index
// dump stops at the first page that is no index page, each page's entries
// at the end of the page, and the text scan once the words stop looking
// like text. The output stays far below the book's own size.
TEST(Inspection, DamagedCountsStayWithinTheArea) {
  const std::filesystem::path root = fresh_directory("dump_damaged_counts");
  BookTree tree;
  Book& book = tree.add_book(utf8(u8"辞書"), "JITEN");
  // An index of 8 branch pages, each claiming 65535 entries of 2-byte keys
  // but holding 340, then 64 pages of words that are no text (0x0101).
  std::string branch = std::string("\x00\x02\xFF\xFF", 4) + std::string(2044, '\x21');
  std::string index;
  for (int i = 0; i < 8; ++i) index += branch;
  const int32_t first = book.text.add_area(0x91, index);
  const std::string odd_words(64 * 2048, '\x01');
  book.text.add_area(0x00, odd_words);
  book.text.add_entry({0x92, first, 0x7FFFFFF0});
  book.text.add_entry({0x01, first + 8, 0x7FFFFFF0});
  tree.write(root);
  const std::string dir = "-D" + root.string();

  const EngineRun dump = run_engine({dir, "-Q0x92"});
  // The 8 pages of the index, and the head of the first page behind it.
  EXPECT_EQ(count_of(dump.out, "Page "), 9u);
  // 340 entries a page and the one that runs over its end.
  EXPECT_EQ(count_of(dump.out, "\n"), 8u * 342);
  EXPECT_NE(dump.err.find("変なページＩＤ " + std::to_string(first + 8) + " 01"), std::string::npos);

  const EngineRun scan = run_engine({dir, "-T1"});
  EXPECT_EQ(count_of(scan.out, ">"), 256u);
  EXPECT_NE(scan.err.find("Too many odd words, the scan stops at"), std::string::npos);
  EXPECT_LT(scan.out.size() + scan.err.size(), odd_words.size() / 4);
}

// Multi-search definitions are read no further than their page, however
// many the count claims: here 65535 of them, 63 of which fit, on the first
// of 32 pages that all look the same.
TEST(Inspection, DefinitionsStayOnTheirPage) {
  const std::filesystem::path root = fresh_directory("definitions_on_page");
  std::string page = std::string("\xFF\xFF", 2) + std::string(2046, '\0');
  std::string pages;
  for (int i = 0; i < 32; ++i) pages += page;
  BookTree tree;
  Book& book = tree.add_book(utf8(u8"辞書"), "JITEN");
  book.text.add_area(0xFF, pages);
  book.text.add_area(0xFF, pages);
  tree.write(root);
  const std::string listing = run_engine({"-D" + root.string(), "-V"}).out;
  EXPECT_EQ(count_of(listing, "-X"), 2u * 63);
  EXPECT_NE(listing.find("-X126:"), std::string::npos);
}

}  // namespace
