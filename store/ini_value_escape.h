// The text of a value in a settings line. A line holds one value from its
// "=" to its line feed, in the system code page; what that cannot carry is
// written as a character reference "&#x" hex ";" (hex: 1 to 6 digits of the
// code point, at most 10FFFF):
//
//   - control characters U+0000 to U+001F and U+007F (a line feed or a
//     carriage return would end or change the line);
//   - characters that do not come back the same through the code page
//     (a character it lacks would come back as "?"), and lone surrogates;
//   - an "&" that stands before "#", so that a literal "&#x41;" stays text.
//
// Everything else, blanks included, stands as it is: a value without
// those characters is written byte for byte as before, and a file that an
// older store wrote reads the same unless a value of it holds the text of
// a character reference.
#ifndef STORE_INI_VALUE_ESCAPE_H_
#define STORE_INI_VALUE_ESCAPE_H_

#include "platform/wide_string.h"

// The value as it is written into its line.
CString EscapeIniValue(const CString& value);
// The value that a line's text stands for: every well-formed character
// reference becomes its character; anything else stays as it is.
CString UnescapeIniValue(const CString& text);

#endif  // STORE_INI_VALUE_ESCAPE_H_
