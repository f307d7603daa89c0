// Finding dictionaries in book folders, through the books interface.
//
// Discovery: the built-in dictionaries, found anew at each start in the
// two fixed book folders of the card, "\SD\epwing\plus" and
// "\SD\epwing\wadai", in that order. A folder whose catalog can be read
// becomes one entry with book number 0, whatever number of books the
// catalog holds; its title is the books' titles joined by "/", or the
// folder's name when the catalog gave no title. Nothing else on the card
// is looked at.
//
// Adding a dictionary: the books of a folder the user chose that can be
// registered, one for each book of the catalog that has a forward-search
// index and a title that isn't blank.
#ifndef STORE_BOOK_DISCOVERY_H_
#define STORE_BOOK_DISCOVERY_H_

#include <cstdint>

#include "books/books.h"
#include "platform/wide_string.h"
#include "store/dictionary_list.h"

// Appends the built-in dictionaries to `list` (empty at start) and sets
// `builtinCount` to their number.
void DiscoverBooks(Books& books, DictionaryEntryArray& list, int32_t& builtinCount);

// Appends to `entries` an entry (the title, `folder` as path, the book's
// number in the catalog as book number) and to `titles` the same title,
// for each book of the catalog of `folder` (a device name) that can be
// registered. False when the folder gave no catalog at all.
bool ReadCatalogBooks(Books& books, const CString& folder, DictionaryEntryArray& entries,
                      CStringArray& titles);

#endif  // STORE_BOOK_DISCOVERY_H_
