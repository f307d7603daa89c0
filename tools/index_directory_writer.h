// Bytes of the index directory of a book: the directory page and the
// pages of multi-search definitions it points at (big-endian, as in books).
#ifndef TOOLS_INDEX_DIRECTORY_WRITER_H_
#define TOOLS_INDEX_DIRECTORY_WRITER_H_

#include <cstdint>
#include <string>
#include <vector>

// A directory entry, or a component of a multi-search definition.
struct AreaEntry {
  int identifier;      // one byte: 0x00 body text, 0x91 forward index, 0xFF definitions...
  int32_t first_page;  // first page of the area, from 1
  int32_t page_count;  // pages of the area
};

struct MultiSearchDefinition {
  std::string title;                   // as stored: JIS codes, or English text; up to 30 bytes
  std::vector<AreaEntry> components;   // in the order a search tries them
};

// The 16 bytes of one entry.
std::string area_entry_bytes(const AreaEntry& entry);
// The directory page: entry count, 14 bytes, the entries; padded to a page.
std::string index_directory_page(const std::vector<AreaEntry>& entries);
// A page of multi-search definitions: count, 14 bytes, the definitions;
// padded to whole pages.
std::string multi_search_page(const std::vector<MultiSearchDefinition>& definitions);

#endif  // TOOLS_INDEX_DIRECTORY_WRITER_H_
