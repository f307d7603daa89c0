// Body text described as a list of words and control codes: JIS X 0208
// text, control codes with their operands, BCD positions and numbers.
//
//   BodyText body;
//   body.code(0x1F09, {1}).text(u8"はな").code(0x1F0A).code(0x1F03);
//   book.text.add_area(0x00, body.data());
#ifndef TOOLS_BODY_TEXT_H_
#define TOOLS_BODY_TEXT_H_

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

class BodyText {
 public:
  // JIS X 0208 words of a UTF-8 text (ASCII in its full-width form).
  // Throws std::invalid_argument for a character outside JIS X 0208.
  BodyText& text(std::u8string_view utf8);
  // A word (a control code, an external character, any value) and the
  // operand words behind it, all big-endian.
  BodyText& code(int word, std::initializer_list<int> operands = {});
  // A position as three BCD words: 8 digits of page (from 1), 4 of offset.
  BodyText& bcd(int32_t position);
  // A number of up to eight digits as two BCD words. Throws
  // std::invalid_argument for a value outside 0 to 99999999.
  BodyText& bcd8(int32_t value);
  // Bytes as they stand: 8-bit text of English books.
  BodyText& bytes(std::string_view raw);

  const std::string& data() const { return data_; }
  // Bytes so far: the offset of the next word from the body's start.
  int32_t size() const { return static_cast<int32_t>(data_.size()); }

 private:
  std::string data_;
};

#endif  // TOOLS_BODY_TEXT_H_
