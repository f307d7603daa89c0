// Books whose entries run on. Some writers start every entry with the code
// 0x1F41 (the start of its head word) and end none with the end code
// 0x1F03: the engine, which ends an article at an end code, would run such
// an article on into the following entries. A lookup in such a book has
// the engine end an article at the next 0x1F41 too (-S0x20); all other
// books keep their articles as they are, a 0x1F41 inside an article
// included.
//
// The book itself tells which kind it is: the engine's listing (-V) gives
// the first page of the body text, and a word dump of the first 1024
// words there (-S0x2000 -P<page>, the dump's own length) shows how the
// first entries start and end; a first entry longer than that leaves the
// book as it is. Both runs write to the work file, so a look
// belongs right before a lookup, which deletes it again.
#ifndef RESULTS_RUN_ON_ENTRIES_H_
#define RESULTS_RUN_ON_ENTRIES_H_

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/wide_string.h"

// What a look at a book found.
enum EntryEnds : int32_t {
  ENTRY_ENDS_UNKNOWN = -1,  // not looked at, or the book could not be read
  ENTRY_ENDS_BY_CODE = 0,   // entries end by an end code, or it can't be told
  ENTRY_ENDS_RUN_ON = 1,    // entries start with 0x1F41 and run on
};

// Looks at book `bookNumber` of the folder `path` (a device name).
EntryEnds LookAtEntryEnds(const CString& path, int32_t bookNumber);

// The first page of the body text from one line of the -V listing
// (" 0x00:     2-    2\t..."); 0 when the line is of another area.
int32_t BodyTextPage(std::string_view listingLine);

// Appends the words of one line of a word dump
// ("     2048(000001 0000): 1F02 1F09 ...") to `words`.
void AppendDumpedWords(std::string_view dumpLine, std::vector<uint16_t>& words);

// The verdict on the first words of a body text: they run on when the
// text (behind the start code 0x1F02 and margins) starts with 0x1F41, a
// later 0x1F41 starts a line too, and no end code 0x1F03 stands before
// such a later head. An end code behind the last head (the end of the
// whole text) doesn't count, nor does anything behind the end of the data
// (0x0000). Operands are stepped over as the decoder reads them, so an
// operand never counts as a code.
bool EntriesRunOn(const std::vector<uint16_t>& words);

#endif  // RESULTS_RUN_ON_ENTRIES_H_
