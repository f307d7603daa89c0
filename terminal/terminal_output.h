// What stands between the engine's Shift-JIS and a user whose locale is
// UTF-8: tomeview's standard streams, on a terminal or in a pipe, when the
// text is to go out in UTF-8. Files the engine writes itself (-O) never go
// through this.
#ifndef TERMINAL_TERMINAL_OUTPUT_H_
#define TERMINAL_TERMINAL_OUTPUT_H_

#include <cstdio>
#include <string>

// True when the user's locale (LC_ALL, LC_CTYPE, LANG) encodes in UTF-8.
// Leaves the process in the "C" locale, so the engine's byte handling
// does not depend on it.
bool user_locale_is_utf8();

// A stream whose Shift-JIS bytes reach `terminal` (a terminal, pipe or file)
// as UTF-8. A double-byte character split between two writes is carried
// over; a byte that is no Shift-JIS shows as U+FFFD. Line-buffered on a
// terminal, fully buffered otherwise. Closing it flushes `terminal` but
// leaves it open. Null when the system has no Shift-JIS converter.
FILE* open_utf8_writer(FILE* terminal);

// A stream that reads lines in UTF-8 from `terminal` (or a pipe) and gives
// them as shift_jis_keyword gives them.
FILE* open_utf8_reader(FILE* terminal);

// A keyword typed in UTF-8 becomes Shift-JIS: `text` is converted when it is
// not an option (first byte '-' or '/'), is valid UTF-8 with some non-ASCII
// character, and converts wholly. Anything else comes back unchanged, so
// Shift-JIS text and file paths (which Linux keeps as the shell gave them)
// pass through.
std::string shift_jis_keyword(const std::string& text);

#endif  // TERMINAL_TERMINAL_OUTPUT_H_
