// The classes of a search key that choose between the kana, alphabet and
// generic index of a family. Both walk the JIS string by two bytes; a high
// byte 0, or a string that ends inside a pair, ends the walk. An empty
// string is in both classes.
#include "search/search_key.h"

int key_in_ascii_rows(const char* key) {
  // The comparison is signed on purpose: bytes from 0x80 up are out.
  for (const signed char* p = reinterpret_cast<const signed char*>(key); p[0] != 0 && p[1] != 0;
       p += 2) {
    if (p[0] < 0x21 || p[0] > 0x23) return 0;
  }
  return 1;
}

int key_is_kana(const char* key) {
  for (const unsigned char* p = reinterpret_cast<const unsigned char*>(key); p[0] != 0 && p[1] != 0;
       p += 2) {
    bool kana_row = p[0] == 0x24 || p[0] == 0x25;
    bool long_vowel = p[0] == 0x21 && p[1] == 0x3C;
    if (!kana_row && !long_vowel) return 0;
  }
  return 1;
}
