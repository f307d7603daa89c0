#include "platform/char_class.h"

#include <string>

namespace {

constexpr uint16_t kLetterBit = 0x0100;

struct CharRange {
  char16_t first;   // first unit of the range
  char16_t last;    // last unit, inclusive
  uint16_t classes; // the iswctype bits of every unit in it
};

// Sorted and disjoint, so a lookup may stop at the first range behind `ch`.
constexpr CharRange kClassRanges[] = {
    {u'0', u'9', WCLASS_DIGIT},
    {u'A', u'Z', WCLASS_UPPER | kLetterBit},
    {u'a', u'z', WCLASS_LOWER | kLetterBit},
    {0x00AA, 0x00AA, kLetterBit},
    {0x00B5, 0x00B5, kLetterBit},
    {0x00BA, 0x00BA, kLetterBit},
    {0x00C0, 0x00D6, WCLASS_UPPER | kLetterBit},
    {0x00D8, 0x00DE, WCLASS_UPPER | kLetterBit},
    {0x00DF, 0x00F6, WCLASS_LOWER | kLetterBit},
    {0x00F8, 0x00FF, WCLASS_LOWER | kLetterBit},
    {0x0100, 0x02AF, kLetterBit},  // Latin extended, IPA
    {0x0386, 0x0386, kLetterBit},
    {0x0388, 0x038A, kLetterBit},
    {0x038C, 0x038C, kLetterBit},
    {0x038E, 0x0390, kLetterBit},
    {0x0391, 0x03A1, WCLASS_UPPER | kLetterBit},
    {0x03A3, 0x03A9, WCLASS_UPPER | kLetterBit},
    {0x03AA, 0x03B0, kLetterBit},
    {0x03B1, 0x03C9, WCLASS_LOWER | kLetterBit},
    {0x03CA, 0x03CE, kLetterBit},
    {0x0400, 0x042F, WCLASS_UPPER | kLetterBit},
    {0x0430, 0x045F, WCLASS_LOWER | kLetterBit},
    {0x0460, 0x0481, kLetterBit},
    {0x048A, 0x052F, kLetterBit},
    {0x3005, 0x3006, kLetterBit},  // 々 〆
    {0x3041, 0x3096, kLetterBit},  // hiragana
    {0x309D, 0x309F, kLetterBit},
    {0x30A1, 0x30FA, kLetterBit},  // katakana
    {0x30FC, 0x30FF, kLetterBit},  // ー and the iteration marks
    {0x31F0, 0x31FF, kLetterBit},
    {0x3400, 0x4DBF, kLetterBit},  // CJK ideographs
    {0x4E00, 0x9FFF, kLetterBit},
    {0xAC00, 0xD7A3, kLetterBit},  // hangul syllables
    {0xF900, 0xFAFF, kLetterBit},
    {0xFF10, 0xFF19, WCLASS_DIGIT},
    {0xFF21, 0xFF3A, WCLASS_UPPER | kLetterBit},
    {0xFF41, 0xFF5A, WCLASS_LOWER | kLetterBit},
    {0xFF66, 0xFF9F, kLetterBit},  // half-width katakana
    {0xFFA0, 0xFFBE, kLetterBit},  // half-width hangul
    {0xFFC2, 0xFFC7, kLetterBit},
    {0xFFCA, 0xFFCF, kLetterBit},
    {0xFFD2, 0xFFD7, kLetterBit},
    {0xFFDA, 0xFFDC, kLetterBit},
};

bool IsFullWidth(char16_t ch) {
  return (ch >= 0x1100 && ch <= 0x115F) || (ch >= 0x2E80 && ch <= 0x303E) ||
         (ch >= 0x3041 && ch <= 0x33FF) || (ch >= 0x3400 && ch <= 0x4DBF) ||
         (ch >= 0x4E00 && ch <= 0x9FFF) || (ch >= 0xA000 && ch <= 0xA4CF) ||
         (ch >= 0xAC00 && ch <= 0xD7A3) || (ch >= 0xF900 && ch <= 0xFAFF) ||
         (ch >= 0xFE30 && ch <= 0xFE4F) || (ch >= 0xFF01 && ch <= 0xFF60) ||
         (ch >= 0xFFE0 && ch <= 0xFFE6);
}

}  // namespace

bool IsHalfWidth(char16_t ch) {
  return ch <= 0x00FF || (ch >= 0xFF61 && ch <= 0xFFDC) || (ch >= 0xFFE8 && ch <= 0xFFEE);
}

bool GetStringTypeExW(uint32_t /*locale*/, uint32_t infoType, const char16_t* source, int count,
                      uint16_t* types) {
  if (infoType != CT_CTYPE3 || source == nullptr || types == nullptr || count < -1) return false;
  if (count == -1) count = static_cast<int>(std::char_traits<char16_t>::length(source)) + 1;
  for (int i = 0; i < count; ++i) {
    types[i] = IsHalfWidth(source[i]) ? C3_HALFWIDTH : IsFullWidth(source[i]) ? C3_FULLWIDTH : 0;
  }
  return true;
}

int IsWideCharClass(char16_t ch, uint16_t mask) {
  for (const CharRange& range : kClassRanges) {
    if (ch < range.first) break;
    if (ch <= range.last) return range.classes & mask;
  }
  return 0;
}
