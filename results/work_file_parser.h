// The work file that a lookup's engine run leaves behind, parsed into the
// articles and the forward-match candidates of the lookup. A pure function
// of the file's bytes, so anything may be fed to it.
#ifndef RESULTS_WORK_FILE_PARSER_H_
#define RESULTS_WORK_FILE_PARSER_H_

#include <string_view>

#include "platform/wide_string.h"
#include "books/result_item.h"

// The text an article keeps at most, in characters; what it had beyond
// is replaced by the line kArticleCutMark.
constexpr int kArticleLimit = 100000;
extern const char16_t kArticleCutMark[];

// Appends the articles and candidates that `bytes` (the work file) holds to
// `articles` and `candidates`. Lines are cut as a read of at most 1023
// bytes cuts them: a longer physical line arrives as several lines, each
// cut before a two-byte character it would split. An article left open at
// the end is thrown away, unless `cutShort` says that the engine was
// stopped in it: then it is kept, with the cut mark.
void ParseWorkFile(std::string_view bytes, ResultItemArray& articles,
                   ResultItemArray& candidates, bool cutShort = false);

// The search key of a candidate line (already trimmed): its brackets cut
// in the order of the bracket pair table, then the "○" rule, or the
// separators removed and the run of characters of the first character's
// width taken from the start. Empty when the line gives no key.
CString CandidateSearchKey(const CString& line);

#endif  // RESULTS_WORK_FILE_PARSER_H_
