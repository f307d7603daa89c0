// The settings file, in the system code page (CP932), one line each:
//
//   "[" section "]"      a section header
//   key "=" value        a key line of the section above it
//   anything else        carried along as it stands, never interpreted
//
// Lines end in a line feed; carriage returns before it are dropped (a
// value never ends in one: it is escaped). Blanks do not count in headers
// and keys ("[ DICT_LIST ]" and "LIST_SIZE =3" name what "[DICT_LIST]" and
// "LIST_SIZE=3" do), but a value keeps every unit behind the first "=",
// blanks included; what a line cannot carry is escaped
// (store/ini_value_escape.h). A section runs from its header to the
// next line that begins with "["; a key is looked up in the first section
// of its name only, and its first line there wins, so keys before the
// first header and in a repeated section are out of reach. Lines have no
// length limit, but the file has one: kMaxIniBytes.
#include "store/ini_store.h"

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string_view>

#include "platform/code_page.h"
#include "platform/device_path.h"
#include "platform/file_system.h"
#include "platform/read_file.h"
#include "store/ini_value_escape.h"

namespace {

// The file's bytes into `bytes`, reading not much past the limit.
IniLoad ReadBytes(FileSystem& files, const std::string& hostPath, std::string& bytes) {
  bytes.clear();
  if (!files.Exists(hostPath)) return IniLoad::kMissing;
  FILE* file = files.Open(hostPath, "rb");
  if (file == nullptr) return IniLoad::kUnreadable;
  bytes = ReadToEnd(file, kMaxIniBytes);
  const bool failed = std::ferror(file) != 0;
  std::fclose(file);
  if (failed) return IniLoad::kUnreadable;
  return bytes.size() > kMaxIniBytes ? IniLoad::kTooLarge : IniLoad::kRead;
}

std::u16string WithoutBlanks(std::u16string_view text) {
  std::u16string kept;
  for (char16_t unit : text)
    if (unit != u' ') kept += unit;
  return kept;
}

std::string FolderOf(const std::string& hostPath) {
  return std::filesystem::path(hostPath).parent_path().string();
}

}  // namespace

IniStore::IniStore(CString path, WholeTest isWhole) : filePath(std::move(path)) {
  FileSystem& files = CurrentFileSystem();
  const std::string host = HostPath(filePath);
  Read(host);
  const bool cut = loadState == IniLoad::kMissing ||
                   (loadState == IniLoad::kRead && !IsWhole(isWhole) && !files.ReadOnly(host));
  const std::string backupHost = HostPath(filePath + u".BAK");
  if (!cut || !files.Exists(backupHost)) return;
  IniStore backup;
  backup.Read(backupHost);
  if (backup.loadState != IniLoad::kRead) return;
  if (loadState == IniLoad::kRead && !backup.IsWhole(isWhole)) return;
  // Moved back under the file's name when that can be done; read all the
  // same when it cannot, since it holds more than the file.
  std::string takenBack = backupHost;
  if ((loadState == IniLoad::kMissing || files.Delete(host)) && files.Move(backupHost, host)) {
    files.SyncFolder(FolderOf(host));
    takenBack = host;
  }
  Read(takenBack);
  backupTakenBack = true;
}

void IniStore::Read(const std::string& hostPath) {
  std::string bytes;
  loadState = ReadBytes(CurrentFileSystem(), hostPath, bytes);
  Parse(loadState == IniLoad::kRead ? bytes : std::string());
}

void IniStore::Parse(const std::string& bytes) {
  lines.clear();
  sections.clear();
  openAtEnd = nullptr;
  endsWithLineFeed = !bytes.empty() && bytes.back() == '\n';
  // A line feed is never part of a two-byte character, so the text splits
  // the same after decoding.
  const std::u16string text = DecodeMultiByte(bytes);
  Section* open = nullptr;
  for (size_t start = 0; start < text.size();) {
    size_t end = text.find(u'\n', start);
    if (end == std::u16string::npos) end = text.size();
    std::u16string_view line(text.data() + start, end - start);
    while (!line.empty() && line.back() == u'\r') line.remove_suffix(1);
    start = end + 1;
    Line at = lines.emplace(lines.end(), std::u16string(line));
    const std::u16string shape = WithoutBlanks(line);
    if (!shape.empty() && shape.front() == u'[') {
      if (open != nullptr) {
        open->end = at;
        open->open = false;
        open = nullptr;
      }
      if (shape.size() >= 2 && shape.back() == u']') {
        auto [entry, added] = sections.try_emplace(shape.substr(1, shape.size() - 2));
        if (added) open = &entry->second;
      }
      continue;
    }
    size_t equals = shape.find(u'=');
    if (open != nullptr && equals != std::u16string::npos)
      open->keys.try_emplace(shape.substr(0, equals), at);
  }
  openAtEnd = open;
}

