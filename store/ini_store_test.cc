#include "store/ini_store.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

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

// A folder where nothing can be renamed or deleted.
class ReadOnlyFolderFileSystem : public RealFileSystem {
 public:
  bool Move(const std::string&, const std::string&) override { return false; }
  bool Delete(const std::string&) override { return false; }
};

// A process that dies after `steps` calls that change the disk: from then
// on every such call fails and changes nothing, so the folder is left as
// a kill at that moment leaves it.
class DyingFileSystem : public RealFileSystem {
 public:
  explicit DyingFileSystem(int steps) : steps_(steps) {}
  FILE* Open(const std::string& path, const char* mode) override {
    if (mode[0] != 'r' && !Step()) return nullptr;
    return RealFileSystem::Open(path, mode);
  }
  bool Move(const std::string& from, const std::string& to) override {
    return Step() && RealFileSystem::Move(from, to);
  }
  bool Delete(const std::string& path) override { return Step() && RealFileSystem::Delete(path); }
  bool Sync(FILE* file) override { return Step() && RealFileSystem::Sync(file); }
  bool SyncFolder(const std::string& folder) override {
    return Step() && RealFileSystem::SyncFolder(folder);
  }
  bool Died() const { return steps_ < 0; }

 private:
  bool Step() { return --steps_ >= 0; }
  int steps_;
};

}  // namespace

// A missing file gives the defaults and is made by the first write; one
// that can't be opened is left alone.
TEST_F(IniStoreTest, MissingOrUnopenableFile) {
  IniStore store(path_);
  EXPECT_EQ(store.LoadState(), IniLoad::kMissing);
  EXPECT_FALSE(std::filesystem::exists(HostFile()));  // made when there is something to keep
  EXPECT_EQ(store.GetValue(u"S", u"K", u"dflt"), CString(u"dflt"));
  EXPECT_EQ(store.GetIntValue(u"S", u"K", 5), 5);
  EXPECT_EQ(store.WriteValue(u"OPTION_SETTING", u"GAIJI_REPLACE", u"1"), 0);
  EXPECT_EQ(ReadFile(), "[OPTION_SETTING]\nGAIJI_REPLACE=1\n");
  for (const char* suffix : {".BAK", ".NEW"})
    EXPECT_FALSE(std::filesystem::exists(HostFile(suffix))) << suffix;

  std::filesystem::remove(HostFile());
  std::filesystem::create_directory(HostFile());  // a folder where the file should be
  IniStore unopenable(path_);
  EXPECT_EQ(unopenable.LoadState(), IniLoad::kUnreadable);
  EXPECT_EQ(unopenable.GetValue(u"S", u"k", u"d"), CString(u"d"));
  EXPECT_EQ(unopenable.WriteValue(u"S", u"k", u"1"), -1);
  EXPECT_TRUE(std::filesystem::is_directory(HostFile()));
  EXPECT_FALSE(std::filesystem::exists(HostFile(".BAK")));
}

TEST_F(IniStoreTest, BlanksCountInValuesOnlyAndTheScanMatchesExactly) {
  WriteFile("TOP=0\r\r\n[ DICT_LIST ]\nTITLE_0000=x\nTITLE=a=b c \nN=\nW=abc\nLIST_SIZE =3\r\n"
            "[DICT_LIST]\nX=2\n[broken\nY=3\n");
  IniStore store(path_);
  EXPECT_EQ(store.GetValue(u"DICT_LIST", u"TITLE", u"-"), CString(u"a=b c "));
  EXPECT_EQ(store.GetIntValue(u"DICT_LIST", u"LIST_SIZE", 0), 3);
  EXPECT_EQ(store.GetValue(u"DICT_LIST", u"TOP", u"-"), CString(u"-"));  // before any header
  EXPECT_EQ(store.GetValue(u"DICT_LIST", u"X", u"-"), CString(u"-"));    // second section unseen
  EXPECT_EQ(store.GetValue(u"dict_list", u"TITLE", u"-"), CString(u"-"));
  EXPECT_EQ(store.GetValue(u"DICT_LIST", u"N", u"-"), CString());
  EXPECT_EQ(store.GetIntValue(u"DICT_LIST", u"N", 9), 0);
  EXPECT_EQ(store.GetIntValue(u"DICT_LIST", u"W", 9), 0);
  EXPECT_EQ(store.GetValue(u"broken", u"Y", u"-"), CString(u"-"));
  store.SetValue(u"DICT_LIST", u"W", u"__error__");
  EXPECT_EQ(store.GetIntValue(u"DICT_LIST", u"W", 9), 9);
  // A new key goes behind the section's last line, before the repeated header.
  EXPECT_EQ(store.WriteValue(u"DICT_LIST", u"V", u" a b "), 0);
  EXPECT_EQ(ReadFile(), "TOP=0\n[ DICT_LIST ]\nTITLE_0000=x\nTITLE=a=b c \nN=\nW=__error__\n"
                        "LIST_SIZE =3\nV= a b \n[DICT_LIST]\nX=2\n[broken\nY=3\n");
  IniStore again(path_);
  EXPECT_EQ(again.GetValue(u"DICT_LIST", u"V", u"-"), CString(u" a b "));
}

