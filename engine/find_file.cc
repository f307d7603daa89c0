// Finding a book file whatever the case of its stored names.
//
// A path found by listing directories is kept (EngineState::found_paths)
// with the device, inode and status-change time of each directory listed.
// The next open of the same path, in this run or a later one, stats those
// directories instead of walking and listing again: while they stand
// unchanged they list the same entries, so a walk would choose the same
// names, and the path as asked still names nothing. Any entry made,
// renamed or removed in one of them moves its change time (a directory
// put in its place has another inode), and the kept path is dropped. A
// directory changed within the last second is not kept, for a change in
// the same tick of the file system's clock may leave its time as it was.
#include "engine/find_file.h"

#include <dirent.h>
#include <sys/stat.h>

#include <cctype>
#include <climits>
#include <cstring>
#include <ctime>

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

// Notes in `record` that the directory named by the first `end` bytes of
// record->found was listed as `status` shows it; a record that cannot be
// trusted gets scanned_count -1.
void note_scan(FoundPath* record, int32_t end, const struct stat& status) {
  if (!record || record->scanned_count < 0) return;
  const FileStamp stamp = settled_stamp(status);
  if (record->scanned_count == kScannedMax || stamp.inode == 0) {
    record->scanned_count = -1;
    return;
  }
  record->scanned_ends[record->scanned_count] = end;
  record->scanned_stamps[record->scanned_count++] = stamp;
}

// Looks up one component in `directory` (empty for the working directory)
// and writes the best entry's name to `best` (NAME_MAX + 1 bytes). Among
// equally good entries the first in byte order wins, whatever order the
// directory lists them in (the application's device paths choose by the
// same rule; results/case_blind_lookup_test.cc ties the two). The directory is noted in `record` (when not
// null) as it stood before it was listed.
bool find_entry(const char* directory, const char* wanted, size_t wanted_length, char* best,
                FoundPath* record) {
  DIR* dir = opendir(directory[0] ? directory : ".");
  if (!dir) return false;
  struct stat status;
  if (fstat(dirfd(dir), &status) == 0) note_scan(record, static_cast<int32_t>(strlen(directory)), status);
  else if (record) record->scanned_count = -1;
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

FILE* open_regular(const char* path, FileStamp* stamp) {
  // Close-on-exec: a book file kept open between runs is no business of a
  // program the caller starts.
  FILE* file = fopen(path, "rbe");
  if (!file) return nullptr;
  struct stat status;
  if (fstat(fileno(file), &status) != 0 || S_ISDIR(status.st_mode)) {
    fclose(file);
    return nullptr;
  }
  *stamp = settled_stamp(status);
  return file;
}

// find_file's walk; each directory it lists is noted in `record` when that
// is not null (record->found is `found`).
bool find_path(const char* path, char* found, FoundPath* record) {
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
      if (!find_entry(found, path, length, entry, record)) return false;
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

// The kept path found for `path` while every directory listed to find it
// stands as it was then; a kept path that no longer holds is dropped.
// Then a new walk would list the same entries and choose the same names.
FoundPath* kept_path(const char* path) {
  for (FoundPath& kept : engine.found_paths) {
    if (kept.asked[0] == '\0' || strcmp(kept.asked, path) != 0) continue;
    for (int32_t i = 0; i < kept.scanned_count; ++i) {
      char directory[kPathSize];
      memcpy(directory, kept.found, kept.scanned_ends[i]);
      directory[kept.scanned_ends[i]] = '\0';
      struct stat status;
      if (stat(directory[0] ? directory : ".", &status) != 0 ||
          !same_stamp(settled_stamp(status), kept.scanned_stamps[i])) {
        kept.asked[0] = '\0';
        return nullptr;
      }
    }
    return &kept;
  }
  return nullptr;
}

// Keeps `record` for `path`, in its own slot or the next in turn.
void keep_path(const char* path, const FoundPath& record) {
  FoundPath* slot = nullptr;
  for (FoundPath& kept : engine.found_paths) {
    if (strcmp(kept.asked, path) == 0) slot = &kept;
  }
  if (!slot) slot = &engine.found_paths[engine.found_path_next++ % kFoundPathSlots];
  *slot = record;
  strcpy(slot->asked, path);
}

}  // namespace

FileStamp settled_stamp(const struct stat& status) {
  timespec now;
  clock_gettime(CLOCK_REALTIME, &now);
  const auto age_nanos = [&](const timespec& time) {
    return (now.tv_sec - time.tv_sec) * 1000000000LL + (now.tv_nsec - time.tv_nsec);
  };
  if (age_nanos(status.st_ctim) < kSettledNanos || age_nanos(status.st_mtim) < kSettledNanos) {
    return FileStamp{};
  }
  return {static_cast<uint64_t>(status.st_dev), static_cast<uint64_t>(status.st_ino),
          static_cast<int64_t>(status.st_size),
          static_cast<int64_t>(status.st_mtim.tv_sec), static_cast<int64_t>(status.st_mtim.tv_nsec),
          static_cast<int64_t>(status.st_ctim.tv_sec), static_cast<int64_t>(status.st_ctim.tv_nsec)};
}

bool same_stamp(const FileStamp& a, const FileStamp& b) {
  return a.inode != 0 && a.device == b.device && a.inode == b.inode && a.size == b.size &&
         a.modified_seconds == b.modified_seconds && a.modified_nanos == b.modified_nanos &&
         a.changed_seconds == b.changed_seconds && a.changed_nanos == b.changed_nanos;
}

bool find_file(const char* path, char* found) { return find_path(path, found, nullptr); }

FILE* open_book_file(const char* path, FileStamp* stamp) {
  if (strlen(path) >= kPathSize) return open_regular(path, stamp);
  // While the directories listed to find it stand unchanged, the path as
  // asked still names nothing (the first of them is where its first
  // missing name was looked for): the kept path comes first.
  if (FoundPath* kept = kept_path(path)) {
    if (FILE* file = open_regular(kept->found, stamp)) return file;
    kept->asked[0] = '\0';
  }
  if (FILE* file = open_regular(path, stamp)) return file;
  FoundPath record;
  record.scanned_count = 0;
  if (!find_path(path, record.found, &record)) return nullptr;
  FILE* file = open_regular(record.found, stamp);
  if (file && record.scanned_count > 0) keep_path(path, record);
  return file;
}

bool still_leads_to(const char* path, const FileStamp& stamp) {
  const FoundPath* kept = strlen(path) < kPathSize ? kept_path(path) : nullptr;
  struct stat status;
  return stat(kept ? kept->found : path, &status) == 0 && !S_ISDIR(status.st_mode) &&
         same_stamp(settled_stamp(status), stamp);
}
