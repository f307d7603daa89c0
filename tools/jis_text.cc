#include "tools/jis_text.h"

#include <iconv.h>

#include <stdexcept>

#include "search/search_key.h"

namespace {

// ASCII in a JIS X 0208 text: the full-width form, U+FF01 + (c - 0x21),
// except where code page 932 would give a code outside JIS X 0208.
std::string widen_ascii(std::string_view utf8) {
  std::string wide;
  for (const char c : utf8) {
    const unsigned char byte = static_cast<unsigned char>(c);
    if (byte >= 0x80 || byte < 0x20) {
      wide += c;
    } else if (byte == ' ') {
      wide += "\u3000";
    } else if (byte == '"') {
      wide += "\u201D";
    } else if (byte == '\'') {
      wide += "\u2019";
    } else {
      const unsigned code = 0xFF01 + (byte - 0x21);  // three UTF-8 bytes
      wide += static_cast<char>(0xE0 | code >> 12);
      wide += static_cast<char>(0x80 | (code >> 6 & 0x3F));
      wide += static_cast<char>(0x80 | (code & 0x3F));
    }
  }
  return wide;
}

bool is_lead_byte(unsigned char byte) {
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

}  // namespace

std::string utf8_to_sjis(std::string_view utf8) {
  iconv_t convert = iconv_open("CP932", "UTF-8");
  if (convert == reinterpret_cast<iconv_t>(-1)) throw std::runtime_error("iconv lacks CP932");
  std::string sjis(utf8.size() * 2 + 4, '\0');
  char* in = const_cast<char*>(utf8.data());
  size_t in_left = utf8.size();
  char* out = sjis.data();
  size_t out_left = sjis.size();
  const size_t result = iconv(convert, &in, &in_left, &out, &out_left);
  iconv_close(convert);
  if (result == static_cast<size_t>(-1)) {
    throw std::invalid_argument("not UTF-8 or not in code page 932: " + std::string(utf8));
  }
  sjis.resize(sjis.size() - out_left);
  return sjis;
}

std::string utf8_to_jis(std::string_view utf8) {
  const std::string sjis = utf8_to_sjis(widen_ascii(utf8));
  std::string jis;
  for (size_t i = 0; i < sjis.size(); i += 2) {
    const unsigned char first = static_cast<unsigned char>(sjis[i]);
    if (!is_lead_byte(first) || i + 1 >= sjis.size()) {
      throw std::invalid_argument("no JIS X 0208 form for: " + std::string(utf8));
    }
    const int code = sjis_to_jis(first << 8 | static_cast<unsigned char>(sjis[i + 1]));
    jis += static_cast<char>(code >> 8);
    jis += static_cast<char>(code & 0xFF);
  }
  return jis;
}
