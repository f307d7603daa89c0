// One 16-bit code of body text as Shift-JIS bytes. Codes outside JIS X 0208
// (external characters, and control codes the decoder does not know) take
// their defined text or the token "[%04X]", which the application turns into
// Braille by its own table. In a half-width run characters take their
// half-width form where one exists.
#include <algorithm>
#include <cstdio>
#include <cstring>

#include "engine/catalog.h"
#include "engine/engine_state.h"
#include "text/ascii_to_jis.h"
#include "text/decoder.h"
#include "text/gaiji.h"
#include "text/halfwidth_tables.h"

// Downwards, so that the lowest character wins where two share a form.
const HalfwidthAscii halfwidth_ascii = [] {
  HalfwidthAscii table{};
  for (int c = 0x7E; c >= 0x20; --c) {
    const int32_t full = static_cast<int32_t>(ascii_to_jis[c] & 0x7FFF);
    const int32_t row = (full >> 8) - 0x21;
    if (row >= 0 && row < kHalfwidthAsciiRows) table.ascii[row][full & 0xFF] = static_cast<uint8_t>(c);
  }
  return table;
}();

namespace {

bool is_kana(int32_t code) {
  int32_t row = code >> 8;
  int32_t column = code & 0xFF;
  return (row == 0x24 || row == 0x25) && column >= 0x21 && column < 0x21 + kHalfwidthKanaCount;
}

// The bytes of `code` in a half-width run: `full` (its Shift-JIS code)
// unless a half-width form exists.
uint32_t halfwidth_form(int32_t code, uint32_t full) {
  if (uint32_t ascii = halfwidth_ascii_of(code)) return ascii;
  if (engine.flags & DF_KEEP_FULL_KANA) return full;
  if (is_kana(code)) return halfwidth_kana[(code & 0xFF) - 0x21];
  if (uint32_t mark = halfwidth_punctuation(code)) return mark;
  return full;
}

// Copies what fits of `text` (`length` bytes) with a NUL; gives the bytes
// copied.
size_t copy_cut(char* place, const char* text, size_t length, size_t room) {
  if (length >= room) length = room - 1;
  memcpy(place, text, length);
  place[length] = '\0';
  return length;
}

}  // namespace

// cdputchar in every case.
size_t any_putchar(int32_t code, char* place, size_t room) {
  if (code == 0 || room == 0) return 0;
  if (code < kFirstJis || code > kLastJis) {
    if (const char* defined = cdgaijifind(code)) return copy_cut(place, defined, strlen(defined), room);
    const int wanted = snprintf(place, room, "[%04X]", static_cast<unsigned>(code));
    return std::min(static_cast<size_t>(wanted), room - 1);
  }
  uint32_t bytes = static_cast<uint32_t>(jis_to_sjis(code)) & 0xFFFF;
  if (half_width_out()) bytes = halfwidth_form(code, bytes);
  const char high = static_cast<char>(bytes >> 8);
  const char low = static_cast<char>(bytes & 0xFF);
  size_t length = 0;
  if (bytes > 0xFF && room > 1) place[length++] = high;
  // A byte 0 ends the text there, as a NUL does.
  if (low != '\0' && length + 1 < room) place[length++] = low;
  place[length] = '\0';
  return length;
}
