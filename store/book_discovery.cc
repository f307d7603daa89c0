#include "store/book_discovery.h"

#include <vector>

#include "platform/device_path.h"

namespace {

// The two folders, in the order of the list.
constexpr const char16_t* kBuiltinFolders[] = {u"\\SD\\epwing\\plus", u"\\SD\\epwing\\wadai"};

constexpr size_t kFirstBufferSize = 512;

}  // namespace

void DiscoverBooks(DictionaryEntryArray& list, int32_t& builtinCount, CatalogCall catalog) {
  builtinCount = 0;
  std::vector<char> buffer(kFirstBufferSize, '\0');
  for (const char16_t* folder : kBuiltinFolders) {
    const std::string_view text = ReadCatalogText(HostPath(folder), buffer, catalog);
    if (text.empty()) continue;
    // The non-empty titles joined by "/", or the folder's name.
    CString titles;
    for (const CString& title : CatalogTitles(text))
      if (!title.IsEmpty()) titles += u"/" + title;
    CString path(folder);
    DictionaryEntry entry;
    entry.title = titles.IsEmpty() ? path.Mid(path.ReverseFind(u'\\') + 1) : titles.Mid(1);
    entry.path = path;
    entry.bookNumber = 0;
    AppendDictionary(list, entry);
    ++builtinCount;
  }
}
