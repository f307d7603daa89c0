#include "platform/device_path.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <vector>

#include "platform/utf8_text.h"

const char16_t kProgramFolder[] = u"\\epwingdict";

namespace {

constexpr const char* kAppFolder = "epwingdict";

// Folders set by options or tests; empty means the default.
std::string chosenFolders[3];
// The private folder under /tmp once one has been made for this process.
std::string privateRuntimeFolder;

// A host folder seen as "\SD\<name>".
struct CardMount {
  std::string name;        // the folder's name on the card
  std::string hostFolder;  // where it lies
};
std::vector<CardMount> cardMounts;

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string HomeRelative(const char* xdgName, const char* fallback) {
  std::string base = Environment(xdgName);
  if (base.empty()) base = Environment("HOME") + fallback;
  return base + "/" + kAppFolder;
}

// Creates `folder` and its missing parents, private to the user. A folder
// that stands already costs one stat: it is named for every file of a
// lookup. It is checked each time, not remembered, for a folder removed
// while the program runs (a cleaned /tmp, a runtime folder gone at logout)
// must come back before a file is written in it.
void MakeFolders(const std::string& folder) {
  struct stat info;
  if (stat(folder.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) return;
  for (size_t slash = folder.find('/', 1); ; slash = folder.find('/', slash + 1)) {
    mkdir(folder.substr(0, slash).c_str(), 0700);
    if (slash == std::string::npos) break;
  }
}

bool IsPrivateFolder(const std::string& folder) {
  struct stat info;
  return lstat(folder.c_str(), &info) == 0 && S_ISDIR(info.st_mode) && info.st_uid == getuid() &&
         (info.st_mode & 077) == 0;
}

// /tmp/epwingdict-UID when it is ours alone; otherwise (someone else made
// it, or it is open to others) a fresh folder of a random name.
std::string PrivateTmpFolder() {
  if (!privateRuntimeFolder.empty()) return privateRuntimeFolder;
  std::string folder = "/tmp/" + std::string(kAppFolder) + "-" + std::to_string(getuid());
  mkdir(folder.c_str(), 0700);
  if (!IsPrivateFolder(folder)) {
    std::string pattern = folder + "-XXXXXX";
    folder = mkdtemp(pattern.data()) != nullptr ? pattern : "";
  }
  privateRuntimeFolder = folder;
  return folder;
}

bool SameIgnoringAsciiCase(const std::string& a, const std::string& b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    char x = a[i], y = b[i];
    if (x >= 'A' && x <= 'Z') x = static_cast<char>(x - 'A' + 'a');
    if (y >= 'A' && y <= 'Z') y = static_cast<char>(y - 'A' + 'a');
    if (x != y) return false;
  }
  return true;
}

// The entry of `folder` that `part` names: itself when it exists, else of
// the entries equal but for case the first in byte order (whatever order
// the folder lists them in: the rule by which the engine finds a book's
// files, tied by results/case_blind_lookup_test.cc), else `part` unchanged.
std::string FindEntry(const std::string& folder, const std::string& part) {
  std::string exact = folder + "/" + part;
  struct stat info;
  if (part == "." || part == ".." || lstat(exact.c_str(), &info) == 0) return part;
  std::string found;
  if (DIR* dir = opendir(folder.empty() ? "/" : folder.c_str())) {
    while (const dirent* entry = readdir(dir)) {
      if (SameIgnoringAsciiCase(entry->d_name, part) && (found.empty() || entry->d_name < found))
        found = entry->d_name;
    }
    closedir(dir);
  }
  return found.empty() ? part : found;
}

std::vector<std::string> SplitParts(const std::string& name) {
  std::vector<std::string> parts;
  std::string part;
  for (char ch : name + "/") {
    if (ch != '/' && ch != '\\') {
      part += ch;
    } else if (!part.empty()) {
      parts.push_back(part);
      part.clear();
    }
  }
  return parts;
}

// The mount named `name`, ignoring ASCII case; null when there is none.
const CardMount* FindMount(const std::string& name) {
  for (const CardMount& mount : cardMounts) {
    if (SameIgnoringAsciiCase(mount.name, name)) return &mount;
  }
  return nullptr;
}

}  // namespace

void MountCardFolder(const std::string& name, const std::string& hostFolder) {
  for (CardMount& mount : cardMounts) {
    if (SameIgnoringAsciiCase(mount.name, name)) {
      mount = {name, hostFolder};
      return;
    }
  }
  cardMounts.push_back({name, hostFolder});
}

void ClearCardFolders() { cardMounts.clear(); }

std::vector<std::string> MountedFolderNames(const CString& deviceFolder) {
  const std::vector<std::string> parts = SplitParts(ToUtf8(deviceFolder));
  std::vector<std::string> names;
  if (parts.size() != 1 || !SameIgnoringAsciiCase(parts[0], "SD")) return names;
  for (const CardMount& mount : cardMounts) names.push_back(mount.name);
  return names;
}

void SetDeviceFolder(DeviceFolder folder, const std::string& hostFolder) {
  chosenFolders[static_cast<int>(folder)] = hostFolder;
}

std::string DeviceFolderPath(DeviceFolder folder) {
  const std::string& chosen = chosenFolders[static_cast<int>(folder)];
  if (!chosen.empty()) return chosen;
  switch (folder) {
    case DeviceFolder::kCard:
      return HomeRelative("XDG_DATA_HOME", "/.local/share") + "/card";
    case DeviceFolder::kRuntime: {
      std::string runtime = Environment("XDG_RUNTIME_DIR");
      return runtime.empty() ? PrivateTmpFolder() : runtime + "/" + kAppFolder;
    }
    case DeviceFolder::kConfig:
      return HomeRelative("XDG_CONFIG_HOME", "/.config");
  }
  return "";
}

std::string HostPath(const CString& deviceName) {
  std::string name = ToUtf8(deviceName);
  std::vector<std::string> parts = SplitParts(name);
  bool absolute = !name.empty() && (name[0] == '/' || name[0] == '\\');
  std::string path = absolute ? "" : ".";
  size_t next = 0;
  if (absolute && !parts.empty()) {
    std::string program = ToUtf8(CString(kProgramFolder)).substr(1);
    const DeviceFolder roots[] = {DeviceFolder::kCard, DeviceFolder::kRuntime,
                                  DeviceFolder::kConfig};
    const std::string rootNames[] = {"SD", "windows", program};
    for (int i = 0; i < 3; ++i) {
      if (SameIgnoringAsciiCase(parts[0], rootNames[i])) {
        path = DeviceFolderPath(roots[i]);
        if (path.empty()) return "";  // no private folder could be made: name nothing
        if (roots[i] != DeviceFolder::kCard) MakeFolders(path);
        next = 1;
        const CardMount* mount = i == 0 && parts.size() > 1 ? FindMount(parts[1]) : nullptr;
        if (mount != nullptr) {
          path = mount->hostFolder;
          next = 2;
        }
        break;
      }
    }
  }
  for (; next < parts.size(); ++next) path += "/" + FindEntry(path, parts[next]);
  if (path.empty()) return "/";
  return absolute || path.size() <= 2 ? path : path.substr(2);  // no leading "./"
}
