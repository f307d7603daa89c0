#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "platform/device_path.h"
#include "results/engine_books.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "tools/book_writer.h"
#include "tools/catalog_writer.h"
#include "tools/index_tree_writer.h"
#include "tools/jis_text.h"

namespace {

// What the recording stand-in of engine_catalog holds and saw: the catalog
// text of each host folder, and the drive and capacity of each call.
std::map<std::string, std::string> catalogTexts;
std::vector<std::pair<std::string, int32_t>> catalogCalls;

int32_t RecordingCatalog(const char* drive, char* buffer, int32_t size) {
  catalogCalls.emplace_back(drive, size);
  const std::string& text = catalogTexts[drive];
  int32_t needed = static_cast<int32_t>(text.size()) + 1;
  if (size > 0) std::memset(buffer, 0, static_cast<size_t>(size));
  if (needed <= size) std::memcpy(buffer, text.data(), text.size());
  return needed;
}

class EngineCatalogTest : public testing::Test {
 protected:
  void SetUp() override {
    SetDeviceFolder(DeviceFolder::kCard, "/nonexistent/card");
    catalogTexts.clear();
    catalogCalls.clear();
  }
  void TearDown() override { SetDeviceFolder(DeviceFolder::kCard, ""); }
  std::vector<CString> Titles(const char16_t* folder, bool expected = true) {
    std::vector<CString> titles;
    EXPECT_EQ(books_.CatalogTitles(folder, titles), expected);
    return titles;
  }

  EngineBooks books_{kLookupLimits, RecordingCatalog};
};

TEST_F(EngineCatalogTest, TitlesLineByLineTrimmedAndCut) {
  EXPECT_TRUE(Titles(u"\\SD\\plus", false).empty());
  ASSERT_EQ(catalogCalls.size(), 1u);
  EXPECT_EQ(catalogCalls[0].first, "/nonexistent/card/plus");  // the engine gets host paths

  catalogTexts["/nonexistent/card/plus"] = "A  \r\n\n   \nB\nunfinished";
  const std::vector<CString> titles = Titles(u"\\SD\\plus");
  ASSERT_EQ(titles.size(), 4u);  // a last piece with no line feed is no line
  EXPECT_EQ(titles[0], CString(u"A"));
  EXPECT_TRUE(titles[1].IsEmpty());
  EXPECT_TRUE(titles[2].IsEmpty());
  EXPECT_EQ(titles[3], CString(u"B"));

  // A title beyond the work area is cut before a character it would split.
  std::string longTitle = "xy";
  for (int i = 0; i < 300; ++i) longTitle += "\x82\xa0";  // あ
  catalogTexts["/nonexistent/card/plus"] = longTitle + "\n";
  EXPECT_EQ(Titles(u"\\SD\\plus")[0], CString(u"xy") + CString(u'あ', 254));
}

TEST_F(EngineCatalogTest, BufferGrowsOnceAndServesTheNextFolder) {
  catalogTexts["/nonexistent/card/a"] = std::string(510, 'a') + "\n";  // fits with its NUL
  EXPECT_EQ(Titles(u"\\SD\\a")[0].GetLength(), 510);
  ASSERT_EQ(catalogCalls.size(), 1u);
  EXPECT_EQ(catalogCalls[0].second, 512);

  catalogTexts["/nonexistent/card/a"] = std::string(511, 'a') + "\n";  // one byte more
  catalogTexts["/nonexistent/card/b"] = "w\n";
  EXPECT_EQ(Titles(u"\\SD\\a")[0].GetLength(), 511);
  EXPECT_EQ(Titles(u"\\SD\\b")[0], CString(u"w"));
  ASSERT_EQ(catalogCalls.size(), 4u);
  EXPECT_EQ(catalogCalls[2].second, 513);
  EXPECT_EQ(catalogCalls[3].second, 513);  // not shrunk for the next folder
}

// A catalog of 65535 books, every record naming the one book folder there
// is: each has a forward index, and the last is opened as quickly as the
// first, so that asking them all takes time in proportion to their number.
TEST(EngineBooksCatalog, EveryBookOfTheLargestCatalog) {
  const std::filesystem::path card = fresh_directory("catalog_books_card");
  SetDeviceFolder(DeviceFolder::kCard, card.string());
  BookTree tree(BookType::kEpwing);
  Book& book = tree.add_book("辞書", "JITEN");
  book.text.add_area(0x00, std::string(2, '\0'));
  book.text.add_area(0x91, index_tree({}, book.text.next_page()));
  tree.write(card / "many");
  constexpr int kBooks = 65535;
  std::vector<CatalogRecord> records(kBooks, {utf8_to_jis("辞書"), "JITEN"});
  records.back().title = "";
  std::ofstream(card / "many" / "catalogs", std::ios::binary)
      << catalog_bytes(BookType::kEpwing, records, kBooks);

  EngineBooks books;
  std::vector<CString> titles;
  int32_t indexed = 0;
  capture_engine([&] {
    ASSERT_TRUE(books.CatalogTitles(u"\\SD\\many", titles));
    for (int32_t number = 0; number < static_cast<int32_t>(titles.size()); ++number)
      indexed += books.HasForwardIndex(u"\\SD\\many", number);
  });
  ASSERT_EQ(titles.size(), static_cast<size_t>(kBooks));
  EXPECT_EQ(titles[kBooks - 2], CString(u"辞書"));
  EXPECT_TRUE(titles.back().IsEmpty());
  EXPECT_EQ(indexed, kBooks);
  SetDeviceFolder(DeviceFolder::kCard, "");
}

}  // namespace
