// Full-width forms of the ASCII characters, shared by the decoder (half-width
// runs) and the search key normalisation.
#ifndef TEXT_ASCII_TO_JIS_H_
#define TEXT_ASCII_TO_JIS_H_

#include <cstdint>

// Bit of an ascii_to_jis entry that marks a symbol (dropped from search keys
// under DF_NO_KEY_SYMBOLS).
constexpr uint32_t kAsciiSymbolBit = 0x8000;

// 128 entries: the low 15 bits are the JIS X 0208 code of the full-width
// form; 0 for control characters and DEL.
extern const uint32_t ascii_to_jis[128];

#endif  // TEXT_ASCII_TO_JIS_H_
