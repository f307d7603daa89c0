// Body text of a test book described as a list of words and control codes,
// and a way to decode it straight from a temporary file.
//
//   BodyText body;
//   body.code(0x1F09, {1}).text(u8"はな").code(0x1F0A).code(0x1F03);
//   EngineRun run = decode_body(body);        // cdtext(0) at kBodyPosition
//   book.text.add_area(0x00, body.data());    // or put it in a book
#ifndef TESTING_BODY_TEXT_H_
#define TESTING_BODY_TEXT_H_

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

#include "testing/engine_runner.h"

class BodyText {
 public:
  // JIS X 0208 words of a UTF-8 text (ASCII in its full-width form).
  BodyText& text(std::u8string_view utf8);
  // A word (a control code, an external character, any value) and the
  // operand words behind it, all big-endian.
  BodyText& code(int word, std::initializer_list<int> operands = {});
  // A position as three BCD words: 8 digits of page (from 1), 4 of offset.
  BodyText& bcd(int32_t position);
  // A number of up to eight digits as two BCD words.
  BodyText& bcd8(int32_t value);
  // Bytes as they stand: 8-bit text of English books.
  BodyText& bytes(std::string_view raw);

  const std::string& data() const { return data_; }
  // Bytes so far: the offset of the next word from the body's start.
  int32_t size() const { return static_cast<int32_t>(data_.size()); }

 private:
  std::string data_;
};

// Where decode_body and with_body_file put the body in their file: the
// start of page 2, for position 0 holds no text.
constexpr int32_t kBodyPosition = 2048;

// Writes `body` at kBodyPosition of a temporary single file (zeros in
// front), opens it as engine.current_file standing at the body's first
// byte, starts a new argument (seen_count 0), runs `steps` with the engine's streams captured, and closes it.
EngineRun with_body_file(const BodyText& body, const std::function<void()>& steps);
// with_body_file running cdtext(limit) once.
EngineRun decode_body(const BodyText& body, int32_t limit = 0);

// Puts back what the decoder reads of the engine's state, as a run starts
// it: no flags, no width, no cut, no attributes, nothing seen, forward
// search, the built-in external-character tables.
void reset_text_state();

#endif  // TESTING_BODY_TEXT_H_
