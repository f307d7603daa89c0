#include "engine/find_file.h"

#include <dirent.h>
#include <sys/stat.h>

#include <cctype>
#include <climits>
#include <cstring>

#include "engine/engine_state.h"

namespace {

// How well a directory entry matches the wanted component; lower is better.
enum Match { kExact, kCaseOnly, kSuffixToo, kNone };

// Length of `name` without a trailing ";<digits>" version, then without one
// trailing '.': "START.;1" and "start." both come to "start".
size_t bare_length(const char* name, size_t length) {
  size_t digits = length;
  while (digits > 0 && isdigit(static_cast<unsigned char>(name[digits - 1]))) --digits;
  if (digits > 0 && digits < length && name[digits - 1] == ';') length = digits - 1;
  if (length > 0 && name[length - 1] == '.') --length;
  return length;
}

bool same_ignoring_case(const char* a, const char* b, size_t length) {
  return strncasecmp(a, b, length) == 0;
}

Match match(const char* wanted, size_t wanted_length, const char* entry) {
  const size_t entry_length = strlen(entry);
  if (entry_length == wanted_length && same_ignoring_case(entry, wanted, wanted_length)) {
    return memcmp(entry, wanted, wanted_length) == 0 ? kExact : kCaseOnly;
  }
  const size_t wanted_bare = bare_length(wanted, wanted_length);
  if (wanted_bare == 0 || bare_length(entry, entry_length) != wanted_bare) return kNone;
  return same_ignoring_case(entry, wanted, wanted_bare) ? kSuffixToo : kNone;
}

// Looks up one component in `directory` (empty for the working directory)
// and writes the best entry's name to `best` (NAME_MAX + 1 bytes). Among
// equally good entries the first in byte order wins, whatever order the
// directory lists them in.
bool find_entry(const char* directory, const char* wanted, size_t wanted_length, char* best) {
  DIR* dir = opendir(directory[0] ? directory : ".");
  if (!dir) return false;
  Match best_match = kNone;
  while (const dirent* entry = readdir(dir)) {
    const Match m = match(wanted, wanted_length, entry->d_name);
    if (m == kNone || m > best_match) continue;
    if (m == best_match && strcmp(entry->d_name, best) >= 0) continue;
    best_match = m;
    strcpy(best, entry->d_name);
  }
  closedir(dir);
  return best_match != kNone;
}

bool exists(const char* path) {
  struct stat status;
  return stat(path, &status) == 0;
}

FILE* open_regular(const char* path) {
  FILE* file = fopen(path, "rb");
  if (!file) return nullptr;
  struct stat status;
  if (fstat(fileno(file), &status) != 0 || S_ISDIR(status.st_mode)) {
    fclose(file);
    return nullptr;
  }
  return file;
}

}  // namespace

bool find_file(const char* path, char* found) {
  size_t used = 0;
  found[0] = '\0';
  if (*path == '/') found[used++] = '/';
  while (*path == '/') ++path;
  while (*path) {
    const size_t length = strcspn(path, "/");
    if (used + length + 2 > kPathSize) return false;
    memcpy(found + used, path, length);
    found[used + length] = '\0';
    if (!exists(found)) {
      found[used] = '\0';
      char entry[NAME_MAX + 1];
      if (!find_entry(found, path, length, entry)) return false;
      const size_t entry_length = strlen(entry);
      if (used + entry_length + 2 > kPathSize) return false;
      memcpy(found + used, entry, entry_length + 1);
      used += entry_length;
    } else {
      used += length;
    }
    path += length;
    if (*path == '/') found[used++] = '/';
    while (*path == '/') ++path;
    found[used] = '\0';
  }
  return used > 0;
}

FILE* open_book_file(const char* path) {
  if (FILE* file = open_regular(path)) return file;
  char found[kPathSize];
  if (!find_file(path, found)) return nullptr;
  return open_regular(found);
}
