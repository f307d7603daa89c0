// cdnormkey: a typed Shift-JIS key to the JIS X 0208 string an index holds.
//
// Japanese mode reads the key from the left; each step yields one code:
//   - a byte with the top bit set leads a two-byte Shift-JIS character
//     (half-width katakana bytes included) and goes through sjis_to_jis;
//   - "[" opens a literal code of hexadecimal digits closed by "]", so that
//     an external character can be typed as "[A121]";
//   - any other byte is upper-cased and looked up in ascii_to_jis; under
//     DF_NO_KEY_SYMBOLS a symbol is dropped.
// Codes are never checked: one with a high byte 0 ends the string there.
// For a backward index (0x70..0x7F) the codes are laid down from the end of
// the buffer towards its start, so the key reads reversed by character.
//
// English mode copies the key upper-cased; a backward index reverses it, a
// forward index (0x90..0x9F) gets one blank behind it.
#include <cctype>
#include <cstdio>
#include <cstring>

#include "engine/engine_state.h"
#include "engine/failure.h"
#include "search/search_key.h"
#include "text/ascii_to_jis.h"

namespace {

constexpr int kMaxKeyCodes = (kKeyBufferSize - 1) / 2;

bool backward_index(KeyMode mode) { return mode.index_id >= 0x70 && mode.index_id <= 0x7F; }
bool forward_index(KeyMode mode) { return mode.index_id >= 0x90 && mode.index_id <= 0x9F; }

int hex_digit(unsigned char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// The failure numbers of a bad key: a lead byte without its trail byte, and
// a "[" not closed by "]"; a backward index has numbers of its own.
char* bad_key(KeyMode mode, int backward_number, int other_number) {
  fputs("検索文字列に不当な文字があります\n", engine.std_out);
  engine_fail(backward_index(mode) ? backward_number : other_number);
  return nullptr;
}

char* normalize_english(const char* typed, KeyMode mode, char* key_buffer) {
  int room = kKeyBufferSize - 1;
  if (forward_index(mode)) room -= 1;  // the blank behind the key
  int length = 0;
  while (length < room && typed[length] != '\0') {
    key_buffer[length] = static_cast<char>(toupper(static_cast<unsigned char>(typed[length])));
    ++length;
  }
  key_buffer[length] = '\0';
  if (backward_index(mode)) {
    cdreverse(key_buffer);
  } else if (forward_index(mode)) {
    key_buffer[length] = ' ';
    key_buffer[length + 1] = '\0';
  }
  return key_buffer;
}

}  // namespace

int sjis_to_jis(int code) {
  int high = (code >> 8) & 0xFF;
  int low = code & 0xFF;
  if (high >= 0xE0) high -= 0x40;
  if (low >= 0x80) low -= 1;
  if (low < 0x9E) return ((((high - 0x70) * 2 - 1) & 0xFF) << 8) | ((low - 0x1F) & 0xFF);
  return ((((high - 0x70) * 2) & 0xFF) << 8) | ((low - 0x7D) & 0xFF);
}

int cdreverse(char* text) {
  int length = static_cast<int>(strlen(text));
  for (int i = 0, j = length - 1; i < j; ++i, --j) {
    char byte = text[i];
    text[i] = text[j];
    text[j] = byte;
  }
  return length;
}

char* cdnormkey(const char* typed) {
  return normalize_key(typed, {engine.flags, engine.index_id}, engine.key_buffer);
}

char* normalize_key(const char* typed, KeyMode mode, char* key_buffer) {
  if (mode.flags & DF_ENGLISH) return normalize_english(typed, mode, key_buffer);

  int codes[kMaxKeyCodes];
  int count = 0;
  const unsigned char* p = reinterpret_cast<const unsigned char*>(typed);
  while (*p != '\0' && count < kMaxKeyCodes) {
    if (*p & 0x80) {
      if (p[1] == '\0') return bad_key(mode, 18, 20);
      codes[count++] = sjis_to_jis((p[0] << 8) | p[1]);
      p += 2;
    } else if (*p == '[') {
      int value = 0;
      for (++p; hex_digit(*p) >= 0; ++p) value = (value << 4) | hex_digit(*p);
      if (*p != ']') return bad_key(mode, 19, 21);
      ++p;
      codes[count++] = value & 0xFFFF;
    } else {
      uint32_t entry = ascii_to_jis[toupper(*p) & 0x7F];
      ++p;
      if ((mode.flags & DF_NO_KEY_SYMBOLS) && (entry & kAsciiSymbolBit)) continue;
      codes[count++] = static_cast<int>(entry & 0x7FFF);
    }
  }

  char* key;
  if (backward_index(mode)) {
    key = key_buffer + kKeyBufferSize - 1 - 2 * count;
    for (int i = 0; i < count; ++i) {
      key[2 * (count - 1 - i)] = static_cast<char>(codes[i] >> 8);
      key[2 * (count - 1 - i) + 1] = static_cast<char>(codes[i]);
    }
  } else {
    key = key_buffer;
    for (int i = 0; i < count; ++i) {
      key[2 * i] = static_cast<char>(codes[i] >> 8);
      key[2 * i + 1] = static_cast<char>(codes[i]);
    }
  }
  key[2 * count] = '\0';
  return key;
}
