// Lays a book's content out in its logical address space: body text, menu,
// notice, head lists and indexes, font.
#ifndef TOOLS_BOOK_BUILDER_H_
#define TOOLS_BOOK_BUILDER_H_

#include "tools/book_content.h"
#include "tools/book_writer.h"

// Puts `content` into `book`'s text, areas in this order:
//   0x00 body text: one record an entry, its head line, its lines, 0x1F03
//   0x01 menu and 0x02 notice, when the content has them
//   for each index with keys, its head list and then the index:
//     0x04/0x90 kana (folded), 0x05/0x91 head words, 0x08/0x92 alphabet,
//     0x06/0x70, 0x07/0x71, 0x09/0x72 the same keys reversed
//   0xF1 the 16 x 16 font, when the content has glyphs
// A head list holds one head line (ended by 0x1F0A) for each index entry,
// in index order and ended by 0x1F03, so that the lines a search lists
// behind a missed key are the entries that follow it. Entries with equal
// keys keep the content's order. Throws SourceError for a link to a head
// word the book lacks, a reading that is not kana, an alphabet key that is
// not alphabet, or a book with no entries.
void build_book(const BookContent& content, Book& book);

#endif  // TOOLS_BOOK_BUILDER_H_
