#include "engine/catalog.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "command/engine.h"
#include "engine/file_access.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "testing/utf8_literal.h"
#include "tools/book_writer.h"
#include "tools/jis_text.h"

namespace {

namespace fs = std::filesystem;

// Titles are written in UTF-8 (u8 literals); plain literals here are
// Shift-JIS, as the engine prints them.

// A Shift-JIS title as the listing prints it: padded with blanks to `size`.
std::string listed(const std::string& title, size_t size) {
  return title + std::string(size - title.size(), ' ');
}

class Catalogs : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : {"CDDRIVE", "CDFILE", "CDDEBUG", "CDBOOK", "CDFILES"}) unsetenv(name);
    reset();
  }
  void TearDown() override { reset(); }
  static void reset() {
    cdclose();
    engine.flags = 0;
    engine.file_table = default_file_table;
    engine.drive_path[0] = '\0';
    engine.book_number = 0;
  }
  // Writes the tree and makes it the drive.
  static std::string write(const BookTree& tree, const std::string& name) {
    const fs::path root = fresh_directory(name);
    tree.write(root);
    snprintf(engine.drive_path, kPathSize, "%s/", root.c_str());
    return root.string();
  }
};

TEST_F(Catalogs, ListingOfEachBookType) {
  BookTree epwing(BookType::kEpwing);
  epwing.add_book(utf8(u8"辞書"), "JITEN");
  epwing.add_book(utf8(u8"百科"), "HYAKKA");
  const std::string epwing_root = write(epwing, "Listing");
  BookTree ebook(BookType::kElectronicBook);
  ebook.add_book(utf8(u8"辞書"), "EB");
  // "catalogs" wins over "catalog"; so does "titles".
  write_book_file(epwing_root, "catalog", ebook.catalog());
  EXPECT_EQ(run_engine({"-D" + epwing_root, "-C"}).out,
            "-B0 ; " + listed("辞書", 80) + " : JITEN\n-B1 ; " + listed("百科", 80) + " : HYAKKA\n");
  fs::rename(fs::path(epwing_root) / "catalogs", fs::path(epwing_root) / "titles");
  EXPECT_EQ(run_engine({"-D" + epwing_root, "-C"}).out.size(), 2 * (6 + 80 + 3) + 6 + 7);

  const std::string ebook_root = write(ebook, "EBook");
  EXPECT_EQ(run_engine({"-D" + ebook_root, "-C"}).out, "-B0 ; " + listed("辞書", 30) + " : EB\n");

  BookTree english(BookType::kEpwing);
  english.english = true;
  english.add_book("Demo", "ABCDEFGH");
  const std::string english_root = write(english, "English");
  EXPECT_EQ(run_engine({"-D" + english_root, "-E", "-C"}).out, "-B0 ; Demo : ABCDEFGH\n");

  BookTree encyclopedia(BookType::kEncyclopedia);
  encyclopedia.add_book(utf8(u8"百科事典"));
  encyclopedia.names = {.upper_case = true, .bare_dot = true, .version = true};
  const std::string encyclopedia_root = write(encyclopedia, "Encyclopedia");
  // The built-in table is in force after the first listing: the second
  // prints nothing.
  const std::string out = run_engine({"-D" + encyclopedia_root, "-C", "-C", "-A"}).out;
  EXPECT_EQ(out.substr(0, 81), listed("百科事典", 80) + "\n");
  EXPECT_EQ(out.substr(81, 4), "-D/C");
  EXPECT_NE(out.find("\t平凡社世界大百科\n"), std::string::npos);
}

