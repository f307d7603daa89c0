// Japanese text for books: UTF-8 as sources hold it, turned into the two
// encodings books and the engine use.
#ifndef TOOLS_JIS_TEXT_H_
#define TOOLS_JIS_TEXT_H_

#include <string>
#include <string_view>

// Shift-JIS (code page 932) bytes of a UTF-8 text, as the engine writes
// them. Throws std::invalid_argument for a character it lacks.
std::string utf8_to_sjis(std::string_view utf8);

// JIS X 0208 codes of a UTF-8 text, two bytes each, high byte first, with
// no terminator: the form of titles and body text in books. ASCII becomes
// its full-width form (a blank the ideographic space). Throws
// std::invalid_argument for a character outside JIS X 0208.
std::string utf8_to_jis(std::string_view utf8);

#endif  // TOOLS_JIS_TEXT_H_
