// Bytes of a search index: branch pages over leaf pages, in the plain
// layout or with group entries (both group-search layouts), the one place
// where index pages are written.
//
//   std::vector<IndexLeafEntry> entries = {{0x00, jis("はな"), text, head}};
//   book.text.add_area(0x90, index_tree(entries, book.text.next_page(), shape));
#ifndef TOOLS_INDEX_TREE_WRITER_H_
#define TOOLS_INDEX_TREE_WRITER_H_

#include <cstdint>
#include <string>
#include <vector>

// One entry of a leaf page.
struct IndexLeafEntry {
  int type = 0x00;   // group pages: 0x00 single, 0x80 group head, 0xC0 member; ignored on plain pages
  std::string key;   // bytes as the walk compares them (folded for a kana index); unused by
                     // members of the group-search layouts
  int32_t text = 0;  // position of the article (TEXT)
  int32_t head = 0;  // position of the head line (HEAD)
  int members = 0;   // group head: member count, 0 for too many to count
};

enum class LeafLayout {
  kPlain,            // identifier 0x80: key, TEXT, HEAD
  kGroup,            // identifier 0x90, the layout of an ordinary search
  kGroupSearchEven,  // 0x90 read with DF_GROUP_SEARCH, even index: heads follow the group's HEAD
  kGroupSearchOdd,   // 0x90 read with DF_GROUP_SEARCH, odd index: members bring their HEAD
};

struct IndexTreeShape {
  LeafLayout layout = LeafLayout::kPlain;
  int leaf_entries = 4;        // entries a leaf page holds
  int fanout = 4;              // children a branch page holds; more leaves give more levels
  int branch_key_length = 0;   // n of the branch pages; 0 for the longest leaf key
};

// A child of a branch page: its upper bound and its page.
struct BranchEntry {
  std::string key;
  int32_t child;
};

// The pages of an index area starting at `first_page`: the root branch page
// first (there is always one), the levels below it, the leaves last. Each
// branch key is the last key of its child, folded-key entries only: members
// sort by their head. kPlain sorts the entries by key, byte by byte (stable);
// the group layouts keep the order given, a group running on over the end
// of a leaf as it comes. Throws std::invalid_argument when a page overflows.
std::string index_tree(std::vector<IndexLeafEntry> entries, int32_t first_page,
                       const IndexTreeShape& shape = {});

// One leaf page of 2048 bytes.
std::string leaf_page(const std::vector<IndexLeafEntry>& entries, LeafLayout layout);
// One branch page of 2048 bytes; keys are cut or padded with zeros to
// `key_length`.
std::string branch_page(const std::vector<BranchEntry>& entries, int key_length,
                        int identifier = 0x00);

#endif  // TOOLS_INDEX_TREE_WRITER_H_
