// The dictionaries offered for lookup, in order of arrival: the built-in
// ones that book discovery found (the first builtinCount entries, found
// anew at each start, never stored and never deleted), then the registered
// ones in the order the settings file numbers them, then those registered
// during the run. Nothing sorts the list or looks for duplicates.
#ifndef STORE_DICTIONARY_LIST_H_
#define STORE_DICTIONARY_LIST_H_

#include <cstdint>
#include <vector>

#include "platform/wide_string.h"
#include "store/dictionary_entry.h"

using DictionaryEntryArray = std::vector<DictionaryEntry>;

// Appends a copy of `entry`; returns its index.
int32_t AppendDictionary(DictionaryEntryArray& list, const DictionaryEntry& entry);

// Deletes the registered entry at `index`. Refused (false, nothing
// changes) for a built-in entry or an index outside the list. Behind the
// removal `selection` moves to the new last entry if it now stands beyond
// the list (-1 when the list is empty).
bool DeleteRegisteredDictionary(DictionaryEntryArray& list, int32_t builtinCount, int32_t index,
                                int32_t& selection);

#endif  // STORE_DICTIONARY_LIST_H_
