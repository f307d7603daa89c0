#include "app/catalog_books.h"

#include <string>
#include <vector>

#include "command/engine.h"
#include "platform/device_path.h"
#include "store/catalog_text.h"

namespace {

constexpr size_t kFirstListingSize = 512;

}  // namespace

bool ReadCatalogBooks(const CString& folder, DictionaryEntryArray& books, CStringArray& titles) {
  // The engine names files as the host does: it gets the host path.
  const std::string drive = HostPath(folder);
  std::vector<char> buffer(kFirstListingSize, '\0');
  const std::string_view listing = ReadCatalogText(drive, buffer, engine_catalog);
  if (listing.empty()) return false;
  int32_t number = 0;
  for (const CString& title : CatalogTitles(listing)) {
    const int32_t book = number++;
    if (engine_has_forward_index(drive.c_str(), book) == 0 || title.IsEmpty()) continue;
    DictionaryEntry entry;
    entry.title = title;
    entry.path = folder;
    entry.bookNumber = book;
    books.push_back(entry);
    titles.push_back(title);
  }
  return true;
}
