// Index keys in exactly the form a search compares: the typed word goes
// through the engine's own key normalisation (and folding for the kana
// indexes), so a book and its reader can never disagree about a key.
#ifndef TOOLS_INDEX_KEYS_H_
#define TOOLS_INDEX_KEYS_H_

#include <string>

enum class KeyClass { kNone, kKana, kAlphabet, kOther };

// The class by which a search picks 0x90 (kana), 0x92 (alphabet) or 0x91;
// kNone for a word that makes no key at all.
KeyClass key_class(const std::string& typed_sjis);

// The key of `typed_sjis` in the index `identifier` (0x90, 0x91, 0x92 or
// the backward 0x70, 0x71, 0x72): converted, reversed for the backward
// indexes, folded for 0x90 and 0x70. Empty for a word that makes no key.
std::string index_key(const std::string& typed_sjis, int identifier);

#endif  // TOOLS_INDEX_KEYS_H_
