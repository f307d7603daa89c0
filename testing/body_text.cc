#include "testing/body_text.h"

#include <cstdio>
#include <stdexcept>

#include "engine/engine_state.h"
#include "engine/file_access.h"
#include "testing/jis_text.h"
#include "text/decoder.h"
#include "text/gaiji.h"

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

EngineRun with_body_file(const BodyText& body, const std::function<void()>& steps) {
  FILE* file = tmpfile();
  if (file == nullptr) throw std::runtime_error("no temporary file");
  std::string contents(kBodyPosition, '\0');
  contents += body.data();
  fwrite(contents.data(), 1, contents.size(), file);
  fflush(file);
  FILE* saved = engine.current_file;
  engine.current_file = file;
  cdseek(kBodyPosition, 0);
  engine.seen_count = 0;  // as at the start of an argument
  EngineRun run = capture_engine(steps);
  engine.current_file = saved;
  fclose(file);
  return run;
}

EngineRun decode_body(const BodyText& body, int32_t limit) {
  return with_body_file(body, [limit] { cdtext(limit); });
}

void reset_text_state() {
  engine.flags = 0;
  engine.width = 0;
  engine.cut_length = 0;
  engine.index_id = -1;
  engine.text_attribute = 0;
  engine.shown_attribute = -1;
  engine.seen_count = 0;
  cdgaijiload("", &engine.gaiji_table);
  cdgaijiload("", &engine.hankaku_table);
}
