// The settings file, in the system code page (CP932), one line each:
//
//   "[" section "]"      a section header
//   key "=" value        a key line of the section above it
//   anything else        carried along as it stands, never interpreted
//
// Lines end in a line feed; a carriage return before it is dropped at load,
// as the device's text-mode read does. A read takes at most 255 bytes, so
// a longer physical line becomes several lines; a read never ends inside a
// two-byte character. Every blank and line feed is removed at load, also
// those inside a value. A line is written as at most 255 bytes, cut at a
// character boundary.
#include "store/ini_store.h"

#include <cstdio>
#include <cstring>
#include <string_view>

#include "platform/code_page.h"
#include "platform/device_path.h"
#include "platform/file_calls.h"
#include "platform/file_system.h"

namespace {

constexpr size_t kLineBuffer = 256;  // a read or a written line, with its NUL
constexpr size_t kMaxPathBytes = 255;

bool StartsWith(const CString& text, const CString& start) {
  return text.Left(start.GetLength()) == start;
}

// One read of the file as a line: CR before LF dropped, then all line
// feeds and blanks.
CString LoadedLine(std::string_view bytes) {
  if (bytes.size() >= 2 && bytes.substr(bytes.size() - 2) == "\r\n")
    bytes.remove_suffix(2);
  CString line(DecodeMultiByte(bytes));
  line.Remove(u'\n');
  line.Remove(u' ');
  return line;
}

}  // namespace

IniStore::IniStore(CString path) : filePath(std::move(path)) {
  if (filePath.ToMultiByte().size() > kMaxPathBytes) return;  // the device cannot name it
  FILE* file = OpenDeviceFile(filePath, "a+");
  if (file == nullptr) return;
  std::rewind(file);
  char buffer[kLineBuffer];
  size_t carried = 0;  // a lead byte whose trail the next read brings
  while (std::fgets(buffer + carried, static_cast<int>(sizeof buffer - carried), file) != nullptr) {
    size_t length = carried + std::strlen(buffer + carried);
    size_t whole = length;
    if (length > 0 && buffer[length - 1] != '\n')
      whole = CutAtCharBoundary(std::string_view(buffer, length), length);
    lines.push_back(LoadedLine(std::string_view(buffer, whole)));
    carried = length - whole;
    std::memmove(buffer, buffer + whole, carried);
  }
  if (carried > 0) lines.push_back(LoadedLine(std::string_view(buffer, carried)));
  std::fclose(file);
  loaded = true;
}

IniStore::KeyScan IniStore::FindKey(const CString& section, const CString& key) const {
  CString header = u"[" + section + u"]";
  CString prefix = key + u"=";
  KeyScan scan{-1, false, false};
  for (size_t i = 0; i < lines.size(); ++i) {
    const CString& line = lines[i];
    if (scan.inSection && StartsWith(line, u"[")) {
      scan.index = static_cast<int>(i);
      return scan;
    }
    if (!scan.inSection && line == header) scan.inSection = true;
    if (scan.inSection && StartsWith(line, prefix)) {
      scan.index = static_cast<int>(i);
      scan.found = true;
      return scan;
    }
  }
  scan.index = static_cast<int>(lines.size());
  return scan;
}

CString IniStore::GetValue(CString section, CString key, CString defaultValue) {
  if (!loaded) return defaultValue;
  KeyScan scan = FindKey(section, key);
  if (!scan.found) return defaultValue;
  return lines[static_cast<size_t>(scan.index)].Mid(key.GetLength() + 1);
}

int32_t IniStore::GetIntValue(CString section, CString key, int32_t defaultValue) {
  const CString missing(u"__error__");
  CString value = GetValue(section, key, missing);
  if (value == missing) return defaultValue;
  return WideToLong(value);
}

void IniStore::SetValue(CString section, CString key, CString value) {
  KeyScan scan = FindKey(section, key);
  CString line = key + u"=" + value;
  if (scan.found) {
    lines[static_cast<size_t>(scan.index)] = line;
  } else if (scan.inSection) {
    lines.insert(lines.begin() + scan.index, line);
  } else {
    lines.push_back(u"[" + section + u"]");
    lines.push_back(line);
  }
}

bool IniStore::WriteLines() const {
  FILE* file = OpenDeviceFile(filePath, "w");
  if (file == nullptr) return false;
  bool written = true;
  for (const CString& line : lines) {
    std::string bytes = line.ToMultiByte();
    bytes.resize(CutAtCharBoundary(bytes, kLineBuffer - 1));
    if (std::fprintf(file, "%s\n", bytes.c_str()) < 0) written = false;
  }
  if (std::ferror(file)) written = false;
  if (std::fclose(file) != 0) written = false;
  return written;
}

// The old file stands aside as ".BAK" while the new one is written, and is
// deleted only behind a finished rewrite; when the rewrite fails it comes
// back. With no way to set it aside (a folder that can't be written, a
// ".BAK" that can't be moved out of the way) the file is left as it is.
int IniStore::WriteValue(CString section, CString key, CString value) {
  if (!loaded) return -1;
  SetValue(section, key, value);
  CString backup = filePath + u".BAK";
  bool backedUp = MoveFileW(filePath, backup);
  if (!backedUp && DeleteFileW(backup)) backedUp = MoveFileW(filePath, backup);  // a stale one
  if (!backedUp && CurrentFileSystem().Exists(HostPath(filePath))) return -1;
  if (WriteLines()) {
    if (backedUp) DeleteFileW(backup);
    return 0;
  }
  DeleteFileW(filePath);
  if (backedUp) MoveFileW(backup, filePath);
  return -1;
}
