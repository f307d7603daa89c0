#include "results/typed_lookup.h"

#include <utility>

#include "results/lookup.h"
#include "results/typed_word_forms.h"

int32_t LookupAsTyped(const CString& path, int32_t bookNumber, const CString& word, bool endAtHeads,
                      ResultItemArray& articles, ResultItemArray& candidates,
                      GaijiMappingArray& gaiji, CString& foundAs) {
  foundAs.Empty();
  const int32_t result =
      LookupWord(path, bookNumber, word, articles, candidates, gaiji, kLookupLimits, endAtHeads);
  if (result != 0 || !articles.empty()) return result;
  for (const CString& form : TypedWordForms(word)) {
    ResultItemArray formArticles, formCandidates;
    const int32_t formResult = LookupWord(path, bookNumber, form, formArticles, formCandidates,
                                          gaiji, kLookupLimits, endAtHeads);
    // A folder gone between two lookups ends the tries; the word's own
    // results stay.
    if (formResult < 0) break;
    if (!formArticles.empty()) {
      articles = std::move(formArticles);
      candidates = std::move(formCandidates);
      foundAs = form;
      return formResult;
    }
  }
  return 0;
}
