#include "results/typed_lookup.h"

#include <gtest/gtest.h>

#include "testing/fake_books.h"

namespace {

// The word itself first; its forms only while no article is found, and the
// first form that finds gives both lists and is named. (The word that finds
// as typed is announced through the whole reader: the typed words' run.)
TEST(LookupAsTyped, FormsTriedInTurnUntilOneFindsArticles) {
  FakeBooks books;
  FakeBook book{u"辞書"};
  book.words[u"xq"] = {{}, {{u"【xqz】", u"xqz"}}};
  book.words[u"ha na"] = {{}, {}};
  book.words[u"hana"] = {{}, {}, kLookupStopped};
  book.words[u"はな"] = {{{u"はな【花】", u"はな【花】\r\n植物の花。"}}, {}};
  book.words[u"ka"] = {{}, {{u"【kaz】", u"kaz"}}};
  book.words[u"か"] = {{{u"か【蚊】", u"か【蚊】\r\n虫。"}}, {{u"【かい】", u"かい"}}};
  books.SetCatalog(u"\\SD\\d", {book});
  ResultItemArray articles, candidates;
  CString foundAs;

  // A form finds: its articles and its own candidates, not the word's.
  EXPECT_EQ(LookupAsTyped(books, u"\\SD\\d", 0, u"ka", articles, candidates, foundAs), 0);
  EXPECT_EQ(foundAs, CString(u"か"));
  ASSERT_EQ(articles.size(), 1u);
  ASSERT_EQ(candidates.size(), 1u);
  EXPECT_EQ(candidates[0].body, CString(u"かい"));

  // Nothing finds: the word's own lists stay, candidates included.
  EXPECT_EQ(LookupAsTyped(books, u"\\SD\\d", 0, u"xq", articles, candidates, foundAs), 0);
  EXPECT_TRUE(foundAs.IsEmpty());
  EXPECT_TRUE(articles.empty());
  EXPECT_EQ(candidates.size(), 1u);

  // A form whose run was stopped with nothing found: the tries end there
  // (はな, the next form, is not looked up), and the stop is told.
  const int32_t tried = books.lookups;
  EXPECT_EQ(LookupAsTyped(books, u"\\SD\\d", 0, u"ha na", articles, candidates, foundAs),
            kLookupStopped);
  EXPECT_EQ(books.lookups, tried + 2);
  EXPECT_TRUE(foundAs.IsEmpty());

  // A folder that has gone: nothing tried after the word.
  books.RemoveFolder(u"\\SD\\d");
  const int32_t gone = books.lookups;
  EXPECT_EQ(LookupAsTyped(books, u"\\SD\\d", 0, u"hana", articles, candidates, foundAs),
            kLookupNoBook);
  EXPECT_EQ(books.lookups, gone + 1);
}

}  // namespace
