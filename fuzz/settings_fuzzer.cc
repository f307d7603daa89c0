// Harness: the settings file made of the fuzzer's bytes, read by IniStore
// and LoadSettings, written back by SaveSettings and read once more. What
// a save writes must load again to the same options and dictionaries, for
// any file without NUL bytes (a NUL cuts the read it stands in, so a
// damaged line may read differently once it has been written back).
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "platform/device_path.h"
#include "store/ini_store.h"
#include "store/settings_file.h"
#include "testing/temp_tree.h"

namespace {

bool same_options(const DisplayOptions& a, const DisplayOptions& b) {
  return a.gaijiReplace == b.gaijiReplace && a.gaijiVisible == b.gaijiVisible &&
         a.syllableVisible == b.syllableVisible && a.phSignsVisible == b.phSignsVisible &&
         a.linkVisible == b.linkVisible;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::filesystem::path folder = [] {
    std::filesystem::path path = fresh_directory("fuzz_settings");
    SetDeviceFolder(DeviceFolder::kConfig, path.string());
    return path;
  }();
  std::filesystem::remove(folder / "epwingdict.ini.BAK");
  std::ofstream(folder / "epwingdict.ini", std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));

  const CString path = SettingsFilePath();
  {
    IniStore store(path);
    store.GetValue(u"DICT_LIST", u"TITLE_0000", u"");
    store.GetIntValue(u"DICT_LIST", u"LIST_SIZE", 0);
  }
  DisplayOptions options;
  DictionaryEntryArray list;
  LoadSettings(path, options, list);
  SaveSettings(path, options, list, 0);

  DisplayOptions reloaded;
  DictionaryEntryArray reloaded_list;
  LoadSettings(path, reloaded, reloaded_list);
  const bool text = std::memchr(data, 0, size) == nullptr;
  if (text && (!same_options(options, reloaded) || reloaded_list.size() != list.size())) abort();
  return 0;
}
