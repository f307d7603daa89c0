// Character classes that do not depend on the process locale: the verdicts
// the device's GetStringTypeExW and iswctype give for the characters of
// book text, from fixed tables.
#ifndef PLATFORM_CHAR_CLASS_H_
#define PLATFORM_CHAR_CLASS_H_

#include <cstdint>

constexpr uint32_t LOCALE_SYSTEM_DEFAULT = 0x0800;
constexpr uint32_t CT_CTYPE3 = 4;
constexpr uint16_t C3_HALFWIDTH = 0x0040;
constexpr uint16_t C3_FULLWIDTH = 0x0080;

// Half-width: ASCII and Latin-1 (U+0000-U+00FF), the half-width forms
// U+FF61-U+FFDC (katakana and its marks, hangul) and U+FFE8-U+FFEE.
// Full-width: the full-width forms U+FF01-U+FF60 and U+FFE0-U+FFE6, kana,
// CJK ideographs and symbols, hangul syllables. Everything else is neither.
bool IsHalfWidth(char16_t ch);

// Stands in for GetStringTypeExW with CT_CTYPE3: fills types[i] with the
// width bits of source[i] (count -1: up to the NUL). Any locale is taken as
// the system's. False for another information type or a null argument.
bool GetStringTypeExW(uint32_t locale, uint32_t infoType, const char16_t* source, int count,
                      uint16_t* types);

// The class masks of the runtime's iswctype; the letter class is a bit of
// its own joined with both cases, so WCLASS_ALPHA finds every letter.
constexpr uint16_t WCLASS_UPPER = 0x0001;
constexpr uint16_t WCLASS_LOWER = 0x0002;
constexpr uint16_t WCLASS_DIGIT = 0x0004;
constexpr uint16_t WCLASS_ALPHA = 0x0103;

// Nonzero when `ch` has a class of `mask`, as iswctype answers. Digits are
// 0-9 and the full-width digits. Letters are those of the Latin, Greek and
// Cyrillic scripts (IPA included, full-width Latin too), kana with the
// prolonged sound mark and the iteration marks, CJK ideographs, hangul and
// half-width katakana; the middle dots U+30FB and U+FF65 are no letters.
int IsWideCharClass(char16_t ch, uint16_t mask);

#endif  // PLATFORM_CHAR_CLASS_H_
