#include "cli/card_setup.h"

#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/device_path.h"
#include "platform/program_folder.h"
#include "platform/utf8_text.h"

namespace fs = std::filesystem;

namespace {

// The built-in dictionaries' folders, on the card and in the data folder.
const char* const kBuiltinFolders[] = {"epwing/plus", "epwing/wadai"};

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

bool Exists(const std::string& path) {
  struct stat info;
  return lstat(path.c_str(), &info) == 0;
}

// Makes the user's card and links its empty built-in folders to the demo
// books; what can't be made is told and left.
void MakeUserCard() {
  const std::string card = DeviceFolderPath(DeviceFolder::kCard);
  std::error_code error;
  fs::create_directories(card, error);
  if (error) {
    std::fprintf(stderr, "epwingdict: cannot make the card %s: %s\n", card.c_str(),
                 error.message().c_str());
    return;
  }
  for (const char* folder : kBuiltinFolders) {
    // Looked up as the reader looks it up, so that the user's "EPWING/Plus"
    // counts as there.
    const fs::path place = HostPath(FromUtf8(std::string("\\SD\\") + folder));
    if (Exists(place.string())) continue;
    const fs::path demo = fs::weakly_canonical(ProgramDataFolder() + folder, error);
    if (error || !fs::is_directory(demo, error)) continue;  // no demo books shipped
    fs::create_directories(place.parent_path(), error);
    if (!error) fs::create_directory_symlink(demo, place, error);
    if (error)
      std::fprintf(stderr, "epwingdict: cannot link %s to the demo books: %s\n",
                   place.string().c_str(), error.message().c_str());
  }
}

// The folders to mount: the options' own, else those of $EPWINGDICT_BOOKS.
std::vector<std::string> BookFolders(const std::vector<std::string>& books) {
  if (!books.empty()) return books;
  std::vector<std::string> folders;
  const std::string list = Environment("EPWINGDICT_BOOKS") + ":";
  for (size_t start = 0, colon; (colon = list.find(':', start)) != std::string::npos; start = colon + 1) {
    if (colon > start) folders.push_back(list.substr(start, colon - start));
  }
  return folders;
}

// Mounts one book folder, "DIR" or "NAME=DIR"; false with `error` set when
// it can't be.
bool MountBooks(const std::string& given, std::string& error) {
  const size_t equals = given.find('=');
  const bool named = equals != std::string::npos && given.substr(0, equals).find('/') == std::string::npos;
  const std::string folder = named ? given.substr(equals + 1) : given;
  std::error_code fault;
  const fs::path real = fs::canonical(folder, fault);
  if (fault || !fs::is_directory(real, fault)) {
    error = "books folder '" + folder + "' is no folder";
    return false;
  }
  const std::string name = named ? given.substr(0, equals) : real.filename().string();
  if (name.empty() || name == "." || name == ".." || name.find('\\') != std::string::npos) {
    error = "books folder '" + given + "' needs a name without '\\': give NAME=" + folder;
    return false;
  }
  const CString onCard = FromUtf8("\\SD\\" + name);
  for (const std::string& taken : MountedFolderNames(u"\\SD")) {
    if (HostPath(FromUtf8("\\SD\\" + taken)) == HostPath(onCard)) {
      error = "two books folders are named '" + name + "': give one as NAME=DIR";
      return false;
    }
  }
  if (Exists(HostPath(onCard))) {
    error = "the card already has a folder '" + name + "': give the books folder as NAME=" + folder;
    return false;
  }
  MountCardFolder(name, real.string());
  return true;
}

}  // namespace

bool SetUpCard(const std::string& card, const std::vector<std::string>& books, std::string& error) {
  const std::string chosen = card.empty() ? Environment("EPWINGDICT_CARD") : card;
  SetDeviceFolder(DeviceFolder::kCard, chosen);
  if (chosen.empty()) MakeUserCard();
  for (const std::string& folder : BookFolders(books)) {
    if (!MountBooks(folder, error)) return false;
  }
  return true;
}
