#include "results/typed_lookup.h"

#include <gtest/gtest.h>

#include "testing/fake_books.h"

namespace {

// The word itself first; its forms only while no article is found, and the
// first form that finds gives the lists and is named.
TEST(LookupAsTyped, FormsTriedInTurnUntilOneFindsArticles) {
  FakeBooks books;
  FakeBook book{u"辞書"};
  book.words[u"hana"] = {{}, {{u"【hanabi】", u"hanabi"}}};
  book.words[u"はな"] = {{{u"はな【花】", u"はな【花】\r\n植物の花。"}}, {}};
  books.SetCatalog(u"\\SD\\d", {book});
  ResultItemArray articles, candidates;
  CString foundAs;
  EXPECT_EQ(LookupAsTyped(books, u"\\SD\\d", 0, u"hana", articles, candidates, foundAs), 0);
  EXPECT_EQ(foundAs, CString(u"はな"));
  ASSERT_EQ(articles.size(), 1u);
  EXPECT_TRUE(candidates.empty());  // the form's own, not the word's

  // Found as typed: one lookup, no form named.
  const int32_t before = books.lookups;
  EXPECT_EQ(LookupAsTyped(books, u"\\SD\\d", 0, u"はな", articles, candidates, foundAs), 0);
  EXPECT_EQ(books.lookups, before + 1);
  EXPECT_TRUE(foundAs.IsEmpty());

  // Nothing finds: the word's own lists stay, candidates included.
  book.words[u"xq"] = {{}, {{u"【xqz】", u"xqz"}}};
  books.SetCatalog(u"\\SD\\d", {book});
  EXPECT_EQ(LookupAsTyped(books, u"\\SD\\d", 0, u"xq", articles, candidates, foundAs), 0);
  EXPECT_TRUE(foundAs.IsEmpty());
  EXPECT_TRUE(articles.empty());
  EXPECT_EQ(candidates.size(), 1u);

  // A form whose run was stopped with nothing found: the tries end there,
  // and the stop is told; the word's own lists stay.
  book.words[u"ha na"] = {{}, {}};
  book.words[u"hana"] = {{}, {}, kLookupStopped};
  books.SetCatalog(u"\\SD\\d", {book});
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
