// Figures, sounds and references: the codes that open them with "<" and a
// form of their operands, and the codes that close them with the position
// they lead to, "|%ld>". The application finds links and figures by these
// forms. DF_HIDE_LINKS keeps only the brackets; DF_VERBOSE shows the codes.
// Operands are always consumed, whatever is shown of them.
#include "engine/engine_state.h"
#include "engine/file_access.h"
#include "text/decoder.h"
#include "text/text_record.h"

namespace {

// Words above this are characters, not operands, behind an optional-operand code.
constexpr int32_t kLastOperand = 0x2120;

bool verbose() { return (engine.flags & DF_VERBOSE) != 0; }
bool hide_links() { return (engine.flags & DF_HIDE_LINKS) != 0; }
bool encyclopedia() { return (engine.flags & DF_ENCYCLOPEDIA) != 0; }

// "<", or "<%X|" with the code under DF_VERBOSE.
void open_bracket(TextRecord* record, int32_t code) {
  if (verbose()) {
    text_append(record, "<%X|", static_cast<unsigned>(code));
  } else {
    text_append(record, "<");
  }
}

// 0x1F31: figure data.
void figure_data(TextRecord* record) {
  int32_t a = cdgetword();
  int32_t x = cdgetword();
  int32_t y = cdgetword();
  if (hide_links()) {
    text_append(record, "<");
  } else {
    text_append(record, "<図データ:%X X=%X,Y=%X", a, x, y);
  }
  emit(record);
}

// 0x1F32: next figure, with X and Y unless a character follows.
void next_figure(TextRecord* record, int32_t code) {
  open_bracket(record, code);
  int32_t x = cdgetword();
  if (x > kLastOperand) {
    give_back_word();
    emit(record);
    return;
  }
  int32_t y = cdgetword();
  if (hide_links() && !verbose()) {
    text_clear(record);
    text_append(record, "<");
  } else {
    text_append(record, "次図|X=%X,Y=%X", x, y);
  }
  emit(record);
}

// 0x1F42: commentary, with X and Y unless a character follows, which then
// is the first character of the commentary.
void commentary(TextRecord* record) {
  text_append(record, "<");
  int32_t x = cdgetword();
  if (x > kLastOperand) {
    text_append_char(record, x);
    emit(record);
    return;
  }
  text_append(record, "解説|X=%X", x);
  if (engine.flags & DF_ENGLISH) {
    text_clear(record);
    text_append(record, "<→");
  } else {
    text_append(record, ",Y=%X", cdgetword());
  }
  if (hide_links()) {
    text_clear(record);
    text_append(record, "<");
  }
  emit(record);
}

// 0x1F44: figure with BCD coordinates (and a third in encyclopedia books).
void bcd_figure(TextRecord* record) {
  int32_t a = cdgetword();
  long x = cdbcd8();
  long y = cdbcd8();
  bool has_z = encyclopedia();
  long z = has_z ? cdbcd8() : 0;
  if (hide_links()) {
    text_append(record, "<");
  } else {
    text_append(record, "<Figure:%X,X=%ld,Y=%ld", a, x, y);
    if (has_z) text_append(record, ",Z=%ld|", z);
  }
  emit(record);
}

// 0x1F45: figure caption; its character only in encyclopedia books.
void figure_caption(TextRecord* record) {
  int32_t character = encyclopedia() ? cdgetword() : 0;
  if (!hide_links()) text_append(record, "\\Fig{");
  text_append_char(record, character);
  emit(record);
}

// 0x1F48: sound.
void sound(TextRecord* record) {
  int32_t a = cdgetword();
  int32_t b = cdgetword();
  long position = cdbcdpos();
  if (hide_links()) {
    text_append(record, "<");
  } else {
    text_append(record, "<Sound %X,%X|%ld><", b, a, position);
  }
  emit(record);
}

// 0x1F49: figure size, in encyclopedia books only.
void figure_size(TextRecord* record) {
  if (!encyclopedia()) return;
  int32_t character = cdgetword();
  text_append(record, "<");
  text_append_char(record, character);
  if (hide_links()) {
    cdseek(4, 1);
  } else {
    int32_t a = cdgetword();
    int32_t b = cdgetword();
    text_append(record, ",%dx%d|", b, a);
  }
  emit(record);
}

// 0x1F4B, 0x1F4C: figure.
void figure(TextRecord* record) {
  int32_t a = cdgetword();
  int32_t x = cdgetword();
  int32_t y = cdgetword();
  int32_t z = cdgetword();
  int32_t c = cdgetword();
  if (hide_links()) {
    text_append(record, "<");
  } else {
    text_append(record, "<Figure:%X,X=%X,Y=%X,Z=%X,C=%X|", a, x, y, z, c);
  }
  emit(record);
}

// 0x1F4D: a counted list of values. A list longer than the text buffer
// shows the values that fit; all of them are read.
void value_list(TextRecord* record) {
  int32_t count = cdgetword();
  if (hide_links()) {
    cdseek(2 * count, 1);
    text_append(record, "<");
    emit(record);
    return;
  }
  text_append(record, "<1F4D:(%d) ", count);
  // Room for one more "ffff," with the NUL.
  constexpr int kLongestValue = 6;
  for (int32_t i = 0; i < count; ++i) {
    int32_t value = cdgetword();
    if (record->length + kLongestValue <= kEmitSize) text_append(record, "%x,", value);
  }
  record->text[record->length - 1] = '|';
  emit(record);
}

// The codes that close a reference with the position it leads to.
bool closes_reference(int32_t word) {
  switch (word) {
    case 0x1F51:
    case 0x1F52:
    case 0x1F62:
    case 0x1F63:
    case 0x1F64:
    case 0x1F69:
    case 0x1F6A:
    case 0x1F6B:
    case 0x1F6C:
    case 0x1F6E:
    case 0x1F6F:
      return true;
    default:
      return false;
  }
}

void close_reference(TextRecord* record, int32_t code) {
  long position = cdbcdpos();
  if (verbose()) {
    text_append(record, "|%X|%ld>", static_cast<unsigned>(code), position);
  } else if (hide_links()) {
    text_append(record, ">");
  } else {
    text_append(record, "|%ld>", position);
  }
  emit(record);
}

}  // namespace

bool reference_code(TextRecord* record, int32_t word) {
  if (closes_reference(word)) {
    close_reference(record, word);
    return true;
  }
  switch (word) {
    case 0x1F31:
      figure_data(record);
      return true;
    case 0x1F32:
      next_figure(record, word);
      return true;
    case 0x1F42:
      commentary(record);
      return true;
    case 0x1F43:
    case 0x1F4A:
    case 0x1F4E:
    case 0x1F4F:
      open_bracket(record, word);
      emit(record);
      return true;
    case 0x1F44:
      bcd_figure(record);
      return true;
    case 0x1F45:
      figure_caption(record);
      return true;
    case 0x1F48:
      sound(record);
      return true;
    case 0x1F49:
      figure_size(record);
      return true;
    case 0x1F4B:
    case 0x1F4C:
      figure(record);
      return true;
    case 0x1F4D:
      value_list(record);
      return true;
    case 0x1F65:
      // Closes a caption (0x1F45), whose "\Fig{" DF_HIDE_LINKS leaves out.
      if (!hide_links()) text_append(record, "}");
      emit(record);
      return true;
    case 0x1F68:
    case 0x1F6D:
      // Closes a sound (0x1F48).
      text_append(record, ">");
      emit(record);
      return true;
    default:
      return false;
  }
}