TEST_F(Catalogs, BookNumbersAndDirectories) {
  BookTree tree(BookType::kEpwing);
  tree.add_book(utf8(u8"八字"), "ABCDEFGH");
  tree.add_book(utf8(u8"短い"), "AB");
  write(tree, "Numbers");
  EXPECT_STREQ(open_catalog(0), "ABCDEFGH/data/honmon");
  EXPECT_STREQ(open_catalog(1), "AB/data/honmon");
  EXPECT_EQ(engine.current_file, nullptr);  // the catalog is closed again
  engine.book_number = 2;
  EXPECT_EQ(capture_engine([] { EXPECT_EQ(open_text(), nullptr); }).out,
            "文書番号が不適当です（-B オプション）\nerror 17.\n");

  tree.stored_count = 0;
  write(tree, "CountZero");
  EXPECT_EQ(capture_engine([] { EXPECT_EQ(open_catalog(-1), nullptr); }).out, "");

  BookTree ebook(BookType::kElectronicBook);
  ebook.add_book(utf8(u8"一"), "ONE");
  ebook.add_book(utf8(u8"二"), "TWO");
  write(ebook, "EBookNumbers");
  EXPECT_STREQ(open_catalog(1), "TWO/start");
  EXPECT_TRUE(engine.flags & DF_EBOOK);
}

TEST_F(Catalogs, DamagedBookCountEndsAtTheCatalogsEnd) {
  BookTree tree(BookType::kEpwing);
  tree.add_book(utf8(u8"辞書"), "JITEN");
  tree.stored_count = 65535;
  write(tree, "CountDamaged");
  const std::string out = capture_engine([] { EXPECT_EQ(open_catalog(-1), nullptr); }).out;
  EXPECT_EQ(out.substr(0, 6 + 80 + 9), "-B0 ; " + listed("辞書", 80) + " : JITEN\n");
  // The second record's title is the first read to fail, and the last.
  EXPECT_EQ(out.find("-B1"), std::string::npos);
  EXPECT_LE(count_of(out, "error 9."), 80u);  // one title of 80 bytes, each failing on its own
}

TEST_F(Catalogs, MissingCatalogAndDrive) {
  const std::string failure1 =
      "CD-ROM のドライブを設定してください\n（環境変数 CDDRIVE、もしくは -D オプション）\nerror 1.\n";
  std::string expected;
  for (int attempt = 0; attempt < 6; ++attempt) expected += failure1;
  expected += "カタログ・ファイルが見つかりません\nerror 16.\n";
  EXPECT_EQ(run_engine({"-C"}).out, expected);

  write(BookTree(), "NoCatalog");
  fs::remove(fs::path(engine.drive_path) / "catalogs");
  EXPECT_EQ(capture_engine([] { EXPECT_EQ(open_text(), nullptr); }).out,
            "カタログ・ファイルが見つかりません\nerror 16.\n"
            "文書番号が不適当です（-B オプション）\nerror 17.\n");
  EXPECT_TRUE(engine.flags & DF_ENCYCLOPEDIA);  // from the last name tried
}

TEST_F(Catalogs, CaptureOfTitles) {
  BookTree tree(BookType::kEpwing);
  tree.add_book(utf8(u8"辞書"), "JITEN");
  tree.add_book(utf8(u8"百科"), "HYAKKA");
  const std::string root = write(tree, "Capture");
  const std::string list = listed("辞書", 80) + "\n" + listed("百科", 80) + "\n";
  char buffer[200];
  const auto catalog = [&](int32_t size) {
    int32_t result = 0;
    capture_engine([&] { result = engine_catalog(root.c_str(), buffer, size); });
    return result;
  };
  EXPECT_EQ(catalog(0), 163);
  EXPECT_EQ(catalog(163), 163);
  EXPECT_EQ(std::string(buffer), list);
  memset(buffer, 'x', sizeof buffer);
  EXPECT_EQ(catalog(162), 163);
  EXPECT_EQ(std::string(buffer, 162), std::string(162, '\0'));
  EXPECT_EQ(buffer[162], 'x');
}

TEST(JisToSjis, Values) {
  EXPECT_EQ(jis_to_sjis(0x2422), 0x82A0);
  EXPECT_EQ(jis_to_sjis(0x2121), 0x8140);
  EXPECT_EQ(jis_to_sjis(0x7E7E), 0xEFFC);
  EXPECT_EQ(jis_to_sjis(0x7E7F), 0x3F3F);
  EXPECT_EQ(jis_to_sjis(0x2120), 0x3F3F);
  EXPECT_EQ(jis_to_sjis(0), 0x2020);
  EXPECT_EQ(jis_to_sjis(0x3021), 0x889F);  // 亜: even row
  EXPECT_EQ(jis_to_sjis(0x2560), 0x8380);  // skips 0x7F
}

}  // namespace
