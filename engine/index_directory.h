// The index directory at the head of a book's text file: its data areas by
// one-byte identifier, multi-search definitions, and the -V listing.
#ifndef ENGINE_INDEX_DIRECTORY_H_
#define ENGINE_INDEX_DIRECTORY_H_

#include <cstdint>

// Opens the book if needed and goes to its head. For identifier >= 0 gives
// the first page of that area (through the multi-search definition of
// engine.multi_index for 0xFF, which also sets index_id to the component
// read last), or 0 when there is none. engine.found_pages gets the page
// count of the area found (0 when none), for the inspection dumps.
int32_t find_index(int32_t identifier);
// Writes the text of an identifier to output; notes forward indexes.
void describe_index(int32_t identifier);
// The -V listing.
void list_indexes();

#endif  // ENGINE_INDEX_DIRECTORY_H_
