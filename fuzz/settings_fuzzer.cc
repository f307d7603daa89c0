// Harness: the settings file, two ways, chosen by the first byte.
//
// 0x01: the rest makes registered dictionaries (fields split at 0x00: the
// title, the path and the book number of each in turn; a field's first
// byte repeats the rest of it up to 64 times, so that lines grow long, and
// an odd one takes the rest as UTF-16 units, so that characters of no code
// page, line feeds and lone surrogates come too). They are saved and
// loaded back, and must come back exactly, blanks and all, unless the save
// said it could not be made; then the file must be as it was.
//
// Anything else: the bytes are the settings file, read by LoadSettings,
// written back by SaveSettings and read once more: the options and
// dictionaries must load the same, and a second save must write the same
// bytes as the first.
//
// Saves go through a file system that skips fsync, which changes nothing
// that a process that is not killed can see.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "platform/code_page.h"
#include "platform/device_path.h"
#include "platform/file_system.h"
#include "store/settings_file.h"
#include "testing/temp_tree.h"

namespace {

class NoSyncFileSystem : public RealFileSystem {
 public:
  bool Sync(FILE* file) override { return std::fflush(file) == 0; }
  bool SyncFolder(const std::string&) override { return true; }
};

bool SameOptions(const DisplayOptions& a, const DisplayOptions& b) {
  return a.gaijiReplace == b.gaijiReplace && a.gaijiVisible == b.gaijiVisible &&
         a.syllableVisible == b.syllableVisible && a.phSignsVisible == b.phSignsVisible &&
         a.linkVisible == b.linkVisible;
}

bool SameList(const DictionaryEntryArray& a, const DictionaryEntryArray& b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    if (a[i].title != b[i].title || a[i].path != b[i].path || a[i].bookNumber != b[i].bookNumber)
      return false;
  }
  return true;
}

CString Field(std::string_view bytes) {
  if (bytes.empty()) return CString();
  const unsigned char control = static_cast<unsigned char>(bytes[0]);
  bytes.remove_prefix(1);
  std::u16string units;
  if (control & 1) {
    for (size_t i = 0; i + 1 < bytes.size(); i += 2)
      units += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                     static_cast<unsigned char>(bytes[i + 1]) << 8);
  } else {
    units = DecodeMultiByte(bytes);
  }
  std::u16string repeated;
  for (int i = 0; i <= (control >> 1) % 64; ++i) repeated += units;
  return CString(std::move(repeated));
}

void EntriesComeBack(const CString& path, const std::filesystem::path& file,
                     std::string_view bytes) {
  DictionaryEntryArray list;
  CString fields[3];
  int filled = 0;
  for (size_t start = 0; start <= bytes.size();) {
    size_t end = std::min(bytes.find('\0', start), bytes.size());
    fields[filled++] = Field(bytes.substr(start, end - start));
    if (filled == 3) {
      list.push_back({fields[0], fields[1], WideToLong(fields[2])});
      filled = 0;
    }
    start = end + 1;
  }
  DisplayOptions options;
  options.phSignsVisible = static_cast<int32_t>(bytes.size());
  const std::string before = ReadWholeFile(file);
  if (!SaveSettings(path, options, list, 0)) {
    if (ReadWholeFile(file) != before) abort();
    return;
  }
  DisplayOptions loaded;
  DictionaryEntryArray loadedList;
  LoadSettings(path, loaded, loadedList);
  if (!SameOptions(options, loaded) || !SameList(list, loadedList)) abort();
}

void FileComesBack(const CString& path, const std::filesystem::path& file) {
  DisplayOptions options;
  DictionaryEntryArray list;
  LoadSettings(path, options, list);
  if (!SaveSettings(path, options, list, 0)) return;
  const std::string first = ReadWholeFile(file);
  DisplayOptions reloaded;
  DictionaryEntryArray reloadedList;
  LoadSettings(path, reloaded, reloadedList);
  if (!SameOptions(options, reloaded) || !SameList(list, reloadedList)) abort();
  if (!SaveSettings(path, reloaded, reloadedList, 0) || ReadWholeFile(file) != first) abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static NoSyncFileSystem files;
  static const std::filesystem::path folder = [] {
    std::filesystem::path path = fresh_directory("fuzz_settings");
    SetDeviceFolder(DeviceFolder::kConfig, path.string());
    SetFileSystem(&files);
    return path;
  }();
  const std::filesystem::path file = folder / "epwingdict.ini";
  std::filesystem::remove(folder / "epwingdict.ini.BAK");
  const CString path = SettingsFilePath();
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (!bytes.empty() && bytes[0] == '\x01') {
    std::filesystem::remove(file);
    EntriesComeBack(path, file, bytes.substr(1));
  } else {
    std::ofstream(file, std::ios::binary | std::ios::trunc).write(bytes.data(), bytes.size());
    FileComesBack(path, file);
  }
  return 0;
}
