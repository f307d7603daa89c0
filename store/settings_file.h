// The settings file "epwingdict.ini" in the program's folder: the five
// display options and the registered dictionaries, read once at start and
// written once at closing. Written from nothing it holds these lines, in
// this order (the three keys of each entry together, numbered from 0 with
// "%04d"; integers as "%d"):
//
//   [OPTION_SETTING]
//   GAIJI_REPLACE=1
//   GAIJI_VISIBLE=0
//   SYLLABLE_VISIBLE=0
//   PH_SIGNS_VISIBLE=0
//   LINK_VISIBLE=0
//   [DICT_LIST]
//   LIST_SIZE=1
//   TITLE_0000=...
//   PATH_0000=...
//   BOOKNUM_0000=0
//
// Only registered dictionaries are stored: entry 0 of the file is entry
// builtinCount of the list. A save changes the keys that are there and
// leaves other lines alone, so the keys of entries that were deleted stay
// behind, unread, since a load stops at LIST_SIZE.
#ifndef STORE_SETTINGS_FILE_H_
#define STORE_SETTINGS_FILE_H_

#include <cstdint>

#include "platform/wide_string.h"
#include "store/dictionary_list.h"
#include "store/display_options.h"

// A load takes at most this many registered dictionaries, so that a
// damaged LIST_SIZE can neither fill memory nor make the save at closing
// (one rewrite of the whole file per key) take minutes; users register a
// few dozen.
constexpr int32_t kMaxStoredDictionaries = 200;

// The device name of the program's folder, without a trailing backslash:
// what the program's own path holds before its last backslash, or "." when
// that path cannot be had. Here it is the folder that the platform maps to
// the user's configuration folder.
CString GetProgramFolder();

// GetProgramFolder() + "\epwingdict.ini".
CString SettingsFilePath();

// Reads the options (each missing key keeps its default) into `options`
// and appends the stored dictionaries to `list`, unchecked. A missing file
// is created empty; a file that cannot be opened gives the defaults.
void LoadSettings(const CString& path, DisplayOptions& options, DictionaryEntryArray& list);

// Writes the options and the entries of `list` from `builtinCount` on,
// each key through a rewrite of the whole file. Writes nothing when the
// file cannot be opened.
void SaveSettings(const CString& path, const DisplayOptions& options,
                  const DictionaryEntryArray& list, int32_t builtinCount);

#endif  // STORE_SETTINGS_FILE_H_
