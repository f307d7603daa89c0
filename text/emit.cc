// Output of the decoder. Text goes out one unit at a time through emit,
// which owns the line state: the wrap at `width` (a soft line feed that is
// no line end), the left margin written lazily in front of the first text
// of a line, and the colour of the attributes in force. Line ends and
// markers are written directly.
#include <charconv>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "engine/engine_state.h"
#include "text/decoder.h"
#include "text/text_record.h"

void text_append(TextRecord* record, const char* format, ...) {
  int room = kEmitSize - record->length;
  va_list arguments;
  va_start(arguments, format);
  int wanted = vsnprintf(record->text + record->length, room, format, arguments);
  va_end(arguments);
  if (wanted < 0) {
    record->text[record->length] = '\0';
    return;
  }
  // A form that does not fit is cut at the end of the buffer.
  record->length += wanted < room ? wanted : room - 1;
}

void emit_laid_out(TextRecord* record) {
  FILE* output = engine.output;
  bool colour = (engine.flags & DF_COLOUR) != 0;
  if (engine.width > 0 && record->length + record->column >= engine.width) {
    fputc('\n', output);
    record->column = 0;
  }
  if (record->column < record->margin) {
    if (colour) cdattr(0);  // the margin is never coloured
    for (int32_t i = record->column; i < record->margin; ++i) fputc(' ', output);
    record->column = record->margin;
  }
  if (colour) cdattr(engine.text_attribute);
  fwrite(record->text, 1, static_cast<size_t>(record->length), output);
  record->column += record->length;
}

void write_direct(const char* text) { fputs(text, engine.output); }

void stop_record(TextRecord* record, int32_t position) {
  if (engine.flags & DF_COLOUR) cdattr(0);
  // The application splits the work file into articles at this marker
  // (results/work_file_parser.cc); results/engine_books_test.cc runs the
  // engine through the parser and fails when the two ends part.
  // Written without a format: one ends every article of every lookup.
  char digits[16];
  const char* end = std::to_chars(digits, digits + sizeof digits, position).ptr;
  fputs_unlocked("\n<次項目:", engine.output);
  fwrite_unlocked(digits, 1, static_cast<size_t>(end - digits), engine.output);
  fputs_unlocked(">\n\n", engine.output);
  record->ended = true;
}
