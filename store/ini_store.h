// IniStore: the settings file as an ordered list of lines. An object lives
// for one load or one save; nothing holds the file open between calls.
//
// The file is never written in place. A save writes the new text to
// "<file>.NEW", pushes it to the disk, moves the old file aside to
// "<file>.BAK", renames the new one into place and then deletes the
// backup, so that at every instant a whole file stands under one of the
// names. A store that finds its file missing or cut short while a whole
// backup stands beside it takes the backup back.
#ifndef STORE_INI_STORE_H_
#define STORE_INI_STORE_H_

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <unordered_map>

#include "platform/wide_string.h"

// The largest file that is read or written: a settings file of 250
// dictionaries with long names takes about a third of it, and anything
// larger is not one the reader wrote.
constexpr size_t kMaxIniBytes = size_t{1} << 20;

// What construction found.
enum class IniLoad {
  kRead,        // the file (or the backup taken back) was read
  kMissing,     // there is no file: every read gives its default, a save makes it
  kTooLarge,    // the file is larger than kMaxIniBytes: not read, and never written
  kUnreadable,  // the file could not be opened or read: never written
};

// What a save did.
enum class IniSave {
  kSaved,      // the file holds the lines
  kNotLoaded,  // the file was too large or unreadable at construction: left alone
  kReadOnly,   // the file is read-only: left alone
  kTooLarge,   // the lines take more than kMaxIniBytes: the file is left as it was
  kFailed,     // the new file could not be written or put in place: the old one stays
};

class IniStore {
 public:
  // A test of a file that was read: true when it is whole, that is, when
  // it holds everything its reader looks for.
  using WholeTest = bool (*)(const IniStore& store);

  // Reads the file; a missing file is not created. When the file is
  // missing, or when it was read and is not whole (it does not end in a
  // line feed, or `isWhole` says no), and a backup stands beside it that
  // is whole, the backup takes the file's place and its lines are read.
  // A missing file takes back any backup that can be read. A read-only
  // file is read as it is.
  explicit IniStore(CString path, WholeTest isWhole = nullptr);
  virtual ~IniStore() = default;
  IniStore(const IniStore&) = delete;
  IniStore& operator=(const IniStore&) = delete;

  IniLoad LoadState() const { return loadState; }
  // True when the backup took the place of a file missing or cut short.
  bool BackupTakenBack() const { return backupTakenBack; }
  // The file's device name.
  const CString& FilePath() const { return filePath; }

  // The value behind "key=" in the section, which may be empty, or
  // `defaultValue` when the key is not there.
  CString GetValue(CString section, CString key, CString defaultValue) const;
  // The value read as a decimal number (0 when it is empty or no number),
  // or `defaultValue` when the key is not there.
  int32_t GetIntValue(CString section, CString key, int32_t defaultValue) const;
  // True when the section holds the key.
  bool HasKey(const CString& section, const CString& key) const;
  // Changes the lines in memory only: the key's line is replaced, or a new
  // one goes at the end of its section, or the section and the line are
  // appended. Section and key names hold no blank, "=" or "]", and a key
  // does not begin with "[".
  void SetValue(CString section, CString key, CString value);
  // Writes all lines to the file, in the way above.
  IniSave Save();
  // SetValue, then Save: 0 when the file holds the new lines, -1 otherwise
  // (the file then holds what it held before).
  int WriteValue(CString section, CString key, CString value);

 private:
  using Line = std::list<CString>::iterator;
  // The first section of a name: the only one that a key is looked up in.
  struct Section {
    Line end;          // the line that ends it ("[" at its start), unless `open`
    bool open = true;  // it runs to the end of the file
    std::unordered_map<std::u16string, Line> keys;  // each key's first line in it
  };

  IniStore() = default;
  // Reads and indexes the file at the host path `hostPath`.
  void Read(const std::string& hostPath);
  // Splits `bytes` into lines and indexes their sections and keys.
  void Parse(const std::string& bytes);
  // True when the bytes read end in a line feed and `isWhole`, if any, agrees.
  bool IsWhole(WholeTest isWhole) const;
  // The key's line, or null.
  const CString* FindLine(const CString& section, const CString& key) const;
  // The whole text of the file.
  std::string Text() const;

  CString filePath;                  // the file's device name, given at construction
  IniLoad loadState = IniLoad::kMissing;  // what construction found
  bool backupTakenBack = false;      // the backup replaced a file missing or cut short
  bool endsWithLineFeed = false;     // the bytes read end in a line feed
  std::list<CString> lines;          // the file's lines in order, as written, without line feeds
  std::unordered_map<std::u16string, Section> sections;  // by name without blanks
  Section* openAtEnd = nullptr;      // the section that runs to the end of `lines`, if any
};

#endif  // STORE_INI_STORE_H_
