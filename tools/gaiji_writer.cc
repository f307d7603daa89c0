#include "tools/gaiji_writer.h"

namespace {

constexpr size_t kPage = 2048;
constexpr size_t kBlock = 1024;

}  // namespace

std::string gaiji_definition_file(const std::vector<GaijiDefinition>& definitions,
                                  bool with_end) {
  std::string bytes;
  for (const GaijiDefinition& definition : definitions) {
    bytes += static_cast<char>(definition.code & 0xFF);
    bytes += static_cast<char>((definition.code >> 8) & 0xFF);
    bytes += definition.text;
    bytes += '\0';
  }
  if (with_end) bytes.append("\xFF\xFF\0", 3);
  return bytes;
}

std::string font_area_bytes(const FontArea& area) {
  std::string bytes(kPage, '\0');
  bytes[8] = static_cast<char>(area.width);
  bytes[9] = static_cast<char>(area.height);
  bytes[10] = static_cast<char>((area.first_code >> 8) & 0xFF);
  bytes[11] = static_cast<char>(area.first_code & 0xFF);
  bytes[12] = static_cast<char>((area.count >> 8) & 0xFF);
  bytes[13] = static_cast<char>(area.count & 0xFF);
  size_t bitmap_size = static_cast<size_t>(area.height) * ((area.width - 1) / 8 + 1);
  // The reader moves to the next block by the dot count, not the row bytes.
  size_t block_need = static_cast<size_t>(area.height * area.width / 8);
  for (int c = 0; c < area.count; ++c) {
    std::string bitmap = c < static_cast<int>(area.bitmaps.size()) ? area.bitmaps[c] : "";
    bitmap.resize(bitmap_size, '\0');
    bytes += bitmap;
    if (bytes.size() % kBlock + block_need > kBlock) {
      bytes.resize((bytes.size() / kBlock + 1) * kBlock, '\0');
    }
  }
  bytes.resize((bytes.size() + kPage - 1) / kPage * kPage, '\0');
  return bytes;
}
