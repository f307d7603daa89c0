#include "tools/catalog_writer.h"

#include <stdexcept>

namespace {

constexpr size_t kDirectoryBytes = 8;

std::string padded(const std::string& text, size_t size, char pad, const char* what) {
  if (text.size() > size) throw std::invalid_argument(std::string(what) + " too long: " + text);
  std::string field = text;
  field.resize(size, pad);
  return field;
}

}  // namespace

size_t catalog_title_size(BookType type) { return type == BookType::kElectronicBook ? 30 : 80; }

std::string catalog_bytes(BookType type, const std::vector<CatalogRecord>& records,
                          uint16_t count) {
  const size_t title_size = catalog_title_size(type);
  if (type == BookType::kEncyclopedia) {
    const std::string title = records.empty() ? "" : records.front().title;
    return std::string(6, '\0') + padded(title, title_size, '\0', "title");
  }
  std::string bytes;
  bytes += static_cast<char>(count >> 8);
  bytes += static_cast<char>(count & 0xFF);
  bytes.append(14, '\0');
  for (const CatalogRecord& record : records) {
    bytes.append(2, '\0');
    bytes += padded(record.title, title_size, '\0', "title");
    bytes += padded(record.directory, kDirectoryBytes, ' ', "directory");
    if (type == BookType::kEpwing) bytes.append(74, '\0');
  }
  return bytes;
}
