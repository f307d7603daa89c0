// The steps that make a typed key ready for the walk, on both sides of the
// index lookup of cdsearch.
#include <cstring>

#include "engine/engine_state.h"
#include "search/search_key.h"

namespace {

// The encyclopedia's kana indexes hold no final ー: a typed key that ends
// in one (Shift-JIS 0x81 0x5B) loses it. A reversed key has it first.
char* drop_final_long_vowel(const char* typed, char* key) {
  size_t typed_length = strlen(typed);
  if (typed_length < 2 || static_cast<unsigned char>(typed[typed_length - 2]) != 0x81 ||
      static_cast<unsigned char>(typed[typed_length - 1]) != 0x5B)
    return key;
  size_t length = strlen(key);
  if (length < 2) return key;
  if (engine.index_id >= 0x70 && engine.index_id <= 0x7F) return key + 2;
  if (engine.index_id >= 0x90 && engine.index_id <= 0x9F) key[length - 2] = '\0';
  return key;
}

// key_length counts two bytes a character in both modes. A reversed key is
// cut the same way, which keeps its last typed characters. A limit at or
// beyond the key's length writes nothing.
void cut_to_key_length(char* key) {
  if (engine.key_length <= 0) return;
  size_t length = strlen(key);
  if (static_cast<size_t>(engine.key_length) < (length + 1) / 2)
    key[2 * static_cast<size_t>(engine.key_length)] = '\0';
}

}  // namespace

char* start_search_key(const char* typed, bool* automatic) {
  *automatic = engine.index_id < 0;
  if (*automatic) engine.index_id = engine.index_id == -1 ? 0x91 : 0x71;
  char* key = cdnormkey(typed);
  if (key == nullptr || key[0] == '\0' || !*automatic || (engine.flags & DF_ENGLISH)) return key;
  if (key_is_kana(key)) {
    engine.index_id -= 1;
  } else if (key_in_ascii_rows(key)) {
    engine.index_id += 1;
  }
  return key;
}

void finish_search_keys(const char* typed, char* key, bool automatic) {
  if (engine.flags & DF_ENCYCLOPEDIA) key = drop_final_long_vowel(typed, key);
  char* normalized = key;
  if (automatic && (engine.index_id & 0xF) == 0) normalized = cdfoldkey(key);
  cut_to_key_length(key);
  cut_to_key_length(normalized);
  engine.search_string = key;
  engine.normalized_key = normalized;
}
