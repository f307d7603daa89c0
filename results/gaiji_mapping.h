// One row of a dictionary's Braille gaiji table: what an external
// character's code text becomes on the display.
#ifndef RESULTS_GAIJI_MAPPING_H_
#define RESULTS_GAIJI_MAPPING_H_

#include <vector>

#include "platform/wide_string.h"

struct GaijiMapping {
  CString codeText;     // "[%04X]" of the character's number, as the decoder writes it
  CString replacement;  // the text that stands for it
};

// GaijiTable is an array of this record, in file order; codes may repeat.
using GaijiMappingArray = std::vector<GaijiMapping>;

#endif  // RESULTS_GAIJI_MAPPING_H_
