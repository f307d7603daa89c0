// Harness: the work file of a lookup made of the fuzzer's bytes, parsed
// into articles and candidates, each shown through the display filters
// under every combination of the five options.
#include <cstdint>
#include <string_view>

#include "results/display_filter.h"
#include "results/work_file_parser.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  ResultItemArray articles;
  ResultItemArray candidates;
  ParseWorkFile(bytes, articles, candidates);

  // Replacements that bring codes, slashes and marks of their own.
  const GaijiMappingArray gaiji = {
      {u"[A121]", u"[A122]"}, {u"[A122]", u"/x/"}, {u"[B021]", u"a\uFF65b<\u2192c|1>"}};

  for (int bits = 0; bits < 32; ++bits) {
    DisplayOptions options{bits & 1, bits >> 1 & 1, bits >> 2 & 1, bits >> 3 & 1, bits >> 4 & 1};
    for (const ResultItemArray* list : {&articles, &candidates}) {
      for (const ResultItem& item : *list) {
        FilterDisplayText(item.head, options, gaiji);
        FilterDisplayText(item.body, options, gaiji);
      }
    }
  }
  for (const ResultItem& item : candidates) CandidateSearchKey(item.head);
  return 0;
}
