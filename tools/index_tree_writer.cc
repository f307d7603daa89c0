#include "tools/index_tree_writer.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr size_t kPage = 2048;

void put_word(std::string& out, uint32_t value) {
  out += static_cast<char>(value >> 8);
  out += static_cast<char>(value);
}

void put_long(std::string& out, uint32_t value) {
  put_word(out, value >> 16);
  put_word(out, value & 0xFFFF);
}

// Six bytes: page (from 1) and offset in it.
void put_position(std::string& out, int32_t position) {
  put_long(out, static_cast<uint32_t>(position / 2048 + 1));
  put_word(out, static_cast<uint32_t>(position % 2048));
}

void put_key(std::string& out, const std::string& key) {
  if (key.size() > 255) throw std::invalid_argument("index key longer than 255 bytes");
  out += static_cast<char>(key.size());
  out += key;
}

std::string finish_page(std::string page) {
  if (page.size() > kPage) throw std::invalid_argument("index page overflows");
  page.resize(kPage, '\0');
  return page;
}

void put_leaf_entry(std::string& out, const IndexLeafEntry& entry, LeafLayout layout) {
  const bool group_search = layout == LeafLayout::kGroupSearchEven || layout == LeafLayout::kGroupSearchOdd;
  if (layout != LeafLayout::kPlain) out += static_cast<char>(entry.type);
  if (layout == LeafLayout::kPlain || entry.type == 0x00 || (entry.type == 0xC0 && !group_search)) {
    put_key(out, entry.key);
    put_position(out, entry.text);
    put_position(out, entry.head);
  } else if (entry.type == 0x80) {
    if (entry.key.size() > 255) throw std::invalid_argument("index key longer than 255 bytes");
    out += static_cast<char>(entry.key.size());
    if (group_search) put_word(out, 0);  // the word the search doesn't use
    put_word(out, static_cast<uint32_t>(entry.members));
    out += entry.key;
    if (layout == LeafLayout::kGroupSearchEven) put_position(out, entry.head);
  } else if (entry.type == 0xC0) {
    put_position(out, entry.text);
    if (layout == LeafLayout::kGroupSearchOdd) put_position(out, entry.head);
  }
  // Any other type is written as the bare byte: a damaged entry.
}

}  // namespace

std::string leaf_page(const std::vector<IndexLeafEntry>& entries, LeafLayout layout) {
  std::string page;
  page += static_cast<char>(layout == LeafLayout::kPlain ? 0x80 : 0x90);
  page += '\0';
  put_word(page, static_cast<uint32_t>(entries.size()));
  for (const IndexLeafEntry& entry : entries) put_leaf_entry(page, entry, layout);
  return finish_page(page);
}

std::string branch_page(const std::vector<BranchEntry>& entries, int key_length, int identifier) {
  std::string page;
  page += static_cast<char>(identifier);
  page += static_cast<char>(key_length);
  put_word(page, static_cast<uint32_t>(entries.size()));
  for (const BranchEntry& entry : entries) {
    std::string key = entry.key;
    key.resize(static_cast<size_t>(key_length), '\0');
    page += key;
    put_long(page, static_cast<uint32_t>(entry.child));
  }
  return finish_page(page);
}

std::string index_tree(std::vector<IndexLeafEntry> entries, int32_t first_page,
                       const IndexTreeShape& shape) {
  if (shape.leaf_entries < 1 || shape.fanout < 2) throw std::invalid_argument("bad tree shape");
  if (shape.layout == LeafLayout::kPlain) {
    std::stable_sort(entries.begin(), entries.end(),
                     [](const IndexLeafEntry& a, const IndexLeafEntry& b) { return a.key < b.key; });
  }

  // The leaves, each with its upper bound: the last key that is not a
  // member's (members sort by their group head).
  std::vector<std::vector<IndexLeafEntry>> leaves;
  std::vector<std::string> bounds;
  std::string bound;
  size_t longest = 1;
  for (size_t i = 0; i < entries.size(); ++i) {
    if (i % static_cast<size_t>(shape.leaf_entries) == 0) leaves.emplace_back();
    leaves.back().push_back(entries[i]);
    if (shape.layout == LeafLayout::kPlain || entries[i].type != 0xC0) bound = entries[i].key;
    longest = std::max(longest, entries[i].key.size());
    if (leaves.back().size() == static_cast<size_t>(shape.leaf_entries) || i + 1 == entries.size())
      bounds.push_back(bound);
  }
  if (leaves.empty()) {
    leaves.emplace_back();
    bounds.emplace_back();
  }
  const int key_length = shape.branch_key_length > 0 ? shape.branch_key_length : static_cast<int>(longest);

  // Level sizes from the leaves up to one root; then pages are numbered
  // from the root down.
  std::vector<size_t> level_sizes{leaves.size()};
  do {
    level_sizes.push_back((level_sizes.back() + shape.fanout - 1) / shape.fanout);
  } while (level_sizes.back() > 1);
  std::vector<int32_t> level_first(level_sizes.size());
  int32_t page = first_page;
  for (size_t level = level_sizes.size(); level-- > 0;) {
    level_first[level] = page;
    page += static_cast<int32_t>(level_sizes[level]);
  }

  // Pages of each level, top-down in the output; built bottom-up.
  std::vector<std::string> level_bytes(level_sizes.size());
  for (const auto& leaf : leaves) level_bytes[0] += leaf_page(leaf, shape.layout);
  std::vector<std::string> child_bounds = bounds;
  for (size_t level = 1; level < level_sizes.size(); ++level) {
    std::vector<std::string> next_bounds;
    for (size_t start = 0; start < child_bounds.size(); start += static_cast<size_t>(shape.fanout)) {
      std::vector<BranchEntry> children;
      size_t end = std::min(child_bounds.size(), start + static_cast<size_t>(shape.fanout));
      for (size_t c = start; c < end; ++c)
        children.push_back({child_bounds[c], level_first[level - 1] + static_cast<int32_t>(c)});
      level_bytes[level] += branch_page(children, key_length);
      next_bounds.push_back(child_bounds[end - 1]);
    }
    child_bounds = next_bounds;
  }
  std::string area;
  for (size_t level = level_sizes.size(); level-- > 0;) area += level_bytes[level];
  return area;
}
