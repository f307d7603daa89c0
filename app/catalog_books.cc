#include "app/catalog_books.h"

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "engine/engine.h"
#include "platform/code_page.h"
#include "platform/device_path.h"

namespace {

constexpr int32_t kFirstListingSize = 512;
// The zeroed work area one title is copied into, with its NUL.
constexpr size_t kTitleArea = 512;

// The catalog listing of the host folder `drive`; empty when there is none.
std::string ReadListing(const std::string& drive) {
  std::vector<char> buffer(kFirstListingSize, '\0');
  const int32_t needed = engine_catalog(drive.c_str(), buffer.data(), kFirstListingSize);
  if (needed > kFirstListingSize) {
    buffer.assign(static_cast<size_t>(needed), '\0');
    engine_catalog(drive.c_str(), buffer.data(), needed);
  }
  return std::string(buffer.data(), strnlen(buffer.data(), buffer.size()));
}

CString TitleOf(std::string_view piece) {
  char area[kTitleArea] = {};
  std::memcpy(area, piece.data(), CutAtCharBoundary(piece, sizeof area - 1));
  CString title(area);
  title.TrimRight(u" \r\n");
  return title;
}

}  // namespace

bool ReadCatalogBooks(const CString& folder, DictionaryEntryArray& books, CStringArray& titles) {
  // The engine names files as the host does: it gets the host path.
  const std::string drive = HostPath(folder);
  const std::string listing = ReadListing(drive);
  if (listing.empty()) return false;
  std::string_view rest = listing;
  int32_t number = 0;
  for (size_t lineFeed; (lineFeed = rest.find('\n')) != std::string_view::npos; ++number) {
    const std::string_view piece = rest.substr(0, lineFeed);
    rest.remove_prefix(lineFeed + 1);
    if (engine_has_forward_index(drive.c_str(), number) == 0) continue;
    DictionaryEntry book;
    book.title = TitleOf(piece);
    if (book.title.IsEmpty()) continue;
    book.path = folder;
    book.bookNumber = number;
    books.push_back(book);
    titles.push_back(book.title);
  }
  return true;
}
