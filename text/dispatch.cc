// The body text stream and its interpretation.
//
// Body text is a stream of 16-bit big-endian words (in English mode, bytes;
// see english_text.cc). A word is a JIS X 0208 character (0x2121 to
// 0x7E7E), an external character (any other code without a row below), or
// a control code 0x1Fxx, which may be followed by operand words:
//
//   Word    Operand words               Meaning
//   ------  --------------------------  -------------------------------------
//   0000    -                           end of data
//   1F02    -                           start of text
//   1F03    -                           end of text (ends the record)
//   1F04/05 -                           half-width run on / off
//   1F06/07 -                           subscript on / off
//   1F09    1: margin                   left margin; 1 is the left edge
//   1F0A    -                           line end
//   1F0E/0F -                           superscript on / off
//   1F10/11 -                           italic on / off
//   1F12/13 -                           bold on / off
//   1F31    3: A, X, Y                  figure data
//   1F32    0 or 2: X, Y                next figure (operands when the next
//                                       word is 0x2120 or below)
//   1F41    1: value                    font set; may end a record
//   1F42    0 or 2: X, Y                commentary (as 1F32; X alone in
//                                       English books)
//   1F43    -                           opens a reference
//   1F44    1 + 2 + 2 (+ 2): A, X, Y    figure; X, Y (and Z in encyclopedia
//           (, Z)                       books) are 8 BCD digits in 2 words
//   1F45    encyclopedia: 1 character   figure caption
//   1F48    2 + 3: A, B, BCD position   sound
//   1F49    encyclopedia: 1 character,  figure size
//           A, B
//   1F4A    -                           opens a reference
//   1F4B/4C 5: A, X, Y, Z, C            figure
//   1F4D    1 + N: N, N words           a list of values
//   1F4E/4F -                           opens a reference
//   1F51/52/62/63/64/69-6C/6E/6F
//           3: BCD position             closes a reference: where it leads
//   1F55/57/58, 1F61  -                 closing marks without a form
//   1F65    -                           closes 1F45
//   1F68/6D -                           closes 1F48
//   1FE0    0 or 1: value below 0x2000  attribute (none in encyclopedia
//                                       books unless verbose)
//   1FE1/E3/E5  -                       closes a font or attribute
//   1FE2    0 or 1: value below 0x2121  font
//   1FE4    1: value                    font
//
// A BCD position is three words: eight decimal digits of page (from 1) and
// four of offset in the page (see bcd.cc). An optional operand is told by
// reading the next word and giving it back when it is none.
//
// Plain mode (no DF_VERBOSE, no DF_HIDE_LINKS) is what the application
// reads; DF_VERBOSE shows the codes as marks, DF_HIDE_LINKS keeps only the
// brackets of figures, sounds and references.
#include "engine/engine_state.h"
#include "engine/file_access.h"
#include "text/text_record.h"

