// 8-bit body text (DF_ENGLISH). The stream is bytes:
//
//   Byte(s)              Meaning
//   -------------------  -------------------------------------------------
//   0x20 to 0x7E         text; a run of letters is emitted as one word, so
//                        that wrapping falls between words
//   0x00, 0x1E, 0x1F, b  a word (this byte high, b low) for the dispatch of
//                        dispatch.cc, operands read as words
//   0x0F, b              external character 0x0F00 + b
//   any other byte       external character of that code
//
// An external character takes its defined text, or "[%X]" with its code.
#include <cstdio>

#include "engine/file_access.h"
#include "text/gaiji.h"
#include "text/text_record.h"

namespace {

bool printable(int c) { return c >= 0x20 && c <= 0x7E; }
bool letter(int c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

// Appends one byte; a word longer than the buffer goes out in parts.
void append_byte(TextRecord* record, int c) {
  if (record->length + 1 >= kEmitSize) {
    emit(record);
    text_clear(record);
  }
  record->text[record->length++] = static_cast<char>(c);
  record->text[record->length] = '\0';
}

// A word: the letters from `first` on and the one character behind them,
// when that is printable; anything else behind them is given back.
void english_word(TextRecord* record, int first) {
  append_byte(record, first);
  for (;;) {
    int c = cdgetbyte();
    if (letter(c)) {
      append_byte(record, c);
      continue;
    }
    if (printable(c)) {
      append_byte(record, c);
    } else if (!read_failed()) {
      cdseek(-1, 1);
    }
    break;
  }
  emit(record);
}

}  // namespace

void english_unit(TextRecord* record) {
  int c = cdgetbyte();
  if (letter(c)) {
    english_word(record, c);
    return;
  }
  if (printable(c)) {
    append_byte(record, c);
    emit(record);
    return;
  }
  if (c == 0x00 || c == 0x1E || c == 0x1F) {
    int low = cdgetbyte();
    dispatch_word(record, (c << 8) | low);
    return;
  }
  int code = c == 0x0F ? 0x0F00 + cdgetbyte() : c;
  if (const char* defined = cdgaijifind(code)) {
    text_append(record, "%s", defined);
  } else {
    text_append(record, "[%X]", static_cast<unsigned>(code));
  }
  emit(record);
}
