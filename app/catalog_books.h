// The books of a chosen folder that can be registered as dictionaries:
// one for each line of the folder's catalog listing whose book has a
// forward-search index and whose title isn't blank.
#ifndef APP_CATALOG_BOOKS_H_
#define APP_CATALOG_BOOKS_H_

#include "platform/wide_string.h"
#include "store/dictionary_list.h"

// Appends to `books` an entry (the title, `folder` as path, the line's
// number as book number) and to `titles` the same title, for each such
// book of the catalog of `folder` (a device name). Lines are numbered
// from 0, skipped ones included; a last piece with no line feed behind it
// is no line. The listing is read into 512 bytes, or into exactly the size
// the engine asks for when it needs more. A title is decoded from at most
// 511 bytes (a longer line is cut at a character boundary) and trimmed of
// blanks and line ends on the right. False when the folder gave no
// listing at all (no catalog, or one without titles).
bool ReadCatalogBooks(const CString& folder, DictionaryEntryArray& books, CStringArray& titles);

#endif  // APP_CATALOG_BOOKS_H_
