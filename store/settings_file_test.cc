#include "store/settings_file.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/device_path.h"
#include "platform/file_system.h"

namespace {

class SettingsFileTest : public testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/settings_file_test_XXXXXX";
    folder_ = mkdtemp(pattern);
    SetDeviceFolder(DeviceFolder::kConfig, folder_);
  }
  void TearDown() override {
    SetDeviceFolder(DeviceFolder::kConfig, "");
    std::filesystem::remove_all(folder_);
  }
  std::string HostFile() const { return folder_ + "/epwingdict.ini"; }
  void WriteFile(const std::string& text) { std::ofstream(HostFile()) << text; }
  std::string ReadFile() const {
    std::ostringstream text;
    text << std::ifstream(HostFile()).rdbuf();
    return text.str();
  }

  std::string folder_;
};

// Opens nothing, as a card that can't be read.
class UnreadableFileSystem : public RealFileSystem {
 public:
  FILE* Open(const std::string&, const char*) override { return nullptr; }
};

DictionaryEntry Entry(const char16_t* title, const char16_t* path, int32_t book) {
  return DictionaryEntry{title, path, book};
}

TEST_F(SettingsFileTest, ProgramFolderHoldsTheFile) {
  EXPECT_EQ(GetProgramFolder(), CString(u"\\epwingdict"));
  EXPECT_EQ(SettingsFilePath(), CString(u"\\epwingdict\\epwingdict.ini"));
  EXPECT_EQ(HostPath(SettingsFilePath()), HostFile());
}

TEST_F(SettingsFileTest, WrittenFromNothingInOrderAndRoundTrips) {
  DictionaryEntryArray list = {Entry(u"plus", u"\\SD\\epwing\\plus", 0),
                               Entry(u"wadai", u"\\SD\\epwing\\wadai", 0),
                               Entry(u"My Dict", u"\\SD\\books\\a b", 3),
                               Entry(u"広辞\u3000典", u"\\SD\\k", 1)};
  DisplayOptions options;
  options.phSignsVisible = 2;
  SaveSettings(SettingsFilePath(), options, list, 2);
  const std::string written = ReadFile();
  EXPECT_EQ(written,
            "[OPTION_SETTING]\nGAIJI_REPLACE=1\nGAIJI_VISIBLE=0\nSYLLABLE_VISIBLE=0\n"
            "PH_SIGNS_VISIBLE=2\nLINK_VISIBLE=0\n[DICT_LIST]\nLIST_SIZE=2\n"
            "TITLE_0000=My Dict\nPATH_0000=\\SD\\books\\a b\nBOOKNUM_0000=3\n"
            "TITLE_0001=\x8d\x4c\x8e\xab\x81\x40\x93\x54\nPATH_0001=\\SD\\k\nBOOKNUM_0001=1\n");

  DisplayOptions loaded;
  loaded.gaijiReplace = 7;
  DictionaryEntryArray builtins = {Entry(u"plus", u"\\SD\\epwing\\plus", 0)};
  LoadSettings(SettingsFilePath(), loaded, builtins);
  EXPECT_EQ(loaded.gaijiReplace, 1);
  EXPECT_EQ(loaded.phSignsVisible, 2);
  ASSERT_EQ(builtins.size(), 3u);  // appended behind the built-in entry
  EXPECT_EQ(builtins[1].title, CString(u"MyDict"));  // the load drops blanks
  EXPECT_EQ(builtins[1].path, CString(u"\\SD\\books\\ab"));
  EXPECT_EQ(builtins[1].bookNumber, 3);
  EXPECT_EQ(builtins[2].title, CString(u"広辞\u3000典"));

  // A second save of what was loaded, with one built-in entry now, keeps
  // the keys where they were.
  SaveSettings(SettingsFilePath(), loaded, builtins, 1);
  std::string again = ReadFile();
  EXPECT_EQ(again.substr(0, again.find("TITLE_0000")), written.substr(0, written.find("TITLE_0000")));
  EXPECT_NE(again.find("TITLE_0000=MyDict\nPATH_0000=\\SD\\books\\ab\nBOOKNUM_0000=3\n"),
            std::string::npos);
}

TEST_F(SettingsFileTest, ShrunkListLeavesOldKeysUnread) {
  DictionaryEntryArray list = {Entry(u"a", u"\\SD\\a", 0)};
  SaveSettings(SettingsFilePath(), DisplayOptions(), list, 0);
  list.clear();
  SaveSettings(SettingsFilePath(), DisplayOptions(), list, 0);
  std::string text = ReadFile();
  EXPECT_NE(text.find("LIST_SIZE=0\nTITLE_0000=a\nPATH_0000=\\SD\\a\nBOOKNUM_0000=0\n"),
            std::string::npos);
  DictionaryEntryArray loaded;
  DisplayOptions options;
  LoadSettings(SettingsFilePath(), options, loaded);
  EXPECT_TRUE(loaded.empty());
}

TEST_F(SettingsFileTest, FailureTable) {
  DisplayOptions options;
  options.gaijiReplace = 0;
  options.linkVisible = 5;
  DictionaryEntryArray list;
  LoadSettings(SettingsFilePath(), options, list);  // missing: created empty, defaults
  EXPECT_TRUE(std::filesystem::exists(HostFile()));
  EXPECT_EQ(ReadFile(), "");
  EXPECT_EQ(options.gaijiReplace, 1);
  EXPECT_EQ(options.linkVisible, 0);
  EXPECT_TRUE(list.empty());

  WriteFile("junk_line\n[OPTION_SETTING]\nGAIJI_VISIBLE=yes\nSYLLABLE_VISIBLE=1\n"
            "[DICT_LIST]\nLIST_SIZE=2\nTITLE_0000=t\nBOOKNUM_0000=x\n");
  LoadSettings(SettingsFilePath(), options, list);
  EXPECT_EQ(options.gaijiVisible, 0);  // not numeric
  EXPECT_EQ(options.syllableVisible, 1);
  EXPECT_EQ(options.gaijiReplace, 1);  // missing key
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list[0].title, CString(u"t"));
  EXPECT_EQ(list[0].path, CString());
  EXPECT_EQ(list[1].title, CString());  // beyond the stored entries
  EXPECT_EQ(list[1].bookNumber, 0);
  SaveSettings(SettingsFilePath(), options, list, 0);
  EXPECT_EQ(ReadFile().substr(0, 10), "junk_line\n");  // carried along

  for (const char* size : {"0", "-3", "many"}) {
    list.clear();
    WriteFile(std::string("[DICT_LIST]\nLIST_SIZE=") + size + "\nTITLE_0000=t\n");
    LoadSettings(SettingsFilePath(), options, list);
    EXPECT_TRUE(list.empty()) << size;
  }
  WriteFile("[DICT_LIST]\nLIST_SIZE=2000000000\n");
  LoadSettings(SettingsFilePath(), options, list);
  EXPECT_EQ(list.size(), static_cast<size_t>(kMaxStoredDictionaries));

  // A file that cannot be opened: defaults, and a save writes nothing.
  WriteFile("[OPTION_SETTING]\nGAIJI_REPLACE=0\n");
  UnreadableFileSystem unreadable;
  FileSystem* real = SetFileSystem(&unreadable);
  options.gaijiReplace = 0;
  LoadSettings(SettingsFilePath(), options, list);
  EXPECT_EQ(options.gaijiReplace, 1);
  SaveSettings(SettingsFilePath(), options, list, 0);
  SetFileSystem(real);
  EXPECT_EQ(ReadFile(), "[OPTION_SETTING]\nGAIJI_REPLACE=0\n");
}

}  // namespace
