// UTF-16 as CString holds it: a character above U+FFFF is a pair of
// surrogates, the high one first. The one place that codes such pairs.
#ifndef PLATFORM_UTF16_UNITS_H_
#define PLATFORM_UTF16_UNITS_H_

#include <cstddef>
#include <string>
#include <string_view>

constexpr bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }
// True for a unit, or a value, that is half of a pair and no character.
constexpr bool IsSurrogate(char32_t value) { return value >= 0xD800 && value <= 0xDFFF; }

// The units of the character at units[at]: 2 for a whole pair, else 1 (a
// lone surrogate stands alone).
constexpr size_t CharacterUnits(std::u16string_view units, size_t at) {
  return IsHighSurrogate(units[at]) && at + 1 < units.size() && IsLowSurrogate(units[at + 1]) ? 2
                                                                                             : 1;
}

// The character that a whole pair codes.
constexpr char32_t CodePointOfPair(char16_t high, char16_t low) {
  return 0x10000 + ((static_cast<char32_t>(high) - 0xD800) << 10) + (low - 0xDC00);
}

// Appends `value` (at most U+10FFFF): one unit below U+10000, where a
// surrogate comes back as the unit it was, else a pair.
inline void AppendCodePoint(std::u16string& out, char32_t value) {
  if (value < 0x10000) {
    out += static_cast<char16_t>(value);
    return;
  }
  value -= 0x10000;
  out += static_cast<char16_t>(0xD800 + (value >> 10));
  out += static_cast<char16_t>(0xDC00 + (value & 0x3FF));
}

#endif  // PLATFORM_UTF16_UNITS_H_
