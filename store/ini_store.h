// IniStore: the settings file as an ordered list of lines, looked at by
// their text whenever a key is asked for. An object lives for one load or
// one save; nothing holds the file open between calls.
#ifndef STORE_INI_STORE_H_
#define STORE_INI_STORE_H_

#include <cstdint>
#include <vector>

#include "platform/wide_string.h"

class IniStore {
 public:
  // Opens the file (creating it when missing, never truncating it) and
  // reads its lines. When it cannot be opened, the store is not loaded:
  // every read gives its default and WriteValue touches nothing.
  explicit IniStore(CString path);
  virtual ~IniStore() = default;

  // The text behind "key=" in the section, which may be empty, or
  // `defaultValue` when the key is not there.
  CString GetValue(CString section, CString key, CString defaultValue);
  // The value read as a decimal number (0 when it is empty or no number),
  // or `defaultValue` when the key is not there.
  int32_t GetIntValue(CString section, CString key, int32_t defaultValue);
  // Changes the lines in memory only: the key's line is replaced, or a new
  // one goes at the end of its section, or the section and the line are
  // appended.
  void SetValue(CString section, CString key, CString value);
  // SetValue, then rewrites the whole file. 0 when the file holds the new
  // lines; -1 when the store is not loaded or the rewrite failed, and then
  // the file holds what it held before.
  int WriteValue(CString section, CString key, CString value);

 private:
  // Where the scan for a key ended.
  struct KeyScan {
    int index;       // the key's line, or where the scan stopped (-1: no line)
    bool found;      // the key's line is at `index`
    bool inSection;  // the section's header was met
  };
  KeyScan FindKey(const CString& section, const CString& key) const;
  // Writes every line to filePath; false when anything went wrong.
  bool WriteLines() const;

  CString filePath;            // the file's device name, given at construction
  bool loaded = false;         // true when the file could be opened at construction
  std::vector<CString> lines;  // the file's lines in order, without line feeds or blanks
};

#endif  // STORE_INI_STORE_H_
