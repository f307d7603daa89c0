// What one cdtext call works on, shared by the files of the decoder: the
// line state of the record being decoded and the text of the unit in hand.
// The record lives on cdtext's stack; nothing here outlives the call.
#ifndef TEXT_TEXT_RECORD_H_
#define TEXT_TEXT_RECORD_H_

#include <cstdint>
#include <cstdio>

#include "engine/engine_state.h"
#include "text/decoder.h"

// Bytes of the text of one emit, its NUL included.
constexpr int kEmitSize = 512;

struct TextRecord {
  int32_t limit;          // line allowance, as cdtext's argument; runs down per line end
  int32_t column;         // bytes written on the current output line
  int32_t margin;         // left margin in columns, written lazily before text
  int32_t first_margin;   // the record's first margin (DF_MARGIN_SPLIT); -1 until known
  int32_t unit_position;  // position of the unit being decoded
  bool ended;             // the record has stopped; cdtext returns
  int length;             // bytes in text, without the NUL
  char text[kEmitSize];   // the unit's text, always NUL-terminated
};

// --- the unit's text (emit.cc). Appends that would overrun are cut.
inline void text_clear(TextRecord* record) {
  record->length = 0;
  record->text[0] = '\0';
}
void text_append(TextRecord* record, const char* format, ...)
    __attribute__((format(printf, 2, 3)));
// Appends the cdputchar text of `code`.
inline void text_append_char(TextRecord* record, int32_t code) {
  record->length += static_cast<int>(
      cdputchar(code, record->text + record->length, kEmitSize - record->length));
}

// --- output (emit.cc)
// emit where the line wraps, the margin is still to write or the text is
// coloured.
void emit_laid_out(TextRecord* record);
// Writes the unit's text: wraps at width, puts the margin in front of the
// first text of a line, colours it. Also runs on an empty text. Inline, as
// every character of a record comes here.
inline void emit(TextRecord* record) {
  if (engine.width > 0 || record->column < record->margin || (engine.flags & DF_COLOUR)) {
    emit_laid_out(record);
    return;
  }
  // A unit is a character or two as a rule: byte by byte into the stream's
  // buffer costs less than a call that looks for the text's end.
  for (int i = 0; i < record->length; ++i) putc_unlocked(record->text[i], engine.output);
  record->column += record->length;
}
// Writes `text` as it stands, outside wrapping and margins.
void write_direct(const char* text);
// Ends the record: colour off, then the marker with the position where
// the next item starts.
void stop_record(TextRecord* record, int32_t position);

// --- reading the stream (decoder.cc)
// True when the last read found no data (end of the data, or no file).
bool read_failed();
// Gives the word just read back to the stream, unless the read failed.
void give_back_word();

// --- the codes (dispatch.cc, layout_codes.cc, reference_codes.cc)
// Decodes one word of the stream and the operands it takes.
void dispatch_word(TextRecord* record, int32_t word);
// 0x1F0A.
void line_end(TextRecord* record);
// 0x1F09 with its operand.
void left_margin(TextRecord* record);
// Figures, sounds, references and the codes that close them; false when
// `word` is none of them.
bool reference_code(TextRecord* record, int32_t word);

// --- the other ways of reading (english_text.cc, raw_views.cc)
// One unit of 8-bit text (DF_ENGLISH).
void english_unit(TextRecord* record);
// The hexadecimal word dump of DF_DUMP.
void word_dump();
// The raw copy of cut_length bytes (-Y).
void raw_cut();

// --- BCD numbers (bcd.cc)
// Eight BCD digits in two words, the first the more significant.
int32_t cdbcd8();

#endif  // TEXT_TEXT_RECORD_H_
