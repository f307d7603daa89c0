// Our language files ("EPWING_MENU.lng", "vekwrdJpn.lng"): UTF-8 text, one
// "key=value" a line; blanks around the key are dropped, the value is kept
// as it stands up to the line's end; lines starting with "#", empty lines
// and lines without "=" are skipped; a byte-order mark is allowed. A later
// line for the same key wins.
#ifndef CONTROLS_LANGUAGE_FILE_H_
#define CONTROLS_LANGUAGE_FILE_H_

#include <map>
#include <string>

#include "platform/wide_string.h"

class LanguageFile {
 public:
  // Reads `name`. A name with a separator in it is a device name
  // ("\windows\vekwrdJpn.lng") or a host path from the root; a bare name is
  // looked for in the program's data folder (platform/program_folder.h).
  // When the device name can't be opened, its last part is looked for in the
  // data folder, where the reader ships its language files. False, and no
  // words, when nothing could be read; the words read before are dropped in
  // either case.
  bool Load(const CString& name);
  // Reads the text of a file already in memory.
  void Parse(const std::string& utf8);
  // The value of `key`, or `fallback` when the file had none.
  CString Get(const std::string& key, const CString& fallback) const;

 private:
  std::map<std::string, CString> words_;  // by key
};

#endif  // CONTROLS_LANGUAGE_FILE_H_
