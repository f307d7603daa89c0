// A lookup of a word as the user typed it. Writers file keys in their own
// way (ICECREAM, アラカルト) and users type what their keyboard gives
// (ａｐｐｌｅ, hana): when the word itself finds no article, its forms
// (results/typed_word_forms.h) are looked up in turn, and the first that
// finds articles gives the results. The candidates stay as the engine
// listed them for that lookup.
#ifndef RESULTS_TYPED_LOOKUP_H_
#define RESULTS_TYPED_LOOKUP_H_

#include <cstdint>

#include "books/books.h"
#include "platform/wide_string.h"

// books.Lookup of `word`, then of its forms while no article is found; the
// result of the lookup whose lists are kept (kLookupStopped for a run
// stopped at its limits; when the word's own run stopped, nothing more is
// tried). `foundAs` is the form
// whose results the lists hold, or empty when they are the word's own: it
// found articles, or no form did (then the lists hold what the word
// itself found, candidates included). -1, with nothing tried after it,
// when the folder holds no catalog.
int32_t LookupAsTyped(Books& books, const CString& path, int32_t bookNumber, const CString& word,
                      ResultItemArray& articles, ResultItemArray& candidates, CString& foundAs);

#endif  // RESULTS_TYPED_LOOKUP_H_
