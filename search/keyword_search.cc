// cdsearch: one keyword search, from the typed key to the end of the walk.
#include "engine/engine_state.h"
#include "engine/failure.h"
#include "engine/index_directory.h"
#include "search/index_search.h"
#include "search/search_key.h"

namespace {

// The first page of the index to walk: through the multi-search definition
// when one is selected, else by index_id. An index the book lacks falls back
// once on the generic index of its family (low digit 1).
int32_t find_search_index() {
  int32_t identifier = engine.multi_index > 0 ? 0xFF : engine.index_id;
  int32_t page = find_index(identifier);
  if (page != 0) return page;
  engine.index_id = (engine.index_id & ~0xF) | 1;
  return find_index(engine.multi_index > 0 ? 0xFF : engine.index_id);
}

}  // namespace

void cdsearch(const char* typed) {
  const int32_t saved_index = engine.index_id;
  bool automatic;
  char* key = start_search_key(typed, &automatic);
  if (key != nullptr && key[0] != '\0') {
    engine.search_string = engine.normalized_key = key;
    int32_t page = find_search_index();
    if (page == 0) {
      engine_fail(24);
    } else {
      if (engine.index_id != 0xA0 && (engine.index_id & 0xD0) == 0x80)
        engine.flags |= DF_GROUP_SEARCH;
      finish_search_keys(typed, key, automatic);
      set_walk_area(page, engine.found_pages);
      while (cdwalk(page) > 0) ++page;
    }
  }
  engine.flags &= ~DF_GROUP_SEARCH;
  engine.index_id = saved_index;
}
