// The keyword search: the choice of an index and the walk of its tree of
// 2048-byte pages, printing articles, group members and the candidate list
// to output as it goes. Nothing is collected in memory.
#ifndef SEARCH_INDEX_SEARCH_H_
#define SEARCH_INDEX_SEARCH_H_

#include <cstdint>

// One search for the typed Shift-JIS key. index_id and DF_GROUP_SEARCH are
// as they were when it returns.
void cdsearch(const char* typed);

// Bounds the walks that follow to the index area of `page_count` pages from
// `first_page` (a count of 0 means the area's size is not known): pages
// outside it end a walk, and so does a damaged tree that leads round in a
// circle. cdsearch sets it before its first cdwalk.
void set_walk_area(int32_t first_page, int32_t page_count);
// Walks the index page `page` (and the pages behind it while a group runs
// on). 1: the page ended and the key may lie further on; 0: the search is
// over; -1: the walk stopped on a bad page.
int cdwalk(int32_t page);
// Reads an index key of n bytes at the current position and compares `key`
// with it: 0 equal, -1 key a proper prefix of the index key, 1 the index key
// a proper prefix of key, else -2 or 2 by which sorts first (negative: key).
int cdkeycmp(int n, const char* key);
// Prints the group members waiting in head_positions/text_positions.
void cdheadlist();
// Reads a six-byte index position (4-byte page, 2-byte offset) and gives its
// byte position.
int32_t read_index_position();

#endif  // SEARCH_INDEX_SEARCH_H_