namespace {

bool verbose() { return (engine.flags & DF_VERBOSE) != 0; }

// Emits the mark of a code that shows only with DF_VERBOSE.
void verbose_mark(TextRecord* record, const char* mark) {
  if (!verbose()) return;
  text_append(record, "%s", mark);
  emit(record);
}

// An attribute code: the bit it sets or clears, and its mark.
struct AttributeCode {
  int32_t code;          // the control code
  uint32_t attribute;    // TA_* bit
  bool sets;             // true: sets the bit; false: clears it
  const char* verbose;   // mark written with DF_VERBOSE
};

constexpr AttributeCode kAttributeCodes[] = {
    {0x1F04, TA_HALF, true, "\\small{"},        {0x1F05, TA_HALF, false, "}"},
    {0x1F06, TA_SUB, true, "\\subscript{"},     {0x1F07, TA_SUB, false, "}"},
    {0x1F0E, TA_SUPER, true, "\\superscript{"}, {0x1F0F, TA_SUPER, false, "}"},
    {0x1F10, TA_ITALIC, true, "\\it{"},         {0x1F11, TA_ITALIC, false, "}"},
    {0x1F12, TA_BOLD, true, "\\bf{"},           {0x1F13, TA_BOLD, false, "}"},
};

bool attribute_code(TextRecord* record, int32_t word) {
  for (const AttributeCode& entry : kAttributeCodes) {
    if (entry.code != word) continue;
    if (entry.sets) {
      engine.text_attribute |= entry.attribute;
    } else {
      engine.text_attribute &= ~entry.attribute;
    }
    verbose_mark(record, entry.verbose);
    return true;
  }
  return false;
}

void end_of_data(TextRecord* record) {
  write_direct("<<End of data>>\n");
  // Under DF_NO_STOP a 0 word goes on, except at the true end of the data,
  // where every further read would give 0 again.
  if (!(engine.flags & DF_NO_STOP) || read_failed()) stop_record(record, record->unit_position);
}

void end_of_text(TextRecord* record) {
  if (verbose()) write_direct("\n\\end{cdrom}\n");
  if (!(engine.flags & DF_NO_STOP)) stop_record(record, cdtell());
}

// 0x1F41: past the first line it may end the record in front of itself.
void font_set(TextRecord* record) {
  int32_t value = cdgetword();
  bool synonym_split = (engine.flags & DF_SYNONYM_INDEX) && engine.index_id == 0xA0 &&
                       value == 0x01A0;
  if (record->limit < 0 && ((engine.flags & DF_1F41_SPLIT) || synonym_split)) {
    stop_record(record, record->unit_position);
    return;
  }
  if (verbose()) {
    text_append(record, "\\setfont[%X]{", value);
    emit(record);
  }
}

// 0x1FE0: an attribute value follows, when the next word is below 0x2000.
void attribute_value(TextRecord* record) {
  if ((engine.flags & DF_ENCYCLOPEDIA) && !verbose()) {
    emit(record);
    return;
  }
  int32_t value = cdgetword();
  bool has_value = value < 0x2000;
  if (!has_value) give_back_word();
  if (verbose()) {
    text_append(record, "\\attr{");
    if (has_value) text_append(record, "(%X)", value);
  }
  emit(record);
}

// 0x1FE2: a font number follows, when the next word is below 0x2121.
void font_number(TextRecord* record) {
  int32_t value = cdgetword();
  bool has_value = value < 0x2121;
  if (!has_value) give_back_word();
  if (!verbose()) return;
  if (has_value) {
    text_append(record, "\\font(%d){", value);
  } else {
    text_append(record, "\\font{");
  }
  emit(record);
}

}  // namespace

void dispatch_word(TextRecord* record, int32_t word) {
  // Attribute and reference codes are all control codes (0x1Fxx); a
  // character need not look through their tables.
  const bool control = (word >> 8) == 0x1F;
  if (control && (attribute_code(record, word) || reference_code(record, word))) return;
  switch (word) {
    case 0x0000:
      end_of_data(record);
      return;
    case 0x1F02:
      verbose_mark(record, "\\begin{cdrom}\n");
      return;
    case 0x1F03:
      end_of_text(record);
      return;
    case 0x1F09:
      left_margin(record);
      return;
    case 0x1F0A:
      line_end(record);
      return;
    case 0x1F41:
      font_set(record);
      return;
    case 0x1F55:
    case 0x1F57:
    case 0x1F58:
      if (verbose()) text_append(record, "{%X}", word);
      emit(record);  // an empty text in plain mode: the margin still comes
      return;
    case 0x1F61:
    case 0x1FE1:
    case 0x1FE3:
    case 0x1FE5:
      verbose_mark(record, "}");
      return;
    case 0x1FE0:
      attribute_value(record);
      return;
    case 0x1FE2:
      font_number(record);
      return;
    case 0x1FE4: {
      int32_t value = cdgetword();
      if (verbose()) {
        text_append(record, "\\font[%x]{", value);
        emit(record);
      }
      return;
    }
    default:
      text_append_char(record, word);
      emit(record);
      return;
  }
}
