// One 16-bit code of body text as Shift-JIS bytes. Codes outside JIS X 0208
// (external characters, and control codes the decoder does not know) take
// their defined text or the token "[%04X]", which the application turns into
// Braille by its own table. In a half-width run characters take their
// half-width form where one exists.
#include <cstdio>
#include <cstring>

#include "engine/catalog.h"
#include "engine/engine_state.h"
#include "text/ascii_to_jis.h"
#include "text/decoder.h"
#include "text/gaiji.h"
#include "text/halfwidth_tables.h"

namespace {

constexpr int32_t kFirstJis = 0x2121;
constexpr int32_t kLastJis = 0x7E7E;

// The ASCII character whose full-width form is `code`, or 0.
uint32_t ascii_of(int32_t code) {
  for (int c = 0x20; c <= 0x7E; ++c) {
    if (static_cast<int32_t>(ascii_to_jis[c] & 0x7FFF) == code) return static_cast<uint32_t>(c);
  }
  return 0;
}

bool is_kana(int32_t code) {
  int32_t row = code >> 8;
  int32_t column = code & 0xFF;
  return (row == 0x24 || row == 0x25) && column >= 0x21 && column < 0x21 + kHalfwidthKanaCount;
}

// The bytes of `code` in a half-width run: `full` (its Shift-JIS code)
// unless a half-width form exists.
uint32_t halfwidth_form(int32_t code, uint32_t full) {
  if (uint32_t ascii = ascii_of(code)) return ascii;
  if (engine.flags & DF_KEEP_FULL_KANA) return full;
  if (is_kana(code)) return halfwidth_kana[(code & 0xFF) - 0x21];
  if (uint32_t mark = halfwidth_punctuation(code)) return mark;
  return full;
}

// Copies what fits of `text` with a NUL.
void copy_cut(char* place, const char* text, size_t room) {
  size_t length = strlen(text);
  if (length >= room) length = room - 1;
  memcpy(place, text, length);
  place[length] = '\0';
}

}  // namespace

void cdputchar(int32_t code, char* place, size_t room) {
  if (code == 0 || room == 0) return;
  if (code < kFirstJis || code > kLastJis) {
    if (const char* defined = cdgaijifind(code)) {
      copy_cut(place, defined, room);
    } else {
      snprintf(place, room, "[%04X]", static_cast<unsigned>(code));
    }
    return;
  }
  uint32_t bytes = static_cast<uint32_t>(jis_to_sjis(code)) & 0xFFFF;
  if ((engine.text_attribute & TA_HALF) && !(engine.flags & DF_VERBOSE)) {
    bytes = halfwidth_form(code, bytes);
  }
  char text[3] = {};
  if (bytes > 0xFF) {
    text[0] = static_cast<char>(bytes >> 8);
    text[1] = static_cast<char>(bytes & 0xFF);
  } else {
    text[0] = static_cast<char>(bytes);
  }
  copy_cut(place, text, room);
}
