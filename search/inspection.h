// The inspection dumps of a book: -Q prints the pages of an index, -T
// tabulates the control codes of a text area. They find out how a book is
// built; nothing the application does goes through them.
#ifndef SEARCH_INSPECTION_H_
#define SEARCH_INSPECTION_H_

#include <cstdint>
#include <cstdio>

// Operand words behind each code 0x1F00..0x1FFF, -1 for a code the book's
// format doesn't know. Console answers of -T stay for the process.
extern signed char code_operands[256];

// -Q: every page of the index `identifier` (0xFF way in a multi-search),
// page after page, without following the tree.
void cdindexdump(int32_t identifier);
// -T: the control codes of area `identifier` with their first positions.
void cdtextscan(int32_t identifier);
// Writes a JIS string (Japanese mode) or the bytes as they stand (English).
void cdshowjis(FILE* stream, const char* text);
// Reads n bytes of key, shows them on standard output; gives the bytes,
// ended by a byte 0, in a static buffer.
char* cdshowkey(int n);

#endif  // SEARCH_INSPECTION_H_
