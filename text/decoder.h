// The body text decoder: every article, head line, menu and list a reader
// sees is written by cdtext, as Shift-JIS text with a fixed set of marks.
#ifndef TEXT_DECODER_H_
#define TEXT_DECODER_H_

#include <cstdint>

// Decodes one record from the current position of the book to output.
// limit 0: one whole record; 1: one line; n: n lines; negative: as 0 with
// that much of the line allowance gone.
void cdtext(int32_t limit);
// Reads three BCD words (page high, page low, offset) and gives a position.
int32_t cdbcdpos();

#endif  // TEXT_DECODER_H_
