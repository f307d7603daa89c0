// What a JIS X 0208 kana or punctuation mark becomes in a half-width run.
#ifndef TEXT_HALFWIDTH_TABLES_H_
#define TEXT_HALFWIDTH_TABLES_H_

#include <cstdint>

// Indexed by the JIS column minus 0x21, the same for hiragana (row 0x24)
// and katakana (row 0x25). An entry up to 0xFF is one byte; a larger one is
// two bytes, high byte first.
constexpr int kHalfwidthKanaCount = 84;
extern const uint32_t halfwidth_kana[kHalfwidthKanaCount];

// The one-byte half-width form of a punctuation mark, or 0 when the code
// has none.
uint32_t halfwidth_punctuation(int32_t code);

#endif  // TEXT_HALFWIDTH_TABLES_H_
