// Books: all the application asks of the dictionaries on the card, behind
// one small interface, as a program puts its disk behind one. The reader's
// real books run the engine (results/engine_books.h); the tests' fake
// (testing/fake_books.h) answers from tables in memory, so a screen can be
// tested with no book written to disk.
//
// This folder sits below store/ (discovery, adding a dictionary) and
// results/ (the lookup), which both ask books, and above platform/.
#ifndef BOOKS_BOOKS_H_
#define BOOKS_BOOKS_H_

#include <cstdint>
#include <vector>

#include "books/result_item.h"
#include "platform/wide_string.h"

// Lookup's result when the folder holds no catalog, nothing looked up.
constexpr int32_t kLookupNoBook = -1;
// Lookup's result when the run was stopped before its end, out of time,
// at the work file's limit, or failing: the lists hold what it wrote until
// then, an article it was writing marked as cut.
constexpr int32_t kLookupStopped = 1;

class Books {
 public:
  virtual ~Books() = default;

  // One title for each book of the catalog of `folder` (a device name), in
  // catalog order, so that an index is the book's number; a title may be
  // empty. False, with `titles` empty, when the folder has no readable
  // catalog.
  virtual bool CatalogTitles(const CString& folder, std::vector<CString>& titles) = 0;

  // Whether book `book` of the catalog of `folder` has a forward-search
  // index, which a dictionary needs.
  virtual bool HasForwardIndex(const CString& folder, int32_t book) = 0;

  // Looks `word` up in book `book` of `folder`: the word is always a
  // search, whatever it begins with. Empties `articles` and `candidates`
  // first, then fills them in the order of the book. Returns kLookupNoBook
  // when the folder holds no catalog, kLookupStopped, or 0 whatever was
  // found.
  virtual int32_t Lookup(const CString& folder, int32_t book, const CString& word,
                         ResultItemArray& articles, ResultItemArray& candidates) = 0;
};

#endif  // BOOKS_BOOKS_H_
