#include "tools/index_keys.h"

#include <cstdint>

#include "engine/engine_state.h"
#include "search/search_key.h"

namespace {

// Runs `step` with the engine in Japanese mode on `identifier`, and puts
// the two fields back behind it.
template <typename Step>
std::string with_key_state(int identifier, Step step) {
  const uint32_t flags = engine.flags;
  const int32_t index_id = engine.index_id;
  const int32_t key_length = engine.key_length;
  engine.flags = 0;
  engine.index_id = identifier;
  engine.key_length = 0;
  std::string result = step();
  engine.flags = flags;
  engine.index_id = index_id;
  engine.key_length = key_length;
  return result;
}

}  // namespace

std::string index_key(const std::string& typed_sjis, int identifier) {
  return with_key_state(identifier, [&]() -> std::string {
    char* key = cdnormkey(typed_sjis.c_str());
    if (key == nullptr) return "";
    if ((identifier & 0x0F) == 0) key = cdfoldkey(key);
    return key;
  });
}

KeyClass key_class(const std::string& typed_sjis) {
  const std::string key = index_key(typed_sjis, 0x91);
  if (key.empty()) return KeyClass::kNone;
  if (key_is_kana(key.c_str())) return KeyClass::kKana;
  if (key_in_ascii_rows(key.c_str())) return KeyClass::kAlphabet;
  return KeyClass::kOther;
}
