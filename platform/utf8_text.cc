#include "platform/utf8_text.h"

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

void AppendUtf16(std::u16string& out, char32_t cp) {
  if (cp < 0x10000) {
    out += static_cast<char16_t>(cp);
  } else {
    cp -= 0x10000;
    out += static_cast<char16_t>(0xD800 + (cp >> 10));
    out += static_cast<char16_t>(0xDC00 + (cp & 0x3FF));
  }
}

}  // namespace

std::string ToUtf8(const CString& text) {
  const std::u16string& units = text.Units();
  std::string out;
  for (size_t i = 0; i < units.size(); ++i) {
    char32_t cp = units[i];
    if (cp >= 0xD800 && cp < 0xDC00 && i + 1 < units.size() && units[i + 1] >= 0xDC00 &&
        units[i + 1] < 0xE000) {
      cp = 0x10000 + ((cp - 0xD800) << 10) + (units[i + 1] - 0xDC00);
      ++i;
    } else if (cp >= 0xD800 && cp < 0xE000) {
      cp = kReplacement;
    }
    AppendUtf8(out, cp);
  }
  return out;
}

CString FromUtf8(std::string_view bytes) {
  std::u16string out;
  size_t i = 0;
  while (i < bytes.size()) {
    unsigned char lead = static_cast<unsigned char>(bytes[i]);
    int follow = lead < 0x80 ? 0 : (lead >> 5) == 0x6 ? 1 : (lead >> 4) == 0xE ? 2
                                                          : (lead >> 3) == 0x1E ? 3 : -1;
    char32_t cp = follow == 0 ? lead : follow == 1 ? lead & 0x1F : follow == 2 ? lead & 0x0F
                                                                               : lead & 0x07;
    bool good = follow >= 0 && i + follow < bytes.size();
    for (int k = 1; good && k <= follow; ++k) {
      unsigned char next = static_cast<unsigned char>(bytes[i + k]);
      good = (next & 0xC0) == 0x80;
      cp = (cp << 6) | (next & 0x3F);
    }
    // Overlong forms, surrogates and values past U+10FFFF are no UTF-8.
    static const char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
    if (good && (cp < kLeast[follow] || (cp >= 0xD800 && cp < 0xE000) || cp > 0x10FFFF)) {
      good = false;
    }
    if (!good) {
      out += static_cast<char16_t>(kReplacement);
      ++i;
      continue;
    }
    AppendUtf16(out, cp);
    i += follow + 1;
  }
  return CString(std::move(out));
}
