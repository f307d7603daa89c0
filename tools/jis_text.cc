#include "tools/jis_text.h"

#include <optional>
#include <stdexcept>

#include "platform/code_page.h"
#include "platform/utf8_text.h"
#include "search/search_key.h"

namespace {

// ASCII in a JIS X 0208 text: the full-width form, U+FF01 + (c - 0x21),
// except where code page 932 would give a code outside JIS X 0208.
std::u16string widen_ascii(std::u16string text) {
  for (char16_t& c : text) {
    if (c == u' ') {
      c = u'\u3000';
    } else if (c == u'"') {
      c = u'\u201D';
    } else if (c == u'\'') {
      c = u'\u2019';
    } else if (c > 0x20 && c < 0x7F) {
      c = static_cast<char16_t>(0xFF01 + (c - 0x21));
    }
  }
  return text;
}

}  // namespace

std::string utf8_to_sjis(std::string_view utf8) {
  std::optional<std::string> sjis;
  if (IsUtf8(utf8)) sjis = EncodeMultiByteExactly(FromUtf8(utf8).Units());
  if (!sjis) throw std::invalid_argument("not UTF-8 or not in code page 932: " + std::string(utf8));
  return *sjis;
}

std::string utf8_to_jis(std::string_view utf8) {
  std::optional<std::string> sjis;
  if (IsUtf8(utf8)) sjis = EncodeMultiByteExactly(widen_ascii(FromUtf8(utf8).Units()));
  if (!sjis) throw std::invalid_argument("not UTF-8 or not in code page 932: " + std::string(utf8));
  std::string jis;
  for (size_t i = 0; i < sjis->size(); i += 2) {
    const unsigned char first = static_cast<unsigned char>((*sjis)[i]);
    if (!IsLeadByte(first) || i + 1 >= sjis->size()) {
      throw std::invalid_argument("no JIS X 0208 form for: " + std::string(utf8));
    }
    const int code = sjis_to_jis(first << 8 | static_cast<unsigned char>((*sjis)[i + 1]));
    jis += static_cast<char>(code >> 8);
    jis += static_cast<char>(code & 0xFF);
  }
  return jis;
}
