// UTF-8 for what leaves the process as text (transcripts, the speech
// program's argument, host file names) and for our own language files.
#ifndef PLATFORM_UTF8_TEXT_H_
#define PLATFORM_UTF8_TEXT_H_

#include <string>
#include <string_view>

#include "platform/wide_string.h"

// A lone surrogate becomes U+FFFD.
std::string ToUtf8(const CString& text);
// A byte sequence that is no UTF-8 becomes U+FFFD, one per bad byte.
CString FromUtf8(std::string_view bytes);

#endif  // PLATFORM_UTF8_TEXT_H_
