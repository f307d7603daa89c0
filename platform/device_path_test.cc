#include "platform/device_path.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/file_calls.h"

namespace {

class DevicePathTest : public testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/device_path_test_XXXXXX";
    root_ = mkdtemp(pattern);
    SetDeviceFolder(DeviceFolder::kCard, root_ + "/card");
    SetDeviceFolder(DeviceFolder::kRuntime, root_ + "/run");
    SetDeviceFolder(DeviceFolder::kConfig, root_ + "/config");
  }
  void TearDown() override {
    for (DeviceFolder folder : {DeviceFolder::kCard, DeviceFolder::kRuntime, DeviceFolder::kConfig})
      SetDeviceFolder(folder, "");
    std::filesystem::remove_all(root_);
  }
  std::string root_;
};

}  // namespace

TEST_F(DevicePathTest, RootsSeparatorsAndCase) {
  std::filesystem::create_directories(root_ + "/card/EPWING/Plus");
  EXPECT_EQ(HostPath(u"\\SD\\epwing\\plus"), root_ + "/card/EPWING/Plus");
  EXPECT_EQ(HostPath(u"/sd/Epwing//PLUS/"), root_ + "/card/EPWING/Plus");
  EXPECT_EQ(HostPath(u"\\SD\\epwing\\新規"), root_ + "/card/EPWING/新規");  // kept for creating
  EXPECT_EQ(HostPath(u"\\Windows\\epwingwork.dat"), root_ + "/run/epwingwork.dat");
  EXPECT_TRUE(std::filesystem::is_directory(root_ + "/run"));  // made when first named
  EXPECT_EQ(HostPath(u"\\usr\\share"), "/usr/share");
  EXPECT_EQ(HostPath(u"EPWING_MENU.lng"), "EPWING_MENU.lng");

  char16_t program[520];
  int length = GetModuleFileNameW(nullptr, program, 520);
  CString name(program, length);
  CString folder = name.Left(name.ReverseFind(u'\\'));
  EXPECT_EQ(HostPath(folder + u"\\epwingdict.ini"), root_ + "/config/epwingdict.ini");
  EXPECT_EQ(GetModuleFileNameW(nullptr, program, 4), 3);
  EXPECT_EQ(program[3], 0);
}

TEST_F(DevicePathTest, MountedFoldersStandOnTheCardWhereverTheyLie) {
  std::filesystem::create_directories(root_ + "/card/epwing");
  std::filesystem::create_directories(root_ + "/card/Books/inside");
  std::filesystem::create_directories(root_ + "/elsewhere/Kojien/KOJIEN");
  MountCardFolder("Kojien", root_ + "/elsewhere/Kojien");
  MountCardFolder("books", root_ + "/elsewhere");  // wins over the card's own "Books"
  EXPECT_EQ(HostPath(u"\\SD\\kojien\\kojien"), root_ + "/elsewhere/Kojien/KOJIEN");
  EXPECT_EQ(HostPath(u"/sd/KOJIEN"), root_ + "/elsewhere/Kojien");
  EXPECT_EQ(HostPath(u"\\SD\\books\\Kojien"), root_ + "/elsewhere/Kojien");
  EXPECT_EQ(HostPath(u"\\SD\\epwing"), root_ + "/card/epwing");
  EXPECT_EQ(HostPath(u"\\SD\\epwing\\Kojien"), root_ + "/card/epwing/Kojien") << "only on the top";
  EXPECT_EQ(HostPath(u"\\windows\\Kojien"), root_ + "/run/Kojien");
  EXPECT_EQ(MountedFolderNames(u"\\SD"), (std::vector<std::string>{"Kojien", "books"}));
  EXPECT_EQ(MountedFolderNames(u"/sd/"), MountedFolderNames(u"\\SD"));
  EXPECT_TRUE(MountedFolderNames(u"\\SD\\epwing").empty());
  MountCardFolder("KOJIEN", root_ + "/card");  // the same name again replaces it
  EXPECT_EQ(HostPath(u"\\SD\\Kojien\\epwing"), root_ + "/card/epwing");
  ClearCardFolders();
  EXPECT_TRUE(MountedFolderNames(u"\\SD").empty());
  EXPECT_EQ(HostPath(u"\\SD\\books\\inside"), root_ + "/card/Books/inside");
}

TEST_F(DevicePathTest, DefaultsFollowTheEnvironment) {
  SetDeviceFolder(DeviceFolder::kConfig, "");
  SetDeviceFolder(DeviceFolder::kRuntime, "");
  SetDeviceFolder(DeviceFolder::kCard, "");
  setenv("XDG_CONFIG_HOME", (root_ + "/xdg").c_str(), 1);
  setenv("XDG_RUNTIME_DIR", (root_ + "/xrun").c_str(), 1);
  setenv("XDG_DATA_HOME", (root_ + "/xdata").c_str(), 1);
  EXPECT_EQ(DeviceFolderPath(DeviceFolder::kCard), root_ + "/xdata/epwingdict/card");
  unsetenv("XDG_DATA_HOME");
  EXPECT_EQ(DeviceFolderPath(DeviceFolder::kConfig), root_ + "/xdg/epwingdict");
  EXPECT_EQ(DeviceFolderPath(DeviceFolder::kRuntime), root_ + "/xrun/epwingdict");
  unsetenv("XDG_RUNTIME_DIR");
  std::string privateFolder = DeviceFolderPath(DeviceFolder::kRuntime);
  struct stat info;
  ASSERT_EQ(lstat(privateFolder.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0700u);
  EXPECT_EQ(privateFolder.rfind("/tmp/", 0), 0u);
  unsetenv("XDG_CONFIG_HOME");
}

TEST_F(DevicePathTest, FileCallsGoThroughTheMapping) {
  FILE* file = OpenDeviceFile(u"\\windows\\A.txt", "w");
  ASSERT_NE(file, nullptr);
  std::fclose(file);
  EXPECT_TRUE(MoveFileW(u"\\WINDOWS\\a.TXT", u"\\windows\\b.txt"));
  EXPECT_TRUE(std::filesystem::exists(root_ + "/run/b.txt"));
  FILE* other = OpenDeviceFile(u"\\windows\\c.txt", "w");
  ASSERT_NE(other, nullptr);
  std::fclose(other);
  EXPECT_FALSE(MoveFileW(u"\\windows\\b.txt", u"\\windows\\c.txt"));  // never replaces
  EXPECT_TRUE(DeleteFileW(u"\\windows\\B.TXT"));
  EXPECT_FALSE(DeleteFileW(u"\\windows\\b.txt"));
  EXPECT_FALSE(DeleteFileW(u"\\windows"));
}
