#include "store/settings_file.h"

#include <algorithm>

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

}  // namespace

CString GetProgramFolder() {
  char16_t name[kModuleNameSize];
  if (GetModuleFileNameW(nullptr, name, kModuleNameSize) == 0) return u".";
  CString path(name);
  return path.Left(path.ReverseFind(u'\\'));
}

CString SettingsFilePath() { return GetProgramFolder() + u"\\epwingdict.ini"; }

void LoadSettings(const CString& path, DisplayOptions& options, DictionaryEntryArray& list) {
  IniStore store(path);
  DisplayOptions defaults;
  for (const OptionKey& option : kOptionKeys)
    options.*option.field = store.GetIntValue(kOptionSection, option.key, defaults.*option.field);
  int32_t size = std::min(store.GetIntValue(kListSection, u"LIST_SIZE", 0), kMaxStoredDictionaries);
  for (int32_t n = 0; n < size; ++n) {
    DictionaryEntry entry;
    entry.title = store.GetValue(kListSection, EntryKey(u"TITLE_", n), u"");
    entry.path = store.GetValue(kListSection, EntryKey(u"PATH_", n), u"");
    entry.bookNumber = store.GetIntValue(kListSection, EntryKey(u"BOOKNUM_", n), 0);
    AppendDictionary(list, entry);
  }
}

void SaveSettings(const CString& path, const DisplayOptions& options,
                  const DictionaryEntryArray& list, int32_t builtinCount) {
  int32_t count = static_cast<int32_t>(list.size());
  builtinCount = std::clamp(builtinCount, 0, count);
  IniStore store(path);
  for (const OptionKey& option : kOptionKeys)
    store.WriteValue(kOptionSection, option.key, Number(options.*option.field));
  int32_t size = count - builtinCount;
  store.WriteValue(kListSection, u"LIST_SIZE", Number(size));
  for (int32_t n = 0; n < size; ++n) {
    const DictionaryEntry& entry = list[static_cast<size_t>(builtinCount + n)];
    store.WriteValue(kListSection, EntryKey(u"TITLE_", n), entry.title);
    store.WriteValue(kListSection, EntryKey(u"PATH_", n), entry.path);
    store.WriteValue(kListSection, EntryKey(u"BOOKNUM_", n), Number(entry.bookNumber));
  }
}
