#include "store/dictionary_list.h"

int32_t AppendDictionary(DictionaryEntryArray& list, const DictionaryEntry& entry) {
  list.push_back(entry);
  return static_cast<int32_t>(list.size()) - 1;
}

bool DeleteRegisteredDictionary(DictionaryEntryArray& list, int32_t builtinCount, int32_t index,
                                int32_t& selection) {
  if (index < builtinCount || index < 0 || index >= static_cast<int32_t>(list.size())) return false;
  list.erase(list.begin() + index);
  int32_t count = static_cast<int32_t>(list.size());
  if (selection >= count) selection = count - 1;
  return true;
}
