#include "store/book_discovery.h"

#include <gtest/gtest.h>

#include "testing/fake_books.h"

namespace {

// The built-in folders only, in their order; a folder's titles joined by
// "/", blank ones left out, or the folder's name when all are blank.
TEST(BookDiscovery, BuiltInFoldersInOrderTitlesJoinedOrFolderName) {
  FakeBooks books;
  books.SetCatalog(u"\\SD\\other", {{u"X"}});  // not a built-in folder
  books.SetCatalog(u"\\SD\\epwing\\wadai", {{u""}, {u""}});
  books.SetCatalog(u"\\SD\\epwing\\plus", {{u"A"}, {u""}, {u"B", false}});
  DictionaryEntryArray list;
  int32_t builtinCount = -1;
  DiscoverBooks(books, list, builtinCount);
  EXPECT_EQ(builtinCount, 2);
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list[0].title, CString(u"A/B"));
  EXPECT_EQ(list[0].path, CString(u"\\SD\\epwing\\plus"));
  EXPECT_EQ(list[0].bookNumber, 0);
  EXPECT_EQ(list[1].title, CString(u"wadai"));
}

// Adding a dictionary offers each book with a title and a forward index,
// numbered as in the catalog; a catalog whose books all fail is still one.
TEST(BookDiscovery, AChosenFolderOffersItsTitledIndexedBooks) {
  FakeBooks books;
  DictionaryEntryArray entries;
  CStringArray titles;
  EXPECT_FALSE(ReadCatalogBooks(books, u"\\SD\\mine", entries, titles));

  books.SetCatalog(u"\\SD\\mine", {{u"A", false}, {u""}, {u"C"}});
  ASSERT_TRUE(ReadCatalogBooks(books, u"\\SD\\mine", entries, titles));
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0].title, CString(u"C"));
  EXPECT_EQ(entries[0].bookNumber, 2);
  EXPECT_EQ(entries[0].path, CString(u"\\SD\\mine"));
  EXPECT_EQ(titles, CStringArray{u"C"});

  books.SetCatalog(u"\\SD\\mine", {{u""}});
  entries.clear();
  titles.clear();
  EXPECT_TRUE(ReadCatalogBooks(books, u"\\SD\\mine", entries, titles));
  EXPECT_TRUE(entries.empty());
}

}  // namespace
