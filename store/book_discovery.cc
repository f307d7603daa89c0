#include "store/book_discovery.h"

#include <cstring>
#include <string_view>
#include <vector>

#include "platform/code_page.h"
#include "platform/device_path.h"

namespace {

// The two folders, in the order of the list.
constexpr const char16_t* kBuiltinFolders[] = {u"\\SD\\epwing\\plus", u"\\SD\\epwing\\wadai"};

constexpr int32_t kFirstBufferSize = 512;
// The work area of one title, with its NUL; catalog titles are far
// shorter, and a longer piece is cut at a character boundary.
constexpr size_t kTitleArea = 512;

// The catalog text of `folder` in `buffer`, grown once when the first call
// says it needs more. Empty when the folder has no readable catalog.
std::string_view ReadCatalog(const char16_t* folder, std::vector<char>& buffer,
                             CatalogCall catalog) {
  std::string host = HostPath(folder);
  int32_t capacity = static_cast<int32_t>(buffer.size());
  int32_t needed = catalog(host.c_str(), buffer.data(), capacity);
  if (needed > capacity) {
    buffer.assign(static_cast<size_t>(needed), '\0');
    capacity = needed;
    needed = catalog(host.c_str(), buffer.data(), capacity);
    if (needed > capacity) return {};  // the catalog grew meanwhile: the buffer came back empty
  }
  return std::string_view(buffer.data(), strnlen(buffer.data(), buffer.size()));
}

// The titles of the catalog text joined by "/", each trimmed of blanks and
// line ends on the right; empty titles and a last piece without its line
// feed are left out.
CString JoinTitles(std::string_view text) {
  CString titles;
  for (size_t lineFeed = text.find('\n'); lineFeed != std::string_view::npos;
       lineFeed = text.find('\n')) {
    std::string_view piece = text.substr(0, lineFeed);
    text.remove_prefix(lineFeed + 1);
    char area[kTitleArea];
    size_t length = CutAtCharBoundary(piece, sizeof area - 1);
    std::memcpy(area, piece.data(), length);
    area[length] = '\0';
    CString title(area);
    title.TrimRight(u" \r\n");
    if (!title.IsEmpty()) titles += u"/" + title;
  }
  return titles;
}

}  // namespace

void DiscoverBooks(DictionaryEntryArray& list, int32_t& builtinCount, CatalogCall catalog) {
  builtinCount = 0;
  std::vector<char> buffer(kFirstBufferSize, '\0');
  for (const char16_t* folder : kBuiltinFolders) {
    std::string_view text = ReadCatalog(folder, buffer, catalog);
    if (text.empty()) continue;
    CString path(folder);
    CString titles = JoinTitles(text);
    DictionaryEntry entry;
    entry.title = titles.IsEmpty() ? path.Mid(path.ReverseFind(u'\\') + 1) : titles.Mid(1);
    entry.path = path;
    entry.bookNumber = 0;
    AppendDictionary(list, entry);
    ++builtinCount;
  }
}
