#include "store/settings_file.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "platform/device_path.h"
#include "platform/file_calls.h"
#include "store/ini_store.h"

namespace {

constexpr const char16_t* kOptionSection = u"OPTION_SETTING";
constexpr const char16_t* kListSection = u"DICT_LIST";
constexpr int kModuleNameSize = 520;

// The options in the order of the file, with their keys.
struct OptionKey {
  const char16_t* key;
  int32_t DisplayOptions::*field;
};
constexpr OptionKey kOptionKeys[] = {
    {u"GAIJI_REPLACE", &DisplayOptions::gaijiReplace},
    {u"GAIJI_VISIBLE", &DisplayOptions::gaijiVisible},
    {u"SYLLABLE_VISIBLE", &DisplayOptions::syllableVisible},
    {u"PH_SIGNS_VISIBLE", &DisplayOptions::phSignsVisible},
    {u"LINK_VISIBLE", &DisplayOptions::linkVisible},
};

CString Number(int32_t value) {
  CString text;
  text.Format(u"%d", static_cast<int>(value));
  return text;
}

// "TITLE_0000" and its kind for entry `n`.
CString EntryKey(const char16_t* prefix, int32_t n) {
  CString key;
  key.Format(u"%s%04d", prefix, static_cast<int>(n));
  return key;
}

// The number of registered dictionaries that a load reads.
int32_t StoredCount(const IniStore& store) {
  return std::clamp(store.GetIntValue(kListSection, u"LIST_SIZE", 0), 0, kMaxStoredDictionaries);
}

// True when the file holds every key that a load reads.
bool HoldsEveryLoadedKey(const IniStore& store) {
  for (const OptionKey& option : kOptionKeys)
    if (!store.HasKey(kOptionSection, option.key)) return false;
  if (!store.HasKey(kListSection, u"LIST_SIZE")) return false;
  const int32_t size = StoredCount(store);
  for (int32_t n = 0; n < size; ++n) {
    for (const char16_t* prefix : {u"TITLE_", u"PATH_", u"BOOKNUM_"})
      if (!store.HasKey(kListSection, EntryKey(prefix, n))) return false;
  }
  return true;
}

// One line on standard error about the file at `path`.
void Say(const char* format, const CString& path) {
  std::fprintf(stderr, format, HostPath(path).c_str());
}

}  // namespace

CString GetProgramFolder() {
  char16_t name[kModuleNameSize];
  if (GetModuleFileNameW(nullptr, name, kModuleNameSize) == 0) return u".";
  CString path(name);
  return path.Left(path.ReverseFind(u'\\'));
}

CString SettingsFilePath() { return GetProgramFolder() + u"\\epwingdict.ini"; }

void LoadSettings(const CString& path, DisplayOptions& options, DictionaryEntryArray& list) {
  IniStore store(path, HoldsEveryLoadedKey);
  if (store.LoadState() == IniLoad::kTooLarge)
    Say("epwingdict: the settings file %s is larger than 1 MB: not read, and left as it is; "
        "the reader starts with the default settings and will not save them\n", path);
  if (store.LoadState() == IniLoad::kUnreadable)
    Say("epwingdict: the settings file %s could not be read: left as it is; "
        "the reader starts with the default settings and will not save them\n", path);
  if (store.BackupTakenBack())
    Say("epwingdict: the settings file %s was missing or cut short: its backup was taken back\n",
        path);
  DisplayOptions defaults;
  for (const OptionKey& option : kOptionKeys)
    options.*option.field = store.GetIntValue(kOptionSection, option.key, defaults.*option.field);
  const int32_t size = StoredCount(store);
  for (int32_t n = 0; n < size; ++n) {
    DictionaryEntry entry;
    entry.title = store.GetValue(kListSection, EntryKey(u"TITLE_", n), u"");
    entry.path = store.GetValue(kListSection, EntryKey(u"PATH_", n), u"");
    entry.bookNumber = store.GetIntValue(kListSection, EntryKey(u"BOOKNUM_", n), 0);
    AppendDictionary(list, entry);
  }
}

bool SaveSettings(const CString& path, const DisplayOptions& options,
                  const DictionaryEntryArray& list, int32_t builtinCount) {
  int32_t count = static_cast<int32_t>(list.size());
  builtinCount = std::clamp(builtinCount, 0, count);
  const int32_t size = count - builtinCount;
  IniStore store(path, HoldsEveryLoadedKey);
  if (store.LoadState() == IniLoad::kTooLarge || store.LoadState() == IniLoad::kUnreadable)
    return false;  // said at start
  if (size > kMaxStoredDictionaries) {
    std::fprintf(stderr,
                 "epwingdict: the settings could not be saved: %d dictionaries are more than "
                 "the %d that a start reads\n",
                 static_cast<int>(size), static_cast<int>(kMaxStoredDictionaries));
    return false;
  }
  for (const OptionKey& option : kOptionKeys)
    store.SetValue(kOptionSection, option.key, Number(options.*option.field));
  store.SetValue(kListSection, u"LIST_SIZE", Number(size));
  for (int32_t n = 0; n < size; ++n) {
    const DictionaryEntry& entry = list[static_cast<size_t>(builtinCount + n)];
    store.SetValue(kListSection, EntryKey(u"TITLE_", n), entry.title);
    store.SetValue(kListSection, EntryKey(u"PATH_", n), entry.path);
    store.SetValue(kListSection, EntryKey(u"BOOKNUM_", n), Number(entry.bookNumber));
  }
  switch (store.Save()) {
    case IniSave::kSaved:
      return true;
    case IniSave::kNotLoaded:  // not met: handled above
      return false;
    case IniSave::kReadOnly:
      Say("epwingdict: the settings could not be saved: %s is read-only\n", path);
      return false;
    case IniSave::kTooLarge:
      Say("epwingdict: the settings could not be saved: they would make %s larger than 1 MB\n",
          path);
      return false;
    case IniSave::kFailed:
      break;
  }
  Say("epwingdict: the settings could not be saved: %s could not be written\n", path);
  return false;
}
