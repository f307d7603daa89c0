#include "store/book_discovery.h"

#include <vector>

namespace {

// The two folders, in the order of the list.
constexpr const char16_t* kBuiltinFolders[] = {u"\\SD\\epwing\\plus", u"\\SD\\epwing\\wadai"};

}  // namespace

void DiscoverBooks(Books& books, DictionaryEntryArray& list, int32_t& builtinCount) {
  builtinCount = 0;
  std::vector<CString> catalog;
  for (const char16_t* folder : kBuiltinFolders) {
    const CString path(folder);
    if (!books.CatalogTitles(path, catalog)) continue;
    // The non-empty titles joined by "/", or the folder's name.
    CString titles;
    for (const CString& title : catalog)
      if (!title.IsEmpty()) titles += u"/" + title;
    DictionaryEntry entry;
    entry.title = titles.IsEmpty() ? path.Mid(path.ReverseFind(u'\\') + 1) : titles.Mid(1);
    entry.path = path;
    entry.bookNumber = 0;
    AppendDictionary(list, entry);
    ++builtinCount;
  }
}

bool ReadCatalogBooks(Books& books, const CString& folder, DictionaryEntryArray& entries,
                      CStringArray& titles) {
  std::vector<CString> catalog;
  if (!books.CatalogTitles(folder, catalog)) return false;
  for (int32_t book = 0; book < static_cast<int32_t>(catalog.size()); ++book) {
    const CString& title = catalog[static_cast<size_t>(book)];
    if (title.IsEmpty() || !books.HasForwardIndex(folder, book)) continue;
    DictionaryEntry entry;
    entry.title = title;
    entry.path = folder;
    entry.bookNumber = book;
    entries.push_back(entry);
    titles.push_back(title);
  }
  return true;
}
