// A search index area of any size: leaf pages filled as far as their 2048
// bytes allow, branch levels over them up to a single root.
#ifndef TOOLS_INDEX_AREA_H_
#define TOOLS_INDEX_AREA_H_

#include <cstdint>
#include <string>
#include <vector>

#include "tools/index_tree_writer.h"

// The pages of a plain index (leaf identifier 0x80) over `sorted`, whose
// keys must already stand in byte order, starting at `first_page`: the root
// branch page first, the levels below it, the leaves last. Each branch key
// is the last key of its child, padded with zeros to the page's longest.
// The entries are taken, not copied: a large book has hundreds of thousands.
std::string index_area(std::vector<IndexLeafEntry> sorted, int32_t first_page);

#endif  // TOOLS_INDEX_AREA_H_
