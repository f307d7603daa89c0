#include "store/ini_store.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "store/settings_folder_for_test.h"
#include "platform/file_system.h"

namespace {

// The settings file lives in a fresh program folder for each test.
using IniStoreTest = SettingsFolderTest;

// Writing fails half-way, as on a full card.
class FullCardFileSystem : public RealFileSystem {
 public:
  FILE* Open(const std::string& path, const char* mode) override {
    return RealFileSystem::Open(mode[0] == 'w' ? "/dev/full" : path, mode);
  }
};

// A folder whose entries can't be renamed or deleted (the file itself
// could still be written in place).
class ReadOnlyFolderFileSystem : public RealFileSystem {
 public:
  bool Move(const std::string&, const std::string&) override { return false; }
  bool Delete(const std::string&) override { return false; }
};

}  // namespace

TEST_F(IniStoreTest, EmptyFileGivesDefaultsAndFirstWriteMakesTwoLines) {
  IniStore store(path_);  // creates the missing file
  EXPECT_TRUE(std::filesystem::exists(HostFile()));
  EXPECT_EQ(store.GetValue(u"S", u"K", u"dflt"), CString(u"dflt"));
  EXPECT_EQ(store.GetIntValue(u"S", u"K", 5), 5);
  EXPECT_EQ(store.WriteValue(u"OPTION_SETTING", u"GAIJI_REPLACE", u"1"), 0);
  EXPECT_EQ(ReadFile(), "[OPTION_SETTING]\nGAIJI_REPLACE=1\n");
  EXPECT_FALSE(std::filesystem::exists(HostFile() + ".BAK"));
}

TEST_F(IniStoreTest, LoadRemovesBlanksAndTheScanMatchesExactly) {
  WriteFile("TOP=0\r\n[ DICT_LIST ]\nTITLE_0000=x\nTITLE=a=b c\nN=\nW=abc\n[DICT_LIST]\nX=2\n"
            "[broken\nY=3\n");
  IniStore store(path_);
  EXPECT_EQ(store.GetValue(u"DICT_LIST", u"TITLE", u"-"), CString(u"a=bc"));
  EXPECT_EQ(store.GetValue(u"DICT_LIST", u"TOP", u"-"), CString(u"-"));  // before any header
  EXPECT_EQ(store.GetValue(u"DICT_LIST", u"X", u"-"), CString(u"-"));    // second section unseen
  EXPECT_EQ(store.GetValue(u"dict_list", u"TITLE", u"-"), CString(u"-"));
  EXPECT_EQ(store.GetValue(u"DICT_LIST", u"N", u"-"), CString());
  EXPECT_EQ(store.GetIntValue(u"DICT_LIST", u"N", 9), 0);
  EXPECT_EQ(store.GetIntValue(u"DICT_LIST", u"W", 9), 0);
  EXPECT_EQ(store.GetValue(u"broken", u"Y", u"-"), CString(u"-"));
  store.SetValue(u"DICT_LIST", u"W", u"__error__");
  EXPECT_EQ(store.GetIntValue(u"DICT_LIST", u"W", 9), 9);
  store.SetValue(u"DICT_LIST", u"V", u"a b");
  EXPECT_EQ(store.GetValue(u"DICT_LIST", u"V", u"-"), CString(u"a b"));  // blanks stay in memory
}

TEST_F(IniStoreTest, SetValuePlacement) {
  WriteFile("[A]\nk=1\n\n\n[B]\nk=2\n");
  IniStore store(path_);
  store.SetValue(u"A", u"new", u"x");
  store.SetValue(u"B", u"k", u"3");
  store.SetValue(u"B", u"last", u"4");
  EXPECT_EQ(store.WriteValue(u"C", u"k", u"5"), 0);
  EXPECT_EQ(ReadFile(), "[A]\nk=1\n\n\nnew=x\n[B]\nk=3\nlast=4\n[C]\nk=5\n");
}

TEST_F(IniStoreTest, LongLinesAndCharactersOutsideTheCodePage) {
  std::string longValue;
  for (int i = 0; i < 130; ++i) longValue += "\x82\xa0";  // あ x 130: 260 bytes
  WriteFile("[S]\nk=" + longValue + "\n");
  IniStore store(path_);
  // The read of 255 bytes stops before the character it would split.
  EXPECT_EQ(store.GetValue(u"S", u"k", u"-").GetLength(), 126);
  store.SetValue(u"S", u"k", CString(u'あ', 200));
  EXPECT_EQ(store.WriteValue(u"S", u"e", u"caf\u00e9"), 0);
  std::string text = ReadFile();
  std::string expectedFirst = "[S]\nk=" + longValue.substr(0, 252) + "\n";
  EXPECT_EQ(text.substr(0, expectedFirst.size()), expectedFirst);
  EXPECT_NE(text.find("e=caf?\n"), std::string::npos);
}

TEST_F(IniStoreTest, StaleBackupIsReplacedAndDeleted) {
  WriteFile("[S]\nk=1\n");
  std::ofstream(HostFile() + ".BAK") << "stale\n";
  IniStore store(path_);
  EXPECT_EQ(store.WriteValue(u"S", u"k", u"2"), 0);
  EXPECT_EQ(ReadFile(), "[S]\nk=2\n");
  EXPECT_FALSE(std::filesystem::exists(HostFile() + ".BAK"));
}

TEST_F(IniStoreTest, FailedRewritesKeepTheSettings) {
  const std::string original = "[S]\nk=1\n";
  WriteFile(original);
  // A write of `value` through `files` in place of the real file system.
  auto writeThrough = [this](FileSystem& files, const char16_t* value) {
    IniStore store(path_);
    FileSystem* real = SetFileSystem(&files);
    const int result = store.WriteValue(u"S", u"k", value);
    SetFileSystem(real);
    return result;
  };
  FullCardFileSystem full;
  EXPECT_EQ(writeThrough(full, u"2"), -1);
  EXPECT_EQ(ReadFile(), original);
  EXPECT_FALSE(std::filesystem::exists(HostFile() + ".BAK"));
  {
    std::filesystem::create_directory(HostFile() + ".BAK");  // a folder where the backup goes
    IniStore store(path_);
    EXPECT_EQ(store.WriteValue(u"S", u"k", u"3"), -1);
    EXPECT_EQ(ReadFile(), original);
    std::filesystem::remove(HostFile() + ".BAK");
  }
  ReadOnlyFolderFileSystem readOnly;
  EXPECT_EQ(writeThrough(readOnly, u"4"), -1);
  EXPECT_EQ(ReadFile(), original);
}

TEST_F(IniStoreTest, UnopenableFileIsNotLoaded) {
  std::filesystem::create_directory(HostFile());  // a folder where the file should be
  IniStore store(path_);
  EXPECT_EQ(store.GetValue(u"S", u"k", u"d"), CString(u"d"));
  EXPECT_EQ(store.WriteValue(u"S", u"k", u"1"), -1);
  EXPECT_TRUE(std::filesystem::is_directory(HostFile()));
  EXPECT_FALSE(std::filesystem::exists(HostFile() + ".BAK"));
}
