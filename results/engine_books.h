// The reader's real books: the Books interface over the engine. Only this
// part of the application calls the engine; it owns the work file
// "\windows\epwingwork.dat", into which the engine writes a lookup, and
// its format (results/work_file_parser.h, beside it). The lists keep the
// engine's text as it stands; the display filters act only when it is
// shown.
#ifndef RESULTS_ENGINE_BOOKS_H_
#define RESULTS_ENGINE_BOOKS_H_

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "books/books.h"
#include "platform/wide_string.h"
#include "results/bounded_run.h"
#include "results/catalog_text.h"
#include "results/run_on_entries.h"

// The work file's device name. It is deleted before each run, written by
// the engine and left behind until the next lookup.
extern const char16_t kWorkFileName[];

// The limits of the engine's run for a lookup: a few seconds, and a work
// file of a few megabytes.
extern const RunLimits kLookupLimits;

class EngineBooks : public Books {
 public:
  // A lookup runs under `limits` (see RunBounded). Catalogs are read
  // through `catalog`, engine_catalog unless a test records the calls.
  explicit EngineBooks(const RunLimits& limits = kLookupLimits, CatalogCall catalog = nullptr);

  // The catalog text goes into one buffer of 512 bytes, which grows when
  // a catalog needs more and then serves the next folder too. A title is
  // decoded from at most 511 bytes (see CatalogTitles).
  bool CatalogTitles(const CString& folder, std::vector<CString>& titles) override;
  bool HasForwardIndex(const CString& folder, int32_t book) override;
  // Proves that the folder still holds a catalog, then runs the engine
  // into the work file apart, stopped at the limits, and parses what it
  // wrote. The engine gets host paths and the word in the system code
  // page: never an option of the engine, its prompt loop, nor a position
  // in the book. In a book whose entries run on (results/run_on_entries.h,
  // looked at before the book's first lookup) the engine also ends an
  // article at the next head word's start.
  int32_t Lookup(const CString& folder, int32_t book, const CString& word,
                 ResultItemArray& articles, ResultItemArray& candidates) override;

 private:
  RunLimits limits_;              // the bounds of a lookup's run
  CatalogCall catalog_;           // engine_catalog, or a test's stand-in
  std::vector<char> catalogText_; // the catalog buffer, kept at its largest size
  std::map<std::pair<CString, int32_t>, EntryEnds> entryEnds_;  // each looked-at book's verdict
};

#endif  // RESULTS_ENGINE_BOOKS_H_
