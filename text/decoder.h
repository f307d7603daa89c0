// The body text decoder: every article, head line, menu and list a reader
// sees is written by cdtext, as Shift-JIS text with a fixed set of marks.
#ifndef TEXT_DECODER_H_
#define TEXT_DECODER_H_

#include <cstddef>
#include <cstdint>

#include "engine/catalog.h"
#include "engine/engine_state.h"

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
inline size_t cdputchar(int32_t code, char* place, size_t room);
// Writes the terminal colour sequence of the attribute bits (TA_*) to output
// when they differ from the ones last written.
void cdattr(uint32_t attribute);

// --- cdputchar's parts (putchar.cc), inline below: every character of a
// record comes through it.
constexpr int32_t kFirstJis = 0x2121;
constexpr int32_t kLastJis = 0x7E7E;
// Row 0x21 (symbols) and row 0x23 (digits, letters) hold every full-width
// form of an ASCII character.
constexpr int32_t kHalfwidthAsciiRows = 3;
struct HalfwidthAscii {
  uint8_t ascii[kHalfwidthAsciiRows][256];  // by row - 0x21 and column; 0 for none
};
// ascii_to_jis turned round, for every character of a half-width run.
extern const HalfwidthAscii halfwidth_ascii;
// The ASCII character whose full-width form is `code`, or 0.
inline uint32_t halfwidth_ascii_of(int32_t code) {
  const int32_t row = (code >> 8) - 0x21;
  if (row < 0 || row >= kHalfwidthAsciiRows) return 0;
  return halfwidth_ascii.ascii[row][code & 0xFF];
}
// Whether characters go out in their half-width forms: a half-width run,
// and not the verbose form, which keeps every character as the book has it.
inline bool half_width_out() {
  return (engine.text_attribute & TA_HALF) && !(engine.flags & DF_VERBOSE);
}
// The paths of nearly every character: for a JIS X 0208 code (both bytes
// 0x21 to 0x7E) its Shift-JIS form (two bytes, neither of them 0, so above
// 0xFF) or, when `half`, the ASCII character whose full-width form it is;
// 0 for any other code, which any_putchar takes.
inline int32_t plain_bytes(int32_t code, bool half) {
  const bool column_in_set = static_cast<uint32_t>((code & 0xFF) - 0x21) < 0x5E;
  if (code < kFirstJis || code > kLastJis || !column_in_set) return 0;
  return half ? static_cast<int32_t>(halfwidth_ascii_of(code)) : jis_to_sjis(code);
}
// cdputchar in every case.
size_t any_putchar(int32_t code, char* place, size_t room);

inline size_t cdputchar(int32_t code, char* place, size_t room) {
  if (room > 2) {
    if (const int32_t bytes = plain_bytes(code, half_width_out())) {
      if (bytes > 0xFF) {
        place[0] = static_cast<char>(bytes >> 8);
        place[1] = static_cast<char>(bytes);
        place[2] = '\0';
        return 2;
      }
      place[0] = static_cast<char>(bytes);
      place[1] = '\0';
      return 1;
    }
  }
  return any_putchar(code, place, room);
}

#endif  // TEXT_DECODER_H_
