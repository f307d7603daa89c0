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
// JIS X 0208 code to a two-byte Shift-JIS code (first byte in bits 8..15);
// code 0 gives two blanks, a code outside the set "??". Inline: the decoder
// converts every character it writes.
inline int32_t jis_to_sjis(int32_t code) {
  if (code == 0) return 0x2020;
  if (code < 0x2121 || code > 0x7E7E) return 0x3F3F;
  const int high = code >> 8;
  const int low = code & 0xFF;
  int first;
  int second;
  if (high & 1) {
    first = (high + 1) / 2 + 0x70;
    second = low + 0x1F;
  } else {
    first = high / 2 + 0x70;
    second = low + 0x7D;
  }
  if (first >= 0xA0) first += 0x40;
  if (second >= 0x7F) second += 1;
  return (first & 0xFF) << 8 | (second & 0xFF);
}

#endif  // ENGINE_CATALOG_H_
