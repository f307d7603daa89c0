// A fresh program folder for each test of the settings file: the
// configuration folder points at it while the test runs, and it is removed
// behind the test.
#ifndef STORE_SETTINGS_FOLDER_FOR_TEST_H_
#define STORE_SETTINGS_FOLDER_FOR_TEST_H_

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/device_path.h"
#include "platform/wide_string.h"
#include "testing/temp_tree.h"
#include "store/dictionary_list.h"

class SettingsFolderTest : public testing::Test {
 protected:
  void SetUp() override {
    folder_ = fresh_directory("settings_folder").string();
    SetDeviceFolder(DeviceFolder::kConfig, folder_);
  }
  void TearDown() override {
    SetDeviceFolder(DeviceFolder::kConfig, "");
    std::filesystem::remove_all(folder_);
  }
  // The settings file on the host, with `suffix` behind its name.
  std::string HostFile(const std::string& suffix = "") const {
    return folder_ + "/epwingdict.ini" + suffix;
  }
  void WriteFile(const std::string& bytes) const {
    std::ofstream(HostFile(), std::ios::binary) << bytes;
  }
  std::string ReadFile(const std::string& suffix = "") const {
    return ReadWholeFile(HostFile(suffix));
  }

  // Whether two lists hold the same entries, field for field.
  static testing::AssertionResult SameEntries(const DictionaryEntryArray& a,
                                              const DictionaryEntryArray& b) {
    if (a.size() != b.size())
      return testing::AssertionFailure() << a.size() << " entries, not " << b.size();
    for (size_t i = 0; i < a.size(); ++i)
      if (a[i].title != b[i].title || a[i].path != b[i].path || a[i].bookNumber != b[i].bookNumber)
        return testing::AssertionFailure() << "entry " << i << " differs";
    return testing::AssertionSuccess();
  }

  const CString path_ = u"\\epwingdict\\epwingdict.ini";  // its device name
  std::string folder_;                                    // the program folder on the host
};

#endif  // STORE_SETTINGS_FOLDER_FOR_TEST_H_
