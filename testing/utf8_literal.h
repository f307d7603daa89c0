// UTF-8 text in code whose plain literals are Shift-JIS (the engine's tests
// are compiled with a Shift-JIS execution character set).
#ifndef TESTING_UTF8_LITERAL_H_
#define TESTING_UTF8_LITERAL_H_

#include <string>
#include <string_view>

// A u8"..." literal as std::string, for the writers that take UTF-8.
inline std::string utf8(std::u8string_view text) { return std::string(text.begin(), text.end()); }

#endif  // TESTING_UTF8_LITERAL_H_
