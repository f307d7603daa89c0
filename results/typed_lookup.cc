#include "results/typed_lookup.h"

#include <utility>

#include "results/typed_word_forms.h"

int32_t LookupAsTyped(Books& books, const CString& path, int32_t bookNumber, const CString& word,
                      ResultItemArray& articles, ResultItemArray& candidates, CString& foundAs) {
  foundAs.Empty();
  const int32_t result = books.Lookup(path, bookNumber, word, articles, candidates);
  if (result != 0 || !articles.empty()) return result;
  for (const CString& form : TypedWordForms(word)) {
    ResultItemArray formArticles, formCandidates;
    const int32_t formResult = books.Lookup(path, bookNumber, form, formArticles, formCandidates);
    // A folder gone between two lookups ends the tries; the word's own
    // results stay. A form whose run was stopped with nothing found ends
    // them too, and says so: the next forms would wait as long again.
    if (formResult < 0) break;
    if (formResult != 0 && formArticles.empty()) return formResult;
    if (!formArticles.empty()) {
      articles = std::move(formArticles);
      candidates = std::move(formCandidates);
      foundAs = form;
      return formResult;
    }
  }
  return 0;
}
