#include "tools/index_area.h"

#include <algorithm>

namespace {

constexpr size_t kPage = 2048;
constexpr size_t kPageHead = 4;     // identifier, a byte, entry count
constexpr size_t kPositions = 12;   // TEXT and HEAD, six bytes each

// One level of branch pages over children with the upper bounds `bounds`:
// the children each page takes, as many as fit with the page's key length.
std::vector<std::vector<size_t>> group_children(const std::vector<std::string>& bounds) {
  std::vector<std::vector<size_t>> pages;
  size_t key_length = 1;
  for (size_t child = 0; child < bounds.size(); ++child) {
    const size_t longer = std::max(key_length, bounds[child].size());
    const size_t count = pages.empty() ? 0 : pages.back().size();
    if (pages.empty() || kPageHead + (count + 1) * (longer + 4) > kPage) {
      pages.emplace_back();
      key_length = std::max<size_t>(1, bounds[child].size());
    } else {
      key_length = longer;
    }
    pages.back().push_back(child);
  }
  return pages;
}

}  // namespace

std::string index_area(std::vector<IndexLeafEntry> sorted, int32_t first_page) {
  // Leaves, filled in key order.
  std::vector<std::vector<IndexLeafEntry>> leaves(1);
  size_t used = kPageHead;
  for (IndexLeafEntry& entry : sorted) {
    const size_t size = 1 + entry.key.size() + kPositions;
    if (used + size > kPage) {
      leaves.emplace_back();
      used = kPageHead;
    }
    leaves.back().push_back(std::move(entry));
    used += size;
  }
  std::vector<std::string> bounds;
  for (const auto& leaf : leaves) bounds.push_back(leaf.empty() ? std::string() : leaf.back().key);

  // Branch levels from the leaves up, until one page holds them all;
  // bounds_below[k] holds the upper bounds of the pages of height k.
  std::vector<std::vector<std::vector<size_t>>> levels;  // levels[0] is above the leaves
  std::vector<std::vector<std::string>> bounds_below{bounds};
  do {
    levels.push_back(group_children(bounds_below.back()));
    std::vector<std::string> upper;
    for (const auto& page : levels.back()) upper.push_back(bounds_below.back()[page.back()]);
    bounds_below.push_back(upper);
  } while (levels.back().size() > 1);

  // Page numbers from the root down, leaves last. Height 0 is the leaves,
  // height k + 1 the pages of levels[k].
  std::vector<int32_t> first_of_level(levels.size() + 1);
  int32_t page = first_page;
  for (size_t level = levels.size(); level-- > 0;) {
    first_of_level[level + 1] = page;
    page += static_cast<int32_t>(levels[level].size());
  }
  first_of_level[0] = page;  // the leaves

  std::string area;
  area.reserve((static_cast<size_t>(page - first_page) + leaves.size()) * kPage);
  for (size_t level = levels.size(); level-- > 0;) {
    for (const auto& children : levels[level]) {
      std::vector<BranchEntry> entries;
      size_t key_length = 1;
      for (size_t child : children) {
        entries.push_back({bounds_below[level][child], first_of_level[level] + static_cast<int32_t>(child)});
        key_length = std::max(key_length, bounds_below[level][child].size());
      }
      area += branch_page(entries, static_cast<int>(key_length));
    }
  }
  for (const auto& leaf : leaves) area += leaf_page(leaf, LeafLayout::kPlain);
  return area;
}
