#include "results/catalog_text.h"

#include <cstring>

#include "platform/code_page.h"

namespace {

// The work area of one title, with its NUL; catalog titles are far
// shorter.
constexpr size_t kTitleArea = 512;

}  // namespace

std::string_view ReadCatalogText(const std::string& drive, std::vector<char>& buffer,
                                 CatalogCall catalog) {
  int32_t capacity = static_cast<int32_t>(buffer.size());
  int32_t needed = catalog(drive.c_str(), buffer.data(), capacity);
  if (needed > capacity) {
    buffer.assign(static_cast<size_t>(needed), '\0');
    capacity = needed;
    needed = catalog(drive.c_str(), buffer.data(), capacity);
    if (needed > capacity) return {};  // the catalog grew meanwhile: the buffer came back empty
  }
  return std::string_view(buffer.data(), strnlen(buffer.data(), buffer.size()));
}

std::vector<CString> CatalogTitles(std::string_view text) {
  std::vector<CString> titles;
  for (size_t lineFeed; (lineFeed = text.find('\n')) != std::string_view::npos;) {
    const std::string_view piece = text.substr(0, lineFeed);
    text.remove_prefix(lineFeed + 1);
    char area[kTitleArea];
    const size_t length = CutAtCharBoundary(piece, sizeof area - 1);
    std::memcpy(area, piece.data(), length);
    area[length] = '\0';
    CString title(area);
    title.TrimRight(u" \r\n");
    titles.push_back(title);
  }
  return titles;
}
