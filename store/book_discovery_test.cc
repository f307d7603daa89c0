#include "store/book_discovery.h"

#include <gtest/gtest.h>

#include "testing/fake_books.h"

namespace {

class BookDiscoveryTest : public testing::Test {
 protected:
  void Discover() {
    list_.clear();
    DiscoverBooks(books_, list_, builtinCount_);
  }

  FakeBooks books_;
  DictionaryEntryArray list_;
  int32_t builtinCount_ = -1;
};

TEST_F(BookDiscoveryTest, FoldersInOrderTitlesJoinedOrFolderName) {
  books_.SetCatalog(u"\\SD\\other", {{u"X"}});  // not a built-in folder
  Discover();
  EXPECT_TRUE(list_.empty());
  EXPECT_EQ(builtinCount_, 0);

  books_.SetCatalog(u"\\SD\\epwing\\wadai", {{u""}, {u""}});
  Discover();
  ASSERT_EQ(list_.size(), 1u);
  EXPECT_EQ(builtinCount_, 1);
  EXPECT_EQ(list_[0].title, CString(u"wadai"));  // only empty titles
  EXPECT_EQ(list_[0].path, CString(u"\\SD\\epwing\\wadai"));

  books_.SetCatalog(u"\\SD\\epwing\\plus", {{u"A"}, {u""}, {u"B", false}});
  Discover();
  ASSERT_EQ(list_.size(), 2u);
  EXPECT_EQ(builtinCount_, 2);
  EXPECT_EQ(list_[0].title, CString(u"A/B"));
  EXPECT_EQ(list_[0].bookNumber, 0);
  EXPECT_EQ(list_[0].path, CString(u"\\SD\\epwing\\plus"));
}

// Adding a dictionary offers each book with a title and a forward index,
// numbered as in the catalog, blank and unindexed ones included.
TEST_F(BookDiscoveryTest, ChosenFolderOffersIndexedTitledBooks) {
  DictionaryEntryArray entries;
  CStringArray titles;
  EXPECT_FALSE(ReadCatalogBooks(books_, u"\\SD\\mine", entries, titles));

  books_.SetCatalog(u"\\SD\\mine", {{u"A", false}, {u""}, {u"C"}});
  ASSERT_TRUE(ReadCatalogBooks(books_, u"\\SD\\mine", entries, titles));
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0].title, CString(u"C"));
  EXPECT_EQ(entries[0].bookNumber, 2);
  EXPECT_EQ(entries[0].path, CString(u"\\SD\\mine"));
  EXPECT_EQ(titles, CStringArray{u"C"});

  // A catalog whose books all fail is still a catalog: no entry, true.
  books_.SetCatalog(u"\\SD\\mine", {{u"", true}});
  entries.clear();
  titles.clear();
  EXPECT_TRUE(ReadCatalogBooks(books_, u"\\SD\\mine", entries, titles));
  EXPECT_TRUE(entries.empty());
}

}  // namespace
