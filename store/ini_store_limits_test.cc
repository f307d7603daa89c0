// IniStore over settings files of sizes no one writes by hand: the size
// limit, a million lines, a line of most of a megabyte, bytes that are no
// text.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "store/settings_folder_for_test.h"
#include "store/ini_store.h"

namespace {

using IniStoreLimitsTest = SettingsFolderTest;

}  // namespace

TEST_F(IniStoreLimitsTest, FileBeyondTheLimitIsNeitherReadNorWritten) {
  {
    std::ofstream file(HostFile(), std::ios::binary);
    const std::string chunk(1 << 20, '\n');
    for (int i = 0; i < 100; ++i) file << chunk;  // 100 MB of empty lines
  }
  std::ofstream(HostFile(".BAK")) << "[S]\nk=1\n";
  const auto size = std::filesystem::file_size(HostFile());
  IniStore store(path_);
  EXPECT_EQ(store.LoadState(), IniLoad::kTooLarge);
  EXPECT_EQ(store.GetIntValue(u"S", u"k", 7), 7);  // not the backup either
  EXPECT_EQ(store.WriteValue(u"S", u"k", u"2"), -1);
  EXPECT_EQ(std::filesystem::file_size(HostFile()), size);
  EXPECT_TRUE(std::filesystem::exists(HostFile(".BAK")));
}

TEST_F(IniStoreLimitsTest, FileAtTheLimitLoadsAndRewritesWhole) {
  std::string text = "[S]\n";
  while (text.size() < kMaxIniBytes - 8) text += "x\n";
  text += "[T]\nk=7\n";
  ASSERT_EQ(text.size(), kMaxIniBytes);
  WriteFile(text);
  IniStore store(path_);
  EXPECT_EQ(store.GetIntValue(u"T", u"k", 0), 7);
  EXPECT_EQ(store.WriteValue(u"T", u"k", u"8"), 0);
  std::string written = ReadFile();
  EXPECT_EQ(written.size(), text.size());
  EXPECT_EQ(written.substr(written.size() - 8), "[T]\nk=8\n");
  EXPECT_EQ(store.WriteValue(u"T", u"k", u"10"), -1);  // one byte more would pass the limit
  EXPECT_EQ(ReadFile(), written);
}

TEST_F(IniStoreLimitsTest, LinesOfAnyLengthAndNoText) {
  // Most of a megabyte without a line feed, a NUL and bytes of no code
  // page before the key, a lead byte without its trail behind it: the key
  // is still found, and a rewrite keeps the long line and the NUL.
  std::string text(900000, 'a');
  text += std::string("\0\xFF\x81\n", 4) + "[S]\nk=1\n" + std::string(3, '\x82');
  WriteFile(text);
  IniStore store(path_);
  EXPECT_EQ(store.GetIntValue(u"S", u"k", 0), 1);
  EXPECT_EQ(store.WriteValue(u"S", u"k", u"2"), 0);
  IniStore again(path_);
  EXPECT_EQ(again.GetIntValue(u"S", u"k", 0), 2);
  const std::string written = ReadFile();
  EXPECT_EQ(written.substr(0, 900001), text.substr(0, 900001));
}
