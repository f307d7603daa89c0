#include "controls/language_file.h"

#include <algorithm>

#include <cstdio>

#include "platform/utf8_text.h"
#include "platform/file_calls.h"
#include "platform/file_system.h"
#include "platform/program_folder.h"
#include "platform/read_file.h"

namespace {

// The whole file, or false when it can't be opened.
bool ReadAll(FILE* file, std::string& bytes) {
  if (file == nullptr) return false;
  bytes = ReadToEnd(file);
  std::fclose(file);
  return true;
}

}  // namespace

bool LanguageFile::Load(const CString& name) {
  words_.clear();
  std::string bytes;
  const int separator = std::max(name.ReverseFind(u'\\'), name.ReverseFind(u'/'));
  bool read = separator >= 0 && ReadAll(OpenDeviceFile(name, "rb"), bytes);
  if (!read) {
    const std::string beside = ProgramDataFolder() + ToUtf8(name.Mid(separator + 1));
    read = ReadAll(CurrentFileSystem().Open(beside, "rb"), bytes);
  }
  if (read) Parse(bytes);
  return read;
}

void LanguageFile::Parse(const std::string& utf8) {
  std::string_view rest(utf8);
  if (rest.substr(0, 3) == "\xEF\xBB\xBF") rest.remove_prefix(3);
  while (!rest.empty()) {
    size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    size_t equals = line.find('=');
    if (line.empty() || line[0] == '#' || equals == std::string_view::npos) continue;
    std::string_view key = line.substr(0, equals);
    while (!key.empty() && (key.front() == ' ' || key.front() == '\t')) key.remove_prefix(1);
    while (!key.empty() && (key.back() == ' ' || key.back() == '\t')) key.remove_suffix(1);
    if (key.empty()) continue;
    words_[std::string(key)] = FromUtf8(line.substr(equals + 1));
  }
}

CString LanguageFile::Get(const std::string& key, const CString& fallback) const {
  auto found = words_.find(key);
  return found == words_.end() ? fallback : found->second;
}
