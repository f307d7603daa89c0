#include "store/settings_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "store/settings_folder_for_test.h"

namespace {

class SettingsFileTest : public SettingsFolderTest {
 protected:
  DisplayOptions options_;
  DictionaryEntryArray list_;
};

TEST_F(SettingsFileTest, ExactLinesRoundTripAndShrink) {
  EXPECT_EQ(SettingsFilePath(), CString(u"\\epwingdict\\epwingdict.ini"));
  list_ = {{u"plus", u"\\SD\\p", 0}, {u"My Dict", u"\\SD\\a b", 3}, {u"広\u3000典", u"\\SD\\k", 1}};
  options_.phSignsVisible = 2;
  SaveSettings(SettingsFilePath(), options_, list_, 1);
  const std::string written = ReadFile();
  EXPECT_EQ(written,
            "[OPTION_SETTING]\nGAIJI_REPLACE=1\nGAIJI_VISIBLE=0\nSYLLABLE_VISIBLE=0\n"
            "PH_SIGNS_VISIBLE=2\nLINK_VISIBLE=0\n[DICT_LIST]\nLIST_SIZE=2\n"
            "TITLE_0000=My Dict\nPATH_0000=\\SD\\a b\nBOOKNUM_0000=3\n"
            "TITLE_0001=\x8d\x4c\x81\x40\x93\x54\nPATH_0001=\\SD\\k\nBOOKNUM_0001=1\n");

  DisplayOptions loaded;
  loaded.gaijiReplace = 7;
  DictionaryEntryArray reloaded = {list_[0]};
  LoadSettings(SettingsFilePath(), loaded, reloaded);
  EXPECT_EQ(loaded.gaijiReplace, 1);
  EXPECT_EQ(loaded.phSignsVisible, 2);
  ASSERT_EQ(reloaded.size(), 3u);  // behind the built-in entry
  EXPECT_EQ(reloaded[1].title, CString(u"MyDict"));  // a load drops blanks
  EXPECT_EQ(reloaded[1].bookNumber, 3);
  EXPECT_EQ(reloaded[2].title, CString(u"広\u3000典"));

  reloaded.resize(2);  // the last registered entry deleted
  SaveSettings(SettingsFilePath(), loaded, reloaded, 1);
  EXPECT_NE(ReadFile().find("LIST_SIZE=1\nTITLE_0000=MyDict\nPATH_0000=\\SD\\ab\nBOOKNUM_0000=3\n"
                            "TITLE_0001="),
            std::string::npos);  // same order; entry 1's keys stay behind
  LoadSettings(SettingsFilePath(), loaded, list_);
  EXPECT_EQ(list_.size(), 4u);
}

TEST_F(SettingsFileTest, FailureTable) {
  options_.gaijiReplace = 0;
  LoadSettings(SettingsFilePath(), options_, list_);  // missing: created empty, defaults
  EXPECT_EQ(ReadFile(), "");
  EXPECT_EQ(options_.gaijiReplace, 1);
  EXPECT_TRUE(list_.empty());

  WriteFile("junk\n[OPTION_SETTING]\nGAIJI_VISIBLE=yes\nSYLLABLE_VISIBLE=1\n"
            "[DICT_LIST]\nLIST_SIZE=2\nTITLE_0000=t\n");
  LoadSettings(SettingsFilePath(), options_, list_);
  EXPECT_EQ(options_.gaijiVisible, 0);  // not numeric
  EXPECT_EQ(options_.syllableVisible, 1);
  ASSERT_EQ(list_.size(), 2u);
  EXPECT_EQ(list_[1].title, CString());  // beyond the stored entries
  SaveSettings(SettingsFilePath(), options_, list_, 0);
  EXPECT_EQ(ReadFile().substr(0, 5), "junk\n");  // carried along

  const std::pair<const char*, size_t> sizes[] = {
      {"-3", 0}, {"many", 0}, {"2000000000", kMaxStoredDictionaries}};
  for (const auto& [size, count] : sizes) {
    list_.clear();
    WriteFile(std::string("[DICT_LIST]\nLIST_SIZE=") + size + "\n");
    LoadSettings(SettingsFilePath(), options_, list_);
    EXPECT_EQ(list_.size(), count) << size;
  }
}

}  // namespace
