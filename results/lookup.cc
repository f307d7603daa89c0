#include "results/lookup.h"

#include <cstdio>
#include <string>
#include <vector>

#include "engine/engine.h"
#include "platform/code_page.h"
#include "platform/device_path.h"
#include "platform/file_calls.h"
#include "results/braille_gaiji.h"
#include "results/work_file_parser.h"

const char16_t kWorkFileName[] = u"\\windows\\epwingwork.dat";

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

// All bytes of an open file from its start.
std::string ReadAll(FILE* file) {
  std::string bytes;
  std::rewind(file);
  char block[4096];
  for (size_t got; (got = std::fread(block, 1, sizeof block, file)) > 0;) bytes.append(block, got);
  return bytes;
}

}  // namespace

int32_t LookupWord(const CString& path, int32_t bookNumber, const CString& word,
                   ResultItemArray& articles, ResultItemArray& candidates,
                   GaijiMappingArray& gaiji) {
  articles.clear();
  candidates.clear();
  // The engine names files as the host does: it gets host paths.
  std::string folder = HostPath(path);
  if (engine_catalog(folder.c_str(), nullptr, 0) <= 1) return -1;
  std::vector<char> key = ToMultiByte(word);
  DeleteFileW(kWorkFileName);  // the engine appends: only this run's text may be there
  engine_output(folder.c_str(), bookNumber, HostPath(kWorkFileName).c_str(), key.data());
  LoadBrailleGaiji(path, gaiji);
  FILE* file = OpenDeviceFile(kWorkFileName, "r");
  if (file == nullptr) return 0;
  std::string bytes = ReadAll(file);
  std::fclose(file);
  ParseWorkFile(bytes, articles, candidates);
  return 0;
}
