// Books for the tests, answered from tables in memory: no book on disk and
// no engine run. A folder is known when it has a catalog; each book of it
// has a title, a forward index or not, and the articles and candidates a
// word finds. Every call is counted, so that a test can see what the
// application asked.
#ifndef TESTING_FAKE_BOOKS_H_
#define TESTING_FAKE_BOOKS_H_

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "books/books.h"

// What a word finds in a fake book.
struct FakeHits {
  ResultItemArray articles;    // the articles, in book order
  ResultItemArray candidates;  // the candidates behind them
  int32_t result = 0;          // what Lookup returns: 0 or kLookupStopped
};

// One book of a fake catalog.
struct FakeBook {
  CString title;                       // its catalog title; may be empty
  bool forwardIndex = true;            // whether it can become a dictionary
  std::map<CString, FakeHits> words = {};  // what each word finds; others find nothing
};

class FakeBooks : public Books {
 public:
  // The catalog of `folder` (a device name), replaced.
  void SetCatalog(const CString& folder, std::vector<FakeBook> catalog) {
    folders_[folder] = std::move(catalog);
  }
  // Forgets `folder`, as if it had left the card.
  void RemoveFolder(const CString& folder) { folders_.erase(folder); }

  bool CatalogTitles(const CString& folder, std::vector<CString>& titles) override {
    titles.clear();
    const auto found = folders_.find(folder);
    if (found == folders_.end() || found->second.empty()) return false;
    for (const FakeBook& book : found->second) titles.push_back(book.title);
    return true;
  }
  bool HasForwardIndex(const CString& folder, int32_t book) override {
    const FakeBook* entry = Find(folder, book);
    return entry != nullptr && entry->forwardIndex;
  }
  int32_t Lookup(const CString& folder, int32_t book, const CString& word,
                 ResultItemArray& articles, ResultItemArray& candidates) override {
    ++lookups;
    articles.clear();
    candidates.clear();
    if (folders_.find(folder) == folders_.end()) return kLookupNoBook;
    const FakeBook* entry = Find(folder, book);
    if (entry == nullptr) return 0;
    const auto hits = entry->words.find(word);
    if (hits == entry->words.end()) return 0;
    articles = hits->second.articles;
    candidates = hits->second.candidates;
    return hits->second.result;
  }

  int32_t lookups = 0;  // Lookup calls so far

 private:
  const FakeBook* Find(const CString& folder, int32_t book) const {
    const auto found = folders_.find(folder);
    if (found == folders_.end() || book < 0 || book >= static_cast<int32_t>(found->second.size()))
      return nullptr;
    return &found->second[static_cast<size_t>(book)];
  }

  std::map<CString, std::vector<FakeBook>> folders_;  // each known folder's catalog
};

#endif  // TESTING_FAKE_BOOKS_H_
