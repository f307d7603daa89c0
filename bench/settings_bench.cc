// settings_bench FOLDER [COUNT]: the settings file in FOLDER (made empty
// first) the way the reader meets it at start and at closing. Prints
// "name value unit" lines: the median time of a close (SaveSettings) and of
// a start (LoadSettings) over COUNT runs (default 20) with 200 and 250
// registered dictionaries of long titles and paths, the size of that file,
// and the time a start takes over a file of 100 MB of empty lines.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/device_path.h"
#include "store/settings_file.h"

namespace {

double Milliseconds(std::chrono::steady_clock::time_point since) {
  const auto elapsed = std::chrono::steady_clock::now() - since;
  return std::chrono::duration<double, std::milli>(elapsed).count();
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

DictionaryEntryArray Registered(int count) {
  DictionaryEntryArray list;
  for (int n = 0; n < count; ++n) {
    CString number;
    number.Format(u"%d", n);
    list.push_back({u"My Dict " + number + u" " + CString(u'辞', 60),
                    u"\\SD\\my books\\" + number + u"\\" + CString(u'x', 120), n % 3});
  }
  return list;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("usage: settings_bench FOLDER [COUNT]\n", stderr);
    return 2;
  }
  const int runs = argc > 2 ? std::atoi(argv[2]) : 20;
  if (runs < 1) {
    std::fputs("settings_bench: COUNT must be positive\n", stderr);
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  SetDeviceFolder(DeviceFolder::kConfig, folder.string());
  const CString path = SettingsFilePath();

  for (int count : {200, 250}) {
    const DictionaryEntryArray list = Registered(count);
    const DisplayOptions options;
    std::vector<double> closes, starts;
    for (int run = 0; run < runs; ++run) {
      auto start = std::chrono::steady_clock::now();
      if (!SaveSettings(path, options, list, 0)) return 1;
      closes.push_back(Milliseconds(start));
      DisplayOptions loaded;
      DictionaryEntryArray loadedList;
      start = std::chrono::steady_clock::now();
      LoadSettings(path, loaded, loadedList);
      starts.push_back(Milliseconds(start));
      if (loadedList.size() != list.size()) return 1;
    }
    std::printf("settings_close_%d_dictionaries %.2f ms\n", count, Median(closes));
    std::printf("settings_start_%d_dictionaries %.2f ms\n", count, Median(starts));
    std::printf("settings_file_%d_dictionaries %ju bytes\n", count,
                static_cast<uintmax_t>(std::filesystem::file_size(folder / "epwingdict.ini")));
  }

  {
    std::ofstream file(folder / "epwingdict.ini", std::ios::binary | std::ios::trunc);
    const std::string chunk(1 << 20, '\n');
    for (int i = 0; i < 100; ++i) file << chunk;
  }
  std::FILE* said = std::freopen("/dev/null", "w", stderr);  // the start's one line about it
  const auto start = std::chrono::steady_clock::now();
  DisplayOptions options;
  DictionaryEntryArray list;
  LoadSettings(path, options, list);
  std::printf("settings_start_100mb_empty_lines %.2f ms\n", Milliseconds(start));
  std::filesystem::remove_all(folder);
  return said != nullptr && list.empty() ? 0 : 1;
}
