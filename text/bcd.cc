// Numbers of body text operands in binary-coded decimal: each word holds
// four decimal digits, one a nibble, the most significant nibble first.
// Nibbles above 9 are not checked; they weigh as their value.
#include <cstdint>

#include "engine/file_access.h"
#include "text/decoder.h"
#include "text/text_record.h"

namespace {

uint32_t bcd_word(uint32_t word) {
  return ((word >> 12) & 0xF) * 1000 + ((word >> 8) & 0xF) * 100 + ((word >> 4) & 0xF) * 10 +
         (word & 0xF);
}

}  // namespace

int32_t cdbcd8() {
  uint32_t high = bcd_word(cdgetword());
  return static_cast<int32_t>(high * 10000 + bcd_word(cdgetword()));
}

int32_t cdbcdpos() {
  uint32_t page = static_cast<uint32_t>(cdbcd8());
  uint32_t offset = bcd_word(cdgetword());
  // Unsigned arithmetic: a page of nine-like nibbles wraps instead of overflowing.
  return static_cast<int32_t>((page - 1) * 2048u + offset);
}
