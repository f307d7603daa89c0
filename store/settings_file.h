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
// behind, unread, since a load stops at LIST_SIZE. Values are stored
// exactly, blanks and all (store/ini_value_escape.h), and a save is one
// rewrite of the whole file that never leaves it cut (store/ini_store.h).
//
// The file is whole when it ends in a line feed and holds every key that a
// load reads: the five options, LIST_SIZE and the three keys of each
// entry. A start that finds it otherwise, with a whole backup beside it
// (left by a save that was cut off), takes the backup back.
//
// What goes wrong is said in one line on standard error, once: at start
// for a file that is not read (too large, unreadable) and so will not be
// written either, at closing for a save that could not be made (a
// read-only file among them).
#ifndef STORE_SETTINGS_FILE_H_
#define STORE_SETTINGS_FILE_H_

#include <cstdint>

#include "platform/wide_string.h"
#include "store/dictionary_list.h"
#include "books/display_options.h"
#include "store/ini_store.h"

// A load takes at most this many registered dictionaries, so that a
// damaged LIST_SIZE can neither fill memory nor make every later save fail:
// their keys keep four digits, and as many entries with no title and no
// path (38 bytes each) fit in a file within the size limit twice over.
// Users register a few dozen; a save of more is refused rather than have
// the next start drop some.
constexpr int32_t kMaxStoredDictionaries = 9999;

// The device name of the program's folder, without a trailing backslash:
// what the program's own path holds before its last backslash, or "." when
// that path cannot be had. Here it is the folder that the platform maps to
// the user's configuration folder.
CString GetProgramFolder();

// GetProgramFolder() + "\epwingdict.ini".
CString SettingsFilePath();

// Reads the options (each missing key keeps its default) into `options`
// and appends the stored dictionaries to `list`, unchecked. A missing file
// gives the defaults and is not created; so does a file that is not read.
void LoadSettings(const CString& path, DisplayOptions& options, DictionaryEntryArray& list);

// Writes the options and the entries of `list` from `builtinCount` on, in
// one rewrite of the file, with the lines that writing them key by key
// would give. Writes nothing to a file that was not read or is read-only.
// True when the file holds them.
bool SaveSettings(const CString& path, const DisplayOptions& options,
                  const DictionaryEntryArray& list, int32_t builtinCount);

#endif  // STORE_SETTINGS_FILE_H_
