#include "platform/utf8_text.h"

#include "platform/utf16_units.h"

namespace {

constexpr char32_t kReplacement = 0xFFFD;

void AppendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

// The continuation bytes that `lead` announces; -1 for a byte that begins
// no character.
int FollowCount(unsigned char lead) {
  if (lead < 0x80) return 0;
  if ((lead >> 5) == 0x6) return 1;
  if ((lead >> 4) == 0xE) return 2;
  if ((lead >> 3) == 0x1E) return 3;
  return -1;
}

// The character at bytes[at]: its length, with its value in `cp`; 0 when
// the bytes there are no UTF-8.
size_t DecodeAt(std::string_view bytes, size_t at, char32_t& cp) {
  const unsigned char lead = static_cast<unsigned char>(bytes[at]);
  const int follow = FollowCount(lead);
  if (follow < 0 || at + follow >= bytes.size()) return 0;
  static const unsigned char kLeadBits[] = {0x7F, 0x1F, 0x0F, 0x07};
  cp = lead & kLeadBits[follow];
  for (int k = 1; k <= follow; ++k) {
    const unsigned char next = static_cast<unsigned char>(bytes[at + k]);
    if (!IsContinuation(next)) return 0;
    cp = (cp << 6) | (next & 0x3F);
  }
  // Overlong forms, surrogates and values past U+10FFFF are no UTF-8.
  static const char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
  if (cp < kLeast[follow] || IsSurrogate(cp) || cp > 0x10FFFF) return 0;
  return static_cast<size_t>(follow) + 1;
}

}  // namespace

std::string ToUtf8(std::u16string_view units) {
  std::string out;
  for (size_t i = 0; i < units.size();) {
    const size_t width = CharacterUnits(units, i);
    AppendUtf8(out, width == 2                ? CodePointOfPair(units[i], units[i + 1])
                    : IsSurrogate(units[i]) ? kReplacement
                                            : units[i]);
    i += width;
  }
  return out;
}

std::string ToUtf8(const CString& text) { return ToUtf8(std::u16string_view(text.Units())); }

CString FromUtf8(std::string_view bytes) {
  std::u16string out;
  size_t i = 0;
  while (i < bytes.size()) {
    char32_t cp = 0;
    const size_t length = DecodeAt(bytes, i, cp);
    AppendCodePoint(out, length > 0 ? cp : kReplacement);
    i += length > 0 ? length : 1;
  }
  return CString(std::move(out));
}

bool IsUtf8(std::string_view bytes) {
  for (size_t i = 0; i < bytes.size();) {
    char32_t cp;
    const size_t length = DecodeAt(bytes, i, cp);
    if (length == 0) return false;
    i += length;
  }
  return true;
}

size_t Utf8WholeLength(std::string_view bytes) {
  size_t lead = bytes.size();
  while (lead > 0 && bytes.size() - lead < 3 &&
         IsContinuation(static_cast<unsigned char>(bytes[lead - 1])))
    --lead;
  if (lead == 0) return bytes.size();
  const int follow = FollowCount(static_cast<unsigned char>(bytes[lead - 1]));
  return follow > 0 && bytes.size() - lead < static_cast<size_t>(follow) ? lead - 1
                                                                          : bytes.size();
}
