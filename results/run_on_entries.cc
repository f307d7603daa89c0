#include "results/run_on_entries.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "command/engine.h"
#include "platform/device_path.h"
#include "platform/file_calls.h"
#include "results/bounded_run.h"
#include "results/engine_books.h"

namespace {

constexpr uint16_t kStartOfText = 0x1F02;
constexpr uint16_t kEndOfText = 0x1F03;
constexpr uint16_t kMargin = 0x1F09;
constexpr uint16_t kLineEnd = 0x1F0A;
constexpr uint16_t kHeadStart = 0x1F41;

// The operand words behind `code`, as the decoder reads them; `next` is
// the word behind the code, which some codes look at to decide.
size_t OperandWords(uint16_t code, uint16_t next) {
  // The codes that close a reference take a BCD position: 0x1F51,
  // 0x1F52, and 0x1F62 to 0x1F6F but for 0x1F65 to 0x1F68 and 0x1F6D.
  const bool closesReference =
      code == 0x1F51 || code == 0x1F52 ||
      (code >= 0x1F62 && code <= 0x1F6F && (code < 0x1F65 || code > 0x1F68) && code != 0x1F6D);
  if (closesReference || code == 0x1F31) return 3;
  if (code == 0x1F09 || code == 0x1F41 || code == 0x1FE4) return 1;
  if (code == 0x1F44 || code == 0x1F48 || code == 0x1F4B || code == 0x1F4C) return 5;
  if (code == 0x1F32 || code == 0x1F42) return next <= 0x2120 ? 2 : 0;
  if (code == 0x1F4D) return 1 + static_cast<size_t>(next);
  if (code == 0x1FE0) return next < 0x2000 ? 1 : 0;
  if (code == 0x1FE2) return next < 0x2121 ? 1 : 0;
  return 0;
}

// Runs the engine on `argument` after `option` into the work file, and
// hands each line of what it wrote (until it was stopped) to `take`.
template <typename Take>
void EachOutputLine(const std::string& folder, int32_t bookNumber, const char* option,
                    const char* argument, Take take) {
  DeleteFileW(kWorkFileName);
  const std::string workFile = HostPath(kWorkFileName);
  // Under the limits of a lookup, as the book may be damaged or hostile.
  RunBounded(
      [&] { engine_output_option(folder.c_str(), bookNumber, workFile.c_str(), option, argument); },
      kLookupLimits);
  FILE* file = OpenDeviceFile(kWorkFileName, "r");
  if (file == nullptr) return;
  char line[1024];
  while (std::fgets(line, sizeof line, file) != nullptr) take(std::string_view(line));
  std::fclose(file);
}

}  // namespace

int32_t BodyTextPage(std::string_view listingLine) {
  constexpr std::string_view kBodyArea = " 0x00:";
  if (listingLine.substr(0, kBodyArea.size()) != kBodyArea) return 0;
  const std::string rest(listingLine.substr(kBodyArea.size()));
  const long page = std::strtol(rest.c_str(), nullptr, 10);
  return page > 0 && page <= INT32_MAX ? static_cast<int32_t>(page) : 0;
}

void AppendDumpedWords(std::string_view dumpLine, std::vector<uint16_t>& words) {
  const size_t colon = dumpLine.find("):");
  if (colon == std::string_view::npos) return;
  const std::string rest(dumpLine.substr(colon + 2));
  const char* at = rest.c_str();
  for (char* end = nullptr;; at = end) {
    const unsigned long word = std::strtoul(at, &end, 16);
    if (end == at || word > 0xFFFF) return;
    words.push_back(static_cast<uint16_t>(word));
  }
}

bool EntriesRunOn(const std::vector<uint16_t>& words) {
  int32_t heads = 0;
  bool lineStart = true;
  bool endCode = false;
  for (size_t at = 0; at < words.size();) {
    const uint16_t word = words[at++];
    const uint16_t next = at < words.size() ? words[at] : 0;
    if (word == 0x0000) break;  // the end of the data
    if (word == kEndOfText) {
      endCode = true;
      lineStart = true;
      continue;
    }
    if (word == kHeadStart && lineStart) {
      if (endCode) return false;  // an entry ended by its code before this one
      ++heads;
    } else if (heads == 0 && word != kStartOfText && word != kMargin) {
      return false;  // the first entry starts with something else
    }
    if (word != kStartOfText && word != kMargin) lineStart = word == kLineEnd;
    at += OperandWords(word, next);
  }
  return heads >= 2;
}

EntryEnds LookAtEntryEnds(const CString& path, int32_t bookNumber) {
  const std::string folder = HostPath(path);
  if (engine_catalog(folder.c_str(), nullptr, 0) <= 1) return ENTRY_ENDS_UNKNOWN;
  int32_t page = 0;
  EachOutputLine(folder, bookNumber, nullptr, "-V", [&](std::string_view line) {
    if (page == 0) page = BodyTextPage(line);
  });
  if (page == 0) return ENTRY_ENDS_BY_CODE;
  char pageArg[24];
  std::snprintf(pageArg, sizeof pageArg, "-P%d", static_cast<int>(page));
  std::vector<uint16_t> words;
  EachOutputLine(folder, bookNumber, "-S0x2000", pageArg,
                 [&](std::string_view line) { AppendDumpedWords(line, words); });
  return EntriesRunOn(words) ? ENTRY_ENDS_RUN_ON : ENTRY_ENDS_BY_CODE;
}
