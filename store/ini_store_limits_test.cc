// IniStore over settings files of sizes no one writes by hand: a million
// lines, a line of megabytes, bytes that are no text.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "store/settings_folder_for_test.h"
#include "store/ini_store.h"

namespace {

using IniStoreLimitsTest = SettingsFolderTest;

}  // namespace

TEST_F(IniStoreLimitsTest, MillionLinesLoadAndRewriteWhole) {
  std::string text = "[S]\n";
  for (int i = 0; i < 1000000; ++i) text += "x\n";
  text += "[T]\nk=7\n";
  WriteFile(text);
  IniStore store(path_);
  EXPECT_EQ(store.GetIntValue(u"T", u"k", 0), 7);
  EXPECT_EQ(store.WriteValue(u"T", u"k", u"8"), 0);
  std::string written = ReadFile();
  EXPECT_EQ(written.size(), text.size());
  EXPECT_EQ(written.substr(written.size() - 8), "[T]\nk=8\n");
}

TEST_F(IniStoreLimitsTest, LinesOfAnyLengthAndNoText) {
  // Four megabytes without a line feed, a NUL and bytes of no code page
  // before the key: all of it loads in pieces and the key is still found.
  std::string text(4 << 20, 'a');
  text += std::string("\0\xFF\x81\n", 4) + "[S]\nk=1\n" + std::string(300, '\x82');
  WriteFile(text);
  IniStore store(path_);
  EXPECT_EQ(store.GetIntValue(u"S", u"k", 0), 1);
  EXPECT_EQ(store.WriteValue(u"S", u"k", u"2"), 0);
  IniStore again(path_);
  EXPECT_EQ(again.GetIntValue(u"S", u"k", 0), 2);
}
