#include "app/catalog_books.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <vector>

#include "platform/device_path.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "tools/book_writer.h"
#include "tools/catalog_writer.h"
#include "tools/index_tree_writer.h"
#include "tools/jis_text.h"

namespace {

// A catalog of 65535 books, every record naming the one book folder there
// is: each is a book to offer, and the last is opened as quickly as the
// first, so that reading them all takes time in proportion to their number.
TEST(CatalogBooks, EveryBookOfTheLargestCatalog) {
  const std::filesystem::path card = fresh_directory("catalog_books_card");
  SetDeviceFolder(DeviceFolder::kCard, card.string());
  BookTree tree(BookType::kEpwing);
  Book& book = tree.add_book("辞書", "JITEN");
  book.text.add_area(0x00, std::string(2, '\0'));
  book.text.add_area(0x91, index_tree({}, book.text.next_page()));
  tree.write(card / "many");
  constexpr int kBooks = 65535;
  std::vector<CatalogRecord> records(kBooks, {utf8_to_jis("辞書"), "JITEN"});
  records.back().title = "";  // a blank title is offered to no one
  std::ofstream(card / "many" / "catalogs", std::ios::binary)
      << catalog_bytes(BookType::kEpwing, records, kBooks);

  DictionaryEntryArray books;
  CStringArray titles;
  bool read = false;
  capture_engine([&] { read = ReadCatalogBooks(u"\\SD\\many", books, titles); });
  ASSERT_TRUE(read);
  ASSERT_EQ(books.size(), static_cast<size_t>(kBooks - 1));
  EXPECT_EQ(books.back().bookNumber, kBooks - 2);
  EXPECT_EQ(titles.back(), CString(u"辞書"));
  SetDeviceFolder(DeviceFolder::kCard, "");
}

}  // namespace
