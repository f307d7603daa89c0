#include "tools/index_directory_writer.h"

namespace {

constexpr size_t kPage = 2048;
constexpr size_t kTitleBytes = 30;

void put_word(std::string& bytes, uint32_t value) {
  bytes += static_cast<char>((value >> 8) & 0xFF);
  bytes += static_cast<char>(value & 0xFF);
}

void put_long(std::string& bytes, uint32_t value) {
  put_word(bytes, value >> 16);
  put_word(bytes, value & 0xFFFF);
}

void pad_to_pages(std::string& bytes) {
  bytes.resize((bytes.size() + kPage - 1) / kPage * kPage, '\0');
}

}  // namespace

std::string area_entry_bytes(const AreaEntry& entry) {
  std::string bytes(1, static_cast<char>(entry.identifier));
  bytes += '\0';
  put_long(bytes, static_cast<uint32_t>(entry.first_page));
  put_long(bytes, static_cast<uint32_t>(entry.page_count));
  bytes.append(6, '\0');
  return bytes;
}

std::string index_directory_page(const std::vector<AreaEntry>& entries) {
  std::string bytes;
  put_word(bytes, static_cast<uint32_t>(entries.size()));
  bytes.append(14, '\0');
  for (const AreaEntry& entry : entries) bytes += area_entry_bytes(entry);
  pad_to_pages(bytes);
  return bytes;
}

std::string multi_search_page(const std::vector<MultiSearchDefinition>& definitions) {
  std::string bytes;
  put_word(bytes, static_cast<uint32_t>(definitions.size()));
  bytes.append(14, '\0');
  for (const MultiSearchDefinition& definition : definitions) {
    bytes += static_cast<char>(definition.components.size());
    bytes += '\0';
    std::string title = definition.title.substr(0, kTitleBytes);
    title.resize(kTitleBytes, '\0');
    bytes += title;
    for (const AreaEntry& component : definition.components) bytes += area_entry_bytes(component);
  }
  pad_to_pages(bytes);
  return bytes;
}
