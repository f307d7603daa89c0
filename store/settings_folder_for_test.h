// A fresh program folder for each test of the settings file: the
// configuration folder points at it while the test runs, and it is removed
// behind the test.
#ifndef STORE_SETTINGS_FOLDER_FOR_TEST_H_
#define STORE_SETTINGS_FOLDER_FOR_TEST_H_

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/device_path.h"
#include "platform/wide_string.h"
#include "testing/temp_tree.h"

class SettingsFolderTest : public testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/settings_folder_XXXXXX";
    folder_ = mkdtemp(pattern);
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

  const CString path_ = u"\\epwingdict\\epwingdict.ini";  // its device name
  std::string folder_;                                    // the program folder on the host
};

#endif  // STORE_SETTINGS_FOLDER_FOR_TEST_H_
