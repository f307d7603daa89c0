// cdfoldkey: the form by which the kana indexes (0x90, 0x70) are sorted.
// Voicing, small kana and the long-vowel mark don't count there, katakana
// read as hiragana, and full-width letters as capitals.
#include <cctype>
#include <cstring>

#include "engine/engine_state.h"
#include "search/search_key.h"

// Column of the plain, large kana, by column - 0x21 of row 0x24 or 0x25.
const unsigned char kana_fold[kKanaColumns] = {
    0x22, 0x22, 0x24, 0x24, 0x26, 0x26, 0x28, 0x28, 0x2A, 0x2A,  // ぁあぃいぅうぇえぉお
    0x2B, 0x2B, 0x2D, 0x2D, 0x2F, 0x2F, 0x31, 0x31, 0x33, 0x33,  // かがきぎくぐけげこご
    0x35, 0x35, 0x37, 0x37, 0x39, 0x39, 0x3B, 0x3B, 0x3D, 0x3D,  // さざしじすずせぜそぞ
    0x3F, 0x3F, 0x41, 0x41, 0x44, 0x44, 0x44, 0x46, 0x46, 0x48,  // ただちぢっつづてでと
    0x48, 0x4A, 0x4B, 0x4C, 0x4D, 0x4E,                          // どなにぬねの
    0x4F, 0x4F, 0x4F, 0x52, 0x52, 0x52, 0x55, 0x55, 0x55,        // はばぱひびぴふぶぷ
    0x58, 0x58, 0x58, 0x5B, 0x5B, 0x5B,                          // へべぺほぼぽ
    0x5E, 0x5F, 0x60, 0x61, 0x62, 0x64, 0x64, 0x66, 0x66, 0x68,  // まみむめもゃやゅゆょ
    0x68, 0x69, 0x6A, 0x6B, 0x6C, 0x6D, 0x6F, 0x6F, 0x70, 0x71,  // よらりるれろゎわゐゑ
    0x72, 0x73, 0x26, 0x2B, 0x31, 0x00, 0x00,                    // をんヴヵヶ, two unused
};

// Column of the vowel (あ 0x22, い 0x24, う 0x26, え 0x28, お 0x2A) that a
// ー behind the kana lengthens; ん gives itself.
const unsigned char kana_vowel[kKanaColumns] = {
    0x22, 0x22, 0x24, 0x24, 0x26, 0x26, 0x28, 0x28, 0x2A, 0x2A,  // ぁあぃいぅうぇえぉお
    0x22, 0x22, 0x24, 0x24, 0x26, 0x26, 0x28, 0x28, 0x2A, 0x2A,  // かがきぎくぐけげこご
    0x22, 0x22, 0x24, 0x24, 0x26, 0x26, 0x28, 0x28, 0x2A, 0x2A,  // さざしじすずせぜそぞ
    0x22, 0x22, 0x24, 0x24, 0x26, 0x26, 0x26, 0x28, 0x28, 0x2A,  // ただちぢっつづてでと
    0x2A, 0x22, 0x24, 0x26, 0x28, 0x2A,                          // どなにぬねの
    0x22, 0x22, 0x22, 0x24, 0x24, 0x24, 0x26, 0x26, 0x26,        // はばぱひびぴふぶぷ
    0x28, 0x28, 0x28, 0x2A, 0x2A, 0x2A,                          // へべぺほぼぽ
    0x22, 0x24, 0x26, 0x28, 0x2A, 0x22, 0x22, 0x26, 0x26, 0x2A,  // まみむめもゃやゅゆょ
    0x2A, 0x22, 0x24, 0x26, 0x28, 0x2A, 0x22, 0x22, 0x24, 0x28,  // よらりるれろゎわゐゑ
    0x2A, 0x73, 0x26, 0x22, 0x28, 0x00, 0x00,                    // をんヴヵヶ, two unused
};

namespace {

constexpr int kLongVowel = 0x213C;

bool in_kana_table(unsigned char column) { return column >= 0x21 && column < 0x21 + kKanaColumns; }

// The code a ー folds to, given the low byte of the code that it lengthens
// (read unfolded, whatever its row), or -1 when it has no neighbour. A ー with
// nothing to lengthen (or a neighbour outside the kana columns) stays ー
// itself: it keeps one code in the key for one code typed.
int fold_long_vowel(int neighbour_column) {
  if (neighbour_column < 0 || !in_kana_table(static_cast<unsigned char>(neighbour_column)))
    return kLongVowel;
  return 0x2400 | kana_vowel[neighbour_column - 0x21];
}

}  // namespace

char* cdfoldkey(char* key) {
  return fold_key(key, {engine.flags, engine.index_id}, engine.fold_buffer);
}

char* fold_key(char* key, KeyMode mode, char* fold_buffer) {
  if (mode.flags & DF_ENGLISH) {
    strncpy(fold_buffer, key, kFoldBufferSize - 1);
    fold_buffer[kFoldBufferSize - 1] = '\0';
    return fold_buffer;
  }
  // A reversed key (backward index) has the lengthened kana behind the ー.
  bool reversed = mode.index_id >= 0x70 && mode.index_id <= 0x7F;
  unsigned char* in = reinterpret_cast<unsigned char*>(key);
  int out = 0;
  for (int i = 0; in[i] != 0 && in[i + 1] != 0 && out < kFoldBufferSize - 2; i += 2) {
    unsigned char high = in[i];
    unsigned char low = in[i + 1];
    int code = -1;
    if (high == 0x23) {
      code = 0x2300 | static_cast<unsigned char>(toupper(low));
    } else if (high == 0x24 || high == 0x25) {
      unsigned char column = low;
      if (!(mode.flags & DF_GROUP_SEARCH) && in_kana_table(low)) column = kana_fold[low - 0x21];
      code = 0x2400 | column;
      if (mode.flags & DF_ENCYCLOPEDIA) in[i] = 0x24;
    } else if (high == 0x21 && low == 0x3C) {
      int neighbour = -1;
      if (!reversed && i >= 2) neighbour = in[i - 1];
      if (reversed && in[i + 2] != 0 && in[i + 3] != 0) neighbour = in[i + 3];
      code = fold_long_vowel(neighbour);
    }
    if (code < 0) continue;  // any other code has no place in a kana key
    fold_buffer[out++] = static_cast<char>(code >> 8);
    fold_buffer[out++] = static_cast<char>(code);
  }
  fold_buffer[out] = '\0';
  return fold_buffer;
}