TEST_F(IniStoreTest, SetValuePlacement) {
  WriteFile("[A]\nk=1\n\n\n[B]\nk=2\n");
  IniStore store(path_);
  store.SetValue(u"A", u"new", u"x");
  store.SetValue(u"B", u"k", u"3");
  store.SetValue(u"B", u"last", u"4");
  store.SetValue(u"C", u"k", u"5");
  store.SetValue(u"B", u"after", u"6");  // B was closed by C's new header
  EXPECT_EQ(store.WriteValue(u"C", u"k2", u"7"), 0);
  EXPECT_EQ(ReadFile(), "[A]\nk=1\n\n\nnew=x\n[B]\nk=3\nlast=4\nafter=6\n[C]\nk=5\nk2=7\n");
}

// A backup is taken back for a file missing or cut short; beside a whole
// file it is stale, and the next save deletes it.
TEST_F(IniStoreTest, BackupIsTakenBackOnlyForAFileMissingOrCutShort) {
  const struct {
    const char* file;  // null: missing
    const char* backup;
    const char* loaded;  // what the store then holds as k
    bool takenBack;
  } cases[] = {
      {nullptr, "[S]\nk=old\n", "old", true},
      {nullptr, "[S]\nk=cut", "cut", true},  // better than nothing
      {"", "[S]\nk=old\n", "old", true},
      {"[S]\nk=ne", "[S]\nk=old\n", "old", true},
      {"[S]\nk=ne", "[S]\nk=ol", "ne", false},  // neither whole: the file stays
      {"[S]\nk=1\n", "[S]\nk=0\n", "1", false},  // stale
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.backup);
    std::filesystem::remove(HostFile());
    if (c.file != nullptr) WriteFile(c.file);
    std::ofstream(HostFile(".BAK"), std::ios::binary) << c.backup;
    IniStore store(path_);
    EXPECT_EQ(store.GetValue(u"S", u"k", u"-"), CString(c.loaded));
    EXPECT_EQ(store.BackupTakenBack(), c.takenBack);
    EXPECT_EQ(std::filesystem::exists(HostFile(".BAK")), !c.takenBack);
    if (c.takenBack) {
      EXPECT_EQ(ReadFile(), c.backup);
    }
    EXPECT_EQ(store.WriteValue(u"S", u"k", u"2"), 0);
    EXPECT_EQ(ReadFile(), "[S]\nk=2\n");
    EXPECT_FALSE(std::filesystem::exists(HostFile(".BAK")));
  }
}

// A save that fails, on a full card, in a folder where nothing can be
// renamed or with a folder where the backup goes, answers -1 and leaves the file as it was; a death at any step of
// a save leaves the old file or the new one, whole, for the next start.
TEST_F(IniStoreTest, FailedOrKilledSavesLeaveTheOldOrTheNewFile) {
  const std::string before = "[S]\nk=old\n";
  // A write of "new" over `before` through `files`; its result.
  auto writeThrough = [&](FileSystem& files) {
    WriteFile(before);
    IniStore store(path_);
    FileSystem* real = SetFileSystem(&files);
    const int result = store.WriteValue(u"S", u"k", u"new");
    SetFileSystem(real);
    return result;
  };
  FullCardFileSystem full;
  EXPECT_EQ(writeThrough(full), -1);
  EXPECT_EQ(ReadFile(), before);
  EXPECT_FALSE(std::filesystem::exists(HostFile(".BAK")));
  ReadOnlyFolderFileSystem readOnly;
  EXPECT_EQ(writeThrough(readOnly), -1);
  EXPECT_EQ(ReadFile(), before);
  RealFileSystem real;
  std::filesystem::create_directory(HostFile(".BAK"));
  EXPECT_EQ(writeThrough(real), -1);
  EXPECT_EQ(ReadFile(), before);
  std::filesystem::remove(HostFile(".BAK"));

  for (int steps = 0;; ++steps) {
    DyingFileSystem dying(steps);
    const int result = writeThrough(dying);
    const CString value = IniStore(path_).GetValue(u"S", u"k", u"-");  // the next start
    EXPECT_TRUE(value == CString(u"old") || value == CString(u"new")) << steps;
    if (!dying.Died()) {
      EXPECT_EQ(result, 0);
      EXPECT_EQ(value, CString(u"new"));
      break;
    }
  }
}

// Sizes no one writes by hand: a file at the size limit, a line of most of
// a megabyte, bytes that are no text. (A file beyond the limit:
// settings_file_test.cc.)
TEST_F(IniStoreTest, FileAtTheLimitLoadsAndRewritesWhole) {
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

TEST_F(IniStoreTest, LinesOfAnyLengthAndNoText) {
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
  EXPECT_EQ(ReadFile().substr(0, 900001), text.substr(0, 900001));
}
