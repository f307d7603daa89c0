// Catalogs: which book type a tree holds, the titles it lists, and the path
// of a book's text file.
#ifndef ENGINE_CATALOG_H_
#define ENGINE_CATALOG_H_

#include <cstdint>
#include <cstdio>

// With -1 lists the catalog (to output and the capture) and gives null,
// except for the encyclopedia ("start"). With a book number gives the path
// of that book's text file in engine.catalog_title, or null.
const char* open_catalog(int32_t book);
// The text file of the selected book, the single file, or the file table's
// first file; does not set current_file.
FILE* open_text();
// JIS X 0208 code to a two-byte Shift-JIS code (first byte in bits 8..15).
int32_t jis_to_sjis(int32_t code);

#endif  // ENGINE_CATALOG_H_
