// The markup of a body line of a book source, compiled to body text words.
//
//   plain text        JIS X 0208 characters; ASCII and ･ become half-width runs
//   {b:...} {i:...}   bold, italic (0x1F12/13, 0x1F10/11)
//   {sub:...} {sup:...}  subscript, superscript (0x1F06/07, 0x1F0E/0F)
//   {h:...}           a half-width run of any text, kana too (0x1F04/05)
//   {g:A121}          the external character of that code
//   {see:HEAD} {see:HEAD|shown}  a link to the entry with head word HEAD
//   {m:N}             at the start of a line: indent by N columns (0x1F09)
//   \{ \} \| \\       the character itself
#ifndef TOOLS_MARKUP_H_
#define TOOLS_MARKUP_H_

#include <string_view>

#include "tools/body_words.h"

// Compiles one UTF-8 line (without its line end) onto `out`. `margin` is
// the indentation in force before the line and takes the one after it.
// Throws std::invalid_argument with the reason for bad markup or a
// character with no JIS X 0208 form.
void compile_markup(std::string_view line, int line_number, int& margin, BodyWords& out);

// Codes a source may give external characters: rows 0xA1 to 0xFE, columns
// 0x21 to 0x7E.
bool is_gaiji_code(long code);

// The Shift-JIS form of a UTF-8 text; throws std::invalid_argument for a
// character with no JIS X 0208 form.
std::string source_sjis(std::string_view utf8);

#endif  // TOOLS_MARKUP_H_
