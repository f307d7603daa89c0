// A lookup: the one way the application asks a book for a word. It proves
// that the dictionary's folder still holds a catalog, runs the engine into
// the work file "\windows\epwingwork.dat", reloads the dictionary's Braille
// gaiji table, and parses the work file into the articles and the
// forward-match candidates. The lists keep the engine's text as it stands;
// the display filters act only when it is shown.
#ifndef RESULTS_LOOKUP_H_
#define RESULTS_LOOKUP_H_

#include <cstdint>

#include "platform/wide_string.h"
#include "results/bounded_run.h"
#include "results/gaiji_mapping.h"
#include "results/result_item.h"

// The work file's device name. It is deleted before each run, written by
// the engine and left behind until the next lookup.
extern const char16_t kWorkFileName[];

// The limits of the engine's run for a lookup: a few seconds, and a work
// file of a few megabytes.
extern const RunLimits kLookupLimits;

// LookupWord's result when the engine was stopped before its end, out of
// time, at the work file's limit, or failing: the lists hold what it
// wrote until then, an article it was writing marked as cut.
constexpr int32_t kLookupStopped = 1;

// Looks `word` up in book `bookNumber` of the folder `path` (a device
// name). The word is always a search, whatever it begins with: never an
// option of the engine, its prompt loop, nor a position in the book. The
// engine runs under `limits` (see RunBounded). Empties `articles` and `candidates` first in every case. Returns
// -1, with `gaiji` and the work file untouched and the engine not run,
// when the folder holds no catalog; kLookupStopped; otherwise 0, whatever
// was found. With `endAtHeads` the engine ends an article at the next head
// word's start (0x1F41) too: for books whose entries run on
// (run_on_entries.h).
int32_t LookupWord(const CString& path, int32_t bookNumber, const CString& word,
                   ResultItemArray& articles, ResultItemArray& candidates,
                   GaijiMappingArray& gaiji, const RunLimits& limits = kLookupLimits,
                   bool endAtHeads = false);

#endif  // RESULTS_LOOKUP_H_
