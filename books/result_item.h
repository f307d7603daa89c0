// One article or one forward-match candidate of the latest lookup.
#ifndef BOOKS_RESULT_ITEM_H_
#define BOOKS_RESULT_ITEM_H_

#include <vector>

#include "platform/wide_string.h"

struct ResultItem {
  CString head;  // article: its first line; candidate: the whole line, brackets and all
  CString body;  // article: all its lines joined by "\r\n"; candidate: its search key
};

// ArticleList and CandidateList are arrays of this record, in file order.
using ResultItemArray = std::vector<ResultItem>;

#endif  // BOOKS_RESULT_ITEM_H_
