#include "store/settings_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "store/settings_folder_for_test.h"

namespace {

class SettingsFileTest : public SettingsFolderTest {
 protected:
  // `count` registered dictionaries with blanks, long paths and titles.
  static DictionaryEntryArray Registered(int count) {
    DictionaryEntryArray list;
    for (int n = 0; n < count; ++n) {
      CString number;
      number.Format(u"%d", n);
      list.push_back({u"My Dict " + number + u" " + CString(u'辞', n % 7 * 50),
                      u"\\SD\\my books\\" + number + CString(u'x', n % 5 * 150), n % 4});
    }
    return list;
  }
  // The entries a load appends to an empty list.
  DictionaryEntryArray Load() {
    DictionaryEntryArray loaded;
    LoadSettings(path_, options_, loaded);
    return loaded;
  }

  DisplayOptions options_;
  DictionaryEntryArray list_;
};

TEST_F(SettingsFileTest, ExactLinesRoundTripAndShrink) {
  EXPECT_EQ(SettingsFilePath(), CString(u"\\epwingdict\\epwingdict.ini"));
  list_ = {{u"plus", u"\\SD\\p", 0}, {u"My Dict", u"\\SD\\a b", 3}, {u"広\u3000典", u"\\SD\\k", 1}};
  options_.phSignsVisible = 2;
  EXPECT_TRUE(SaveSettings(path_, options_, list_, 1));
  const std::string written = ReadFile();
  EXPECT_EQ(written,
            "[OPTION_SETTING]\nGAIJI_REPLACE=1\nGAIJI_VISIBLE=0\nSYLLABLE_VISIBLE=0\n"
            "PH_SIGNS_VISIBLE=2\nLINK_VISIBLE=0\n[DICT_LIST]\nLIST_SIZE=2\n"
            "TITLE_0000=My Dict\nPATH_0000=\\SD\\a b\nBOOKNUM_0000=3\n"
            "TITLE_0001=\x8d\x4c\x81\x40\x93\x54\nPATH_0001=\\SD\\k\nBOOKNUM_0001=1\n");

  DisplayOptions loaded;
  loaded.gaijiReplace = 7;
  DictionaryEntryArray reloaded = {list_[0]};
  LoadSettings(path_, loaded, reloaded);
  EXPECT_EQ(loaded.gaijiReplace, 1);
  EXPECT_EQ(loaded.phSignsVisible, 2);
  EXPECT_TRUE(SameEntries(reloaded, list_));  // behind the built-in entry, blanks and all

  reloaded.resize(2);  // the last registered entry deleted
  EXPECT_TRUE(SaveSettings(path_, loaded, reloaded, 1));
  EXPECT_NE(ReadFile().find("LIST_SIZE=1\nTITLE_0000=My Dict\nPATH_0000=\\SD\\a b\nBOOKNUM_0000=3\n"
                            "TITLE_0001="),
            std::string::npos);  // same order; entry 1's keys stay behind
  EXPECT_EQ(Load().size(), 1u);
}

TEST_F(SettingsFileTest, FailureTable) {
  options_.gaijiReplace = 0;
  EXPECT_TRUE(Load().empty());  // missing: defaults, and nothing made
  EXPECT_FALSE(std::filesystem::exists(HostFile()));
  EXPECT_EQ(options_.gaijiReplace, 1);

  WriteFile("junk\n[OPTION_SETTING]\nGAIJI_VISIBLE=yes\nSYLLABLE_VISIBLE=1\n"
            "[DICT_LIST]\nLIST_SIZE=2\nTITLE_0000=t\n");
  list_ = Load();
  EXPECT_EQ(options_.gaijiVisible, 0);  // not numeric
  EXPECT_EQ(options_.syllableVisible, 1);
  ASSERT_EQ(list_.size(), 2u);
  EXPECT_EQ(list_[1].title, CString());  // beyond the stored entries
  SaveSettings(path_, options_, list_, 0);
  EXPECT_EQ(ReadFile().substr(0, 5), "junk\n");  // carried along

  const std::pair<const char*, size_t> sizes[] = {
      {"-3", 0}, {"many", 0}, {"2000000000", kMaxStoredDictionaries}};
  for (const auto& [size, count] : sizes) {
    WriteFile(std::string("[DICT_LIST]\nLIST_SIZE=") + size + "\n");
    EXPECT_EQ(Load().size(), count) << size;
  }
  list_ = Load();
  EXPECT_TRUE(SaveSettings(path_, options_, list_, 0));  // and the next start reads them
  EXPECT_EQ(Load().size(), size_t{kMaxStoredDictionaries});
  list_.push_back({});
  testing::internal::CaptureStderr();
  EXPECT_FALSE(SaveSettings(path_, options_, list_, 0));  // one more would be dropped
  EXPECT_NE(testing::internal::GetCapturedStderr().find("dictionaries are more than"),
            std::string::npos);
  EXPECT_EQ(Load().size(), size_t{kMaxStoredDictionaries});
}

TEST_F(SettingsFileTest, RegistrationsComeBackExactly) {
  list_ = Registered(250);
  list_[0].path = u"\\SD\\" + CString(u'p', 596);                   // 600 characters
  list_[1].title = CString(u'漢', 300);                              // 600 bytes
  list_[2].title = u" two  blanks\tand a\nline feed ";
  list_[3].path = u"\\SD\\caf\u00e9 \U0001F4D6 &#x41;";              // no code page holds them
  list_[4].title = u"";
  options_.linkVisible = 1;
  EXPECT_TRUE(SaveSettings(path_, options_, list_, 0));
  options_ = DisplayOptions();
  EXPECT_TRUE(SameEntries(Load(), list_));
  EXPECT_EQ(options_.linkVisible, 1);
}

// A file cut short beside a whole backup: the backup is taken back, said,
// and kept by the close. (Which backups are taken back: the store's
// tests.) A file cut at a line's end is cut too: LIST_SIZE promises
// entries it no longer holds.
TEST_F(SettingsFileTest, CutFileBesideAGoodBackupLosesNothing) {
  list_ = Registered(200);
  ASSERT_TRUE(SaveSettings(path_, options_, list_, 0));
  const std::string whole = ReadFile();
  std::filesystem::copy_file(HostFile(), HostFile(".BAK"));
  WriteFile(whole.substr(0, whole.rfind("TITLE_0150=")));

  testing::internal::CaptureStderr();
  DictionaryEntryArray loaded = Load();
  EXPECT_NE(testing::internal::GetCapturedStderr().find("backup was taken back"), std::string::npos);
  EXPECT_TRUE(SameEntries(loaded, list_));
  EXPECT_TRUE(SaveSettings(path_, options_, loaded, 0));  // the close
  EXPECT_EQ(ReadFile(), whole);
  EXPECT_FALSE(std::filesystem::exists(HostFile(".BAK")));
}

// A read-only file is read, even cut short beside a backup, and left as it
// is with its backup; the save says why it could not be made.
TEST_F(SettingsFileTest, ReadOnlyFileIsReadAndNeverWritten) {
  list_ = Registered(3);
  ASSERT_TRUE(SaveSettings(path_, options_, list_, 0));
  std::filesystem::copy_file(HostFile(), HostFile(".BAK"));
  const std::string cut = ReadFile().substr(0, ReadFile().rfind("TITLE_0002="));
  WriteFile(cut);
  chmod(HostFile().c_str(), 0444);
  list_[2] = {};  // what the cut file holds of it
  EXPECT_TRUE(SameEntries(Load(), list_));
  testing::internal::CaptureStderr();
  EXPECT_FALSE(SaveSettings(path_, options_, list_, 0));
  const std::string said = testing::internal::GetCapturedStderr();
  EXPECT_EQ(said, "epwingdict: the settings could not be saved: " + HostFile() + " is read-only\n");
  EXPECT_EQ(ReadFile(), cut);
  EXPECT_TRUE(std::filesystem::exists(HostFile(".BAK")));
}

// Neither read nor written, nor its backup taken back; said once.
TEST_F(SettingsFileTest, FileBeyondTheLimitIsSaidOnceAndLeftAlone) {
  const std::string text = "[OPTION_SETTING]\nGAIJI_REPLACE=0\n" + std::string(kMaxIniBytes, '\n');
  WriteFile(text);
  std::ofstream(HostFile(".BAK")) << "[OPTION_SETTING]\nGAIJI_REPLACE=0\n";
  testing::internal::CaptureStderr();
  list_ = Load();
  EXPECT_TRUE(list_.empty());
  EXPECT_EQ(options_.gaijiReplace, 1);  // the default
  list_ = Registered(1);
  EXPECT_FALSE(SaveSettings(path_, options_, list_, 0));
  const std::string said = testing::internal::GetCapturedStderr();
  EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
  EXPECT_NE(said.find("larger than 1 MB"), std::string::npos);
  EXPECT_EQ(ReadFile(), text);
  EXPECT_TRUE(std::filesystem::exists(HostFile(".BAK")));
}

}  // namespace
