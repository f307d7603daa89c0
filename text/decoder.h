// The body text decoder: every article, head line, menu and list a reader
// sees is written by cdtext, as Shift-JIS text with a fixed set of marks.
#ifndef TEXT_DECODER_H_
#define TEXT_DECODER_H_

#include <cstddef>
#include <cstdint>

// Decodes one record from the current position of the book to output.
// limit 0: one whole record; 1: one line; n: n lines; negative: as 0 with
// that much of the line allowance gone.
void cdtext(int32_t limit);
// Reads three BCD words (page high, page low, offset) and gives a position.
int32_t cdbcdpos();
// Writes the text of one 16-bit code at `place` as a NUL-terminated
// Shift-JIS string of at most `room` bytes with its NUL: a JIS X 0208
// character (half width in a TA_HALF run), an external character's defined
// text, or "[%04X]". Code 0 writes nothing, not even the NUL. Gives the
// bytes written before the NUL.
size_t cdputchar(int32_t code, char* place, size_t room);
// Writes the terminal colour sequence of the attribute bits (TA_*) to output
// when they differ from the ones last written.
void cdattr(uint32_t attribute);

#endif  // TEXT_DECODER_H_
