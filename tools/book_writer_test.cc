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