bool IniStore::IsWhole(WholeTest isWhole) const {
  return endsWithLineFeed && (isWhole == nullptr || isWhole(*this));
}

const CString* IniStore::FindLine(const CString& section, const CString& key) const {
  auto found = sections.find(WithoutBlanks(section.Units()));
  if (found == sections.end()) return nullptr;
  auto line = found->second.keys.find(key.Units());
  return line == found->second.keys.end() ? nullptr : &*line->second;
}

CString IniStore::GetValue(CString section, CString key, CString defaultValue) const {
  const CString* line = FindLine(section, key);
  if (line == nullptr) return defaultValue;
  return UnescapeIniValue(line->Mid(line->Find(u'=') + 1));
}

int32_t IniStore::GetIntValue(CString section, CString key, int32_t defaultValue) const {
  const CString missing(u"__error__");
  CString value = GetValue(section, key, missing);
  if (value == missing) return defaultValue;
  return WideToLong(value);
}

bool IniStore::HasKey(const CString& section, const CString& key) const {
  return FindLine(section, key) != nullptr;
}

void IniStore::SetValue(CString section, CString key, CString value) {
  CString line = key + u"=" + EscapeIniValue(value);
  auto found = sections.find(WithoutBlanks(section.Units()));
  if (found != sections.end()) {
    Section& known = found->second;
    auto keyLine = known.keys.find(key.Units());
    if (keyLine != known.keys.end()) {
      *keyLine->second = line;
    } else {
      known.keys.emplace(key.Units(), lines.insert(known.open ? lines.end() : known.end, line));
    }
    return;
  }
  Line header = lines.insert(lines.end(), u"[" + section + u"]");
  if (openAtEnd != nullptr) {
    openAtEnd->end = header;
    openAtEnd->open = false;
  }
  openAtEnd = &sections[WithoutBlanks(section.Units())];
  openAtEnd->keys.emplace(key.Units(), lines.insert(lines.end(), line));
}

std::string IniStore::Text() const {
  std::string text;
  for (const CString& line : lines) {
    text += line.ToMultiByte();
    text += '\n';
  }
  return text;
}

IniSave IniStore::Save() {
  if (loadState == IniLoad::kTooLarge || loadState == IniLoad::kUnreadable)
    return IniSave::kNotLoaded;
  FileSystem& files = CurrentFileSystem();
  const std::string host = HostPath(filePath);
  if (files.ReadOnly(host)) return IniSave::kReadOnly;
  const std::string text = Text();
  if (text.size() > kMaxIniBytes) return IniSave::kTooLarge;

  const std::string fresh = HostPath(filePath + u".NEW");
  const std::string backup = HostPath(filePath + u".BAK");
  FILE* file = files.Open(fresh, "wb");
  if (file == nullptr) return IniSave::kFailed;
  bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
  written = files.Sync(file) && written;
  written = std::fclose(file) == 0 && written;
  if (!written) {
    files.Delete(fresh);
    return IniSave::kFailed;
  }
  const bool hadFile = files.Exists(host);
  if (hadFile) {
    files.Delete(backup);  // a stale one: the file itself is what was read
    if (!files.Move(host, backup)) {
      files.Delete(fresh);
      return IniSave::kFailed;
    }
  }
  if (!files.Move(fresh, host)) {
    if (hadFile) files.Move(backup, host);
    files.Delete(fresh);
    return IniSave::kFailed;
  }
  files.SyncFolder(FolderOf(host));
  if (hadFile) files.Delete(backup);
  return IniSave::kSaved;
}

int IniStore::WriteValue(CString section, CString key, CString value) {
  SetValue(section, key, value);
  return Save() == IniSave::kSaved ? 0 : -1;
}
