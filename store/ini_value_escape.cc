#include "store/ini_value_escape.h"

#include <string>
#include <string_view>

#include "platform/code_page.h"
#include "platform/utf16_units.h"

namespace {

constexpr char32_t kMaxCodePoint = 0x10FFFF;
constexpr int kMaxHexDigits = 6;

bool IsControl(char16_t unit) { return unit < 0x20 || unit == 0x7F; }

// True when `units` come back unchanged through the code page.
bool RoundTrips(std::u16string_view units) {
  return DecodeMultiByte(EncodeMultiByte(units)) == units;
}

// True when some unit of `units` must be written as a reference.
bool NeedsEscape(std::u16string_view units) {
  for (size_t i = 0; i < units.size(); ++i) {
    if (IsControl(units[i])) return true;
    if (units[i] == u'&' && i + 1 < units.size() && units[i + 1] == u'#') return true;
  }
  return !RoundTrips(units);
}

void AppendReference(std::u16string& out, char32_t codePoint) {
  static const char16_t kHex[] = u"0123456789ABCDEF";
  std::u16string digits;
  do {
    digits.insert(digits.begin(), kHex[codePoint & 0xF]);
    codePoint >>= 4;
  } while (codePoint != 0);
  out += u"&#x";
  out += digits;
  out += u';';
}

int HexValue(char16_t unit) {
  if (unit >= u'0' && unit <= u'9') return unit - u'0';
  if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
  if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
  return -1;
}

}  // namespace

CString EscapeIniValue(const CString& value) {
  const std::u16string& units = value.Units();
  if (!NeedsEscape(units)) return value;
  std::u16string out;
  for (size_t i = 0; i < units.size();) {
    const size_t width = CharacterUnits(units, i);
    std::u16string_view character(units.data() + i, width);
    bool escape = IsControl(units[i]) ||
                  (units[i] == u'&' && i + 1 < units.size() && units[i + 1] == u'#') ||
                  !RoundTrips(character);
    if (!escape) {
      out += character;
    } else if (width == 2) {
      AppendReference(out, CodePointOfPair(units[i], units[i + 1]));
    } else {
      AppendReference(out, units[i]);
    }
    i += width;
  }
  return CString(std::move(out));
}

CString UnescapeIniValue(const CString& text) {
  const std::u16string& units = text.Units();
  if (units.find(u"&#x") == std::u16string::npos) return text;
  std::u16string out;
  for (size_t i = 0; i < units.size();) {
    if (units.compare(i, 3, u"&#x") == 0) {
      size_t end = i + 3;
      char32_t codePoint = 0;
      while (end < units.size() && end - (i + 3) < kMaxHexDigits && HexValue(units[end]) >= 0)
        codePoint = codePoint * 16 + static_cast<char32_t>(HexValue(units[end++]));
      if (end > i + 3 && end < units.size() && units[end] == u';' && codePoint <= kMaxCodePoint) {
        AppendCodePoint(out, codePoint);
        i = end + 1;
        continue;
      }
    }
    out += units[i++];
  }
  return CString(std::move(out));
}
