// Book discovery: the built-in dictionaries, found anew at each start in
// the two fixed book folders of the card, "\SD\epwing\plus" and
// "\SD\epwing\wadai", in that order. A folder whose catalog the engine can
// read becomes one entry with book number 0, whatever number of books the
// catalog holds; its title is the books' titles joined by "/", or the
// folder's name when the catalog gave no title. Nothing else on the card
// is looked at.
#ifndef STORE_BOOK_DISCOVERY_H_
#define STORE_BOOK_DISCOVERY_H_

#include <cstdint>

#include "command/engine.h"
#include "store/catalog_text.h"
#include "store/dictionary_list.h"

// Appends the built-in dictionaries to `list` (empty at start) and sets
// `builtinCount` to their number. The catalog text goes into one buffer of
// 512 bytes, which grows when a catalog needs more and then serves the
// next folder too. The engine is given host paths; the entries keep the
// device names.
void DiscoverBooks(DictionaryEntryArray& list, int32_t& builtinCount,
                   CatalogCall catalog = engine_catalog);

#endif  // STORE_BOOK_DISCOVERY_H_
