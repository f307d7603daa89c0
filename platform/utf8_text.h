// UTF-8, the one coder of the program: what leaves the process as text
// (transcripts, the terminal, the speech servers, host file names), our own
// language files, and the book sources that the tools read.
#ifndef PLATFORM_UTF8_TEXT_H_
#define PLATFORM_UTF8_TEXT_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/wide_string.h"

// A lone surrogate becomes U+FFFD.
std::string ToUtf8(std::u16string_view units);
std::string ToUtf8(const CString& text);
inline std::string ToUtf8(const char16_t* text) { return ToUtf8(CString(text)); }  // null: ""
// A byte sequence that is no UTF-8 becomes U+FFFD, one per bad byte.
CString FromUtf8(std::string_view bytes);

// True when all of `bytes` is UTF-8: no stray or missing continuation
// byte, no overlong form, no surrogate, nothing past U+10FFFF.
bool IsUtf8(std::string_view bytes);
// The length of `bytes` without a character cut off at the end: a lead
// byte followed by fewer continuation bytes than it announces, and nothing
// else behind them. Input read in pieces keeps those bytes for the next.
size_t Utf8WholeLength(std::string_view bytes);

#endif  // PLATFORM_UTF8_TEXT_H_
