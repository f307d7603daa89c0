// The other forms in which the reader tries a typed word that found no
// article. Writers file keys without blanks and symbols (ICECREAM,
// アラカルト), users type full-width letters, or romaji on a keyboard
// without a Japanese input method. Each form builds on the one before:
//   1. the word without blanks (U+0020, U+3000, tab) and the symbols
//      ・ ･ ‐ － -;
//   2. that, with full-width letters and digits made ASCII;
//   3. when that reads whole as romaji, its hiragana.
// A form that equals the word or an earlier form is left out, so the list
// holds only lookups that can find something new.
#ifndef RESULTS_TYPED_WORD_FORMS_H_
#define RESULTS_TYPED_WORD_FORMS_H_

#include <vector>

#include "platform/wide_string.h"

// `word` without blanks and the symbols ・･‐－-.
CString WithoutBlanksAndSymbols(const CString& word);

// `word` with full-width letters Ａ-Ｚ ａ-ｚ and digits ０-９ made ASCII.
CString WithAsciiLettersAndDigits(const CString& word);

// The forms of `word` to try after it, in order, each new.
std::vector<CString> TypedWordForms(const CString& word);

#endif  // RESULTS_TYPED_WORD_FORMS_H_
