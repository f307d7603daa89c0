#include "tools/body_text.h"

#include <stdexcept>

#include "tools/jis_text.h"

namespace {

// Four decimal digits of `value` as one BCD word.
int bcd_word(int32_t value) {
  return (value / 1000 % 10) << 12 | (value / 100 % 10) << 8 | (value / 10 % 10) << 4 |
         value % 10;
}

}  // namespace

BodyText& BodyText::text(std::u8string_view utf8) {
  data_ += utf8_to_jis(std::string_view(reinterpret_cast<const char*>(utf8.data()), utf8.size()));
  return *this;
}

BodyText& BodyText::code(int word, std::initializer_list<int> operands) {
  data_ += static_cast<char>(word >> 8 & 0xFF);
  data_ += static_cast<char>(word & 0xFF);
  for (int operand : operands) code(operand);
  return *this;
}

BodyText& BodyText::bcd(int32_t position) {
  bcd8(position / 2048 + 1);
  return code(bcd_word(position % 2048));
}

BodyText& BodyText::bcd8(int32_t value) {
  if (value < 0 || value > 99999999) throw std::invalid_argument("not eight BCD digits");
  return code(bcd_word(value / 10000)).code(bcd_word(value % 10000));
}

BodyText& BodyText::bytes(std::string_view raw) {
  data_ += raw;
  return *this;
}
