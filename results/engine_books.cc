#include "results/engine_books.h"

#include <cstdio>
#include <string>
#include <vector>

#include "command/engine.h"
#include "platform/code_page.h"
#include "platform/device_path.h"
#include "platform/file_calls.h"
#include "platform/read_file.h"
#include "results/run_on_entries.h"
#include "results/work_file_parser.h"

const char16_t kWorkFileName[] = u"\\windows\\epwingwork.dat";
const RunLimits kLookupLimits = {4000, 4 << 20};

namespace {

// The word in the system code page, converted as the device does: the
// length with the terminator first, then the text into exactly that room.
std::vector<char> ToMultiByte(const CString& text) {
  int size = WideCharToMultiByte(CP_ACP, 0, text.GetString(), -1, nullptr, 0, nullptr, nullptr);
  std::vector<char> bytes(static_cast<size_t>(size > 0 ? size : 1), '\0');
  if (size > 0)
    WideCharToMultiByte(CP_ACP, 0, text.GetString(), -1, bytes.data(), size, nullptr, nullptr);
  return bytes;
}

// The engine reads an argument that starts with '-' or '/' as an option
// ("--" as its prompt loop on standard input), and one that starts with a
// digit as a position in the book. A word is always a search: such a first
// character goes in its full-width form (Shift-JIS), which the search key
// rules turn into the very JIS code of the ASCII one, so the search finds
// what the word would. A typed number is a word too: a byte position means
// nothing to a reader, and one picked at random decodes into garbage.
void MakeSearchArgument(std::vector<char>& word) {
  const char first = word[0];
  char fullWidth[2];
  if (first == '-') {
    fullWidth[0] = '\x81';
    fullWidth[1] = '\x7C';  // －
  } else if (first == '/') {
    fullWidth[0] = '\x81';
    fullWidth[1] = '\x5E';  // ／
  } else if (first >= '0' && first <= '9') {
    fullWidth[0] = '\x82';
    fullWidth[1] = static_cast<char>(0x4F + (first - '0'));  // ０ to ９
  } else {
    return;
  }
  word[0] = fullWidth[1];
  word.insert(word.begin(), fullWidth[0]);
}

// The catalog buffer's first size.
constexpr size_t kFirstCatalogSize = 512;

}  // namespace

EngineBooks::EngineBooks(const RunLimits& limits, CatalogCall catalog)
    : limits_(limits),
      catalog_(catalog != nullptr ? catalog : engine_catalog),
      catalogText_(kFirstCatalogSize, '\0') {}

bool EngineBooks::CatalogTitles(const CString& folder, std::vector<CString>& titles) {
  // The engine names files as the host does: it gets host paths.
  const std::string_view text = ReadCatalogText(HostPath(folder), catalogText_, catalog_);
  titles = ::CatalogTitles(text);
  return !text.empty();
}

bool EngineBooks::HasForwardIndex(const CString& folder, int32_t book) {
  return engine_has_forward_index(HostPath(folder).c_str(), book) != 0;
}

int32_t EngineBooks::Lookup(const CString& path, int32_t bookNumber, const CString& word,
                            ResultItemArray& articles, ResultItemArray& candidates) {
  articles.clear();
  candidates.clear();
  std::string folder = HostPath(path);
  if (engine_catalog(folder.c_str(), nullptr, 0) <= 1) return kLookupNoBook;
  // The first lookup in a book of this run looks at how its entries end;
  // the look writes the work file, which the lookup deletes right after.
  const auto looked = entryEnds_.try_emplace({path, bookNumber}, ENTRY_ENDS_UNKNOWN).first;
  if (looked->second == ENTRY_ENDS_UNKNOWN) looked->second = LookAtEntryEnds(path, bookNumber);
  const bool endAtHeads = looked->second == ENTRY_ENDS_RUN_ON;
  std::vector<char> key = ToMultiByte(word);
  MakeSearchArgument(key);
  // Named while the old file is there: the name of a missing one is looked
  // for case-blind through the whole folder.
  const std::string workFile = HostPath(kWorkFileName);
  DeleteFileW(kWorkFileName);  // the engine appends: only this run's text may be there
  // A damaged or hostile book can make the engine write without end: it
  // runs apart, stopped at the limits, and what it wrote until then counts.
  const RunEnd end = RunBounded(
      [&] {
        engine_output_option(folder.c_str(), bookNumber, workFile.c_str(),
                             endAtHeads ? "-S0x20" : nullptr, key.data());
      },
      limits_);
  const bool stopped = end != RunEnd::kFinished;
  FILE* file = OpenDeviceFile(kWorkFileName, "r");
  if (file == nullptr) return stopped ? kLookupStopped : 0;
  // Read by its descriptor: no copy through the stream's buffer for a work
  // file of megabytes, and no read past its end.
  std::string bytes = ReadRegularFile(file);
  std::fclose(file);
  ParseWorkFile(bytes, articles, candidates, stopped);
  return stopped ? kLookupStopped : 0;
}
