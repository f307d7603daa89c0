// The catalog text of a book folder, as engine_catalog writes it: the
// title of each book in catalog order, in the system multibyte code page,
// each followed by a line feed. Discovery joins its titles into one
// dictionary's name; adding a dictionary makes one book of each line.
#ifndef RESULTS_CATALOG_TEXT_H_
#define RESULTS_CATALOG_TEXT_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/wide_string.h"

// An engine call of engine_catalog's shape: lists the titles of the
// catalog under `drive` into `buffer` and returns the bytes the whole list
// needs with its NUL (a list that does not fit leaves the buffer empty).
using CatalogCall = int32_t (*)(const char* drive, char* buffer, int32_t size);

// The catalog text of the host folder `drive`, read into `buffer` with its
// size as capacity; when the engine asks for more the buffer grows to
// exactly that and the call is made once more (the grown buffer is kept
// for the caller's next folder). Empty when the folder has no readable
// catalog. The view points into `buffer`.
std::string_view ReadCatalogText(const std::string& drive, std::vector<char>& buffer,
                                 CatalogCall catalog);

// One title for each line of `text`, in order, so that an index is the
// line's book number: the line is copied into a work area of 512 bytes
// (a longer one is cut at a character boundary), decoded, and trimmed of
// blanks and line ends on the right; it may come out empty. A last piece
// with no line feed behind it is no line.
std::vector<CString> CatalogTitles(std::string_view text);

#endif  // RESULTS_CATALOG_TEXT_H_
