#include "tools/book_writer.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "testing/temp_tree.h"
#include "tools/jis_text.h"

namespace {

namespace fs = std::filesystem;

TEST(JisText, Conversions) {
  EXPECT_EQ(utf8_to_sjis("あ亜"), "\x82\xA0\x88\x9F");
  EXPECT_EQ(utf8_to_jis("あ亜"), "\x24\x22\x30\x21");
  EXPECT_EQ(utf8_to_jis("A ~\""), "\x23\x41\x21\x21\x21\x41\x21\x49");  // full width
  EXPECT_THROW(utf8_to_jis("ｱ"), std::invalid_argument);  // half-width kana
  EXPECT_THROW(utf8_to_sjis("\xF0\x9F\x98\x80"), std::invalid_argument);
}

TEST(BookWriter, CatalogRecords) {
  BookTree epwing(BookType::kEpwing);
  epwing.add_book("辞書", "JITEN");
  epwing.add_book("百科", "HYAKKA");
  const std::string catalog = epwing.catalog();
  ASSERT_EQ(catalog.size(), 16u + 2 * 164);
  EXPECT_EQ(catalog.substr(0, 2), std::string("\0\x02", 2));
  EXPECT_EQ(catalog.substr(16 + 164 + 2, 4), utf8_to_jis("百科"));
  EXPECT_EQ(catalog.substr(16 + 164 + 82, 8), "HYAKKA  ");
  EXPECT_THROW(catalog_bytes(BookType::kEpwing, {{"", "NINECHARS"}}, 1), std::invalid_argument);
  EXPECT_THROW(catalog_bytes(BookType::kElectronicBook, {{std::string(31, 'x'), ""}}, 1),
               std::invalid_argument);
}

TEST(BookWriter, PagesAndLayouts) {
  BookText text;
  EXPECT_EQ(text.add_area(0x00, std::string(2049, 'b')), 2);
  EXPECT_EQ(text.add_pages("x"), 4);
  EXPECT_EQ(text.add_area(0x91, ""), 5);
  EXPECT_EQ(text.add_area_at(0x01, 9, "m"), 9);
  EXPECT_THROW(text.add_area_at(0x02, 9, "c"), std::invalid_argument);
  ASSERT_EQ(text.entries().size(), 3u);
  EXPECT_EQ(text.entries()[0].page_count, 2);
  EXPECT_EQ(text.entries()[1].first_page, 5);
  EXPECT_EQ(text.next_page(), 10);

  // Rows split the space: page 1 alone, pages 2 to 5, then the rest. The
  // empty row between holds nothing and is not written.
  const fs::path root = fresh_directory("layout");
  write_laid_out(root, text, {{0, "a"}, {1, "b"}, {5, "empty"}, {6, "c"}});
  EXPECT_EQ(ReadWholeFile(root / "a").substr(0, 2), std::string("\0\x03", 2));
  EXPECT_EQ(fs::file_size(root / "a"), 2048u);
  const std::string b = ReadWholeFile(root / "b");
  ASSERT_EQ(b.size(), 4u * 2048);
  EXPECT_EQ(b.substr(2047, 3), std::string("bb\0", 3));
  EXPECT_EQ(b[2 * 2048], 'x');
  EXPECT_FALSE(fs::exists(root / "empty"));
  EXPECT_EQ(fs::file_size(root / "c"), 3u * 2048);
  EXPECT_EQ(ReadWholeFile(root / "c")[2 * 2048], 'm');
}

TEST(BookWriter, TreesAndNames) {
  EXPECT_EQ(styled_path("jiten/data/honmon", {.upper_case = true, .bare_dot = true, .version = true}),
            "JITEN/DATA/HONMON.;1");
  EXPECT_EQ(styled_path("v1.0/kana.idx", {.bare_dot = true, .version = true}), "v1.0/kana.idx;1");

  const fs::path root = fresh_directory("tree");
  BookTree tree(BookType::kElectronicBook);
  tree.names.upper_case = true;
  tree.add_book("辞書", "eb").text.add_area(0x00, "body");
  tree.write(root);
  tree.write(root);  // writing again replaces the files
  EXPECT_EQ(ReadWholeFile(root / "CATALOG"), tree.catalog());
  EXPECT_EQ(fs::file_size(root / "EB/START"), 2u * 2048);
  EXPECT_FALSE(fs::exists(root / "EB/START.partial"));
}

}  // namespace
