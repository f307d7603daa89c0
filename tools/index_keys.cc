#include "tools/index_keys.h"

#include "engine/engine_state.h"
#include "search/search_key.h"

std::string index_key(const std::string& typed_sjis, int identifier) {
  // The key a search in Japanese mode makes for this index, in buffers of
  // its own: the engine's state is neither read nor changed.
  const KeyMode mode{0, identifier};
  char key_buffer[kKeyBufferSize];
  char fold_buffer[kFoldBufferSize];
  char* key = normalize_key(typed_sjis.c_str(), mode, key_buffer);
  if (key == nullptr) return "";
  if ((identifier & 0x0F) == 0) key = fold_key(key, mode, fold_buffer);
  return key;
}

KeyClass key_class(const std::string& typed_sjis) {
  const std::string key = index_key(typed_sjis, 0x91);
  if (key.empty()) return KeyClass::kNone;
  if (key_is_kana(key.c_str())) return KeyClass::kKana;
  if (key_in_ascii_rows(key.c_str())) return KeyClass::kAlphabet;
  return KeyClass::kOther;
}
