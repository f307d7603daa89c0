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

}  // namespace
