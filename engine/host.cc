// The host layer on Linux: the process environment, stat(2), and the error
// words of host_perror. host_errno is set by this layer alone, and only to
// 0, 12 (no memory) or 22 (bad argument), so that the word printed after a
// failed open is that of the last failure here.
#include "engine/host.h"

#include <sys/stat.h>

#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "engine/engine_state.h"

namespace {

constexpr int kNoMemory = 12;
constexpr int kBadArgument = 22;

// Indexed by host_errno; the last row serves every value from 43 up.
const char* const kErrorWords[] = {
    "No error", "Operation not permitted", "No such file or directory", "No such process",
    "Interrupted function call", "Input/output error", "No such device or address",
    "Arg list too long", "Exec format error", "Bad file descriptor", "No child processes",
    "Resource temporarily unavailable", "Not enough space", "Permission denied", "Bad address",
    "Unknown error", "Resource device", "File exists", "Improper link", "No such device",
    "Not a directory", "Is a directory", "Invalid argument", "Too many open files in system",
    "Too many open files", "Inappropriate I/O control operation", "Unknown error",
    "File too large", "No space left on device", "Invalid seek", "Read-only file system",
    "Too many links", "Broken pipe", "Domain error", "Result too large", "Unknown error",
    "Resource deadlock avoided", "Unknown error", "Filename too long", "No locks available",
    "Function not implemented", "Directory not empty", "Illegal byte sequence", "Unknown error",
};
constexpr int kLastErrorWord = 43;
static_assert(sizeof kErrorWords / sizeof kErrorWords[0] == kLastErrorWord + 1);

}  // namespace

const char* host_getenv(const char* name) {
  // The process environment is this host's source of variables. A
  // registry-like store (the device keeps them under a key "Environment")
  // would be read here instead, its value copied to the same buffer.
  const char* value = name ? getenv(name) : nullptr;
  if (!value) return nullptr;
  size_t size = strlen(value) + 1;
  if (size > engine.env_capacity) {
    char* grown = static_cast<char*>(realloc(engine.env_value, size));
    if (!grown) {
      engine.host_errno = kNoMemory;
      return nullptr;
    }
    engine.env_value = grown;
    engine.env_capacity = size;
  }
  memcpy(engine.env_value, value, size);
  return engine.env_value;
}

void host_perror(const char* text) {
  if (text && text[0] != '\0') fprintf(engine.std_err, "%s: ", text);
  int index = engine.host_errno;
  // Negative values are never set; they print as unknown rather than read
  // outside the table.
  if (index < 0 || index > kLastErrorWord) index = kLastErrorWord;
  fprintf(engine.std_err, "%s\n", kErrorWords[index]);
}

// Linux file names are bytes: each narrow byte becomes one wide unit and
// host_wstat turns it back, so a Shift-JIS name reaches stat(2) unchanged.
wchar_t* host_widen(const char* text) {
  if (!text) return nullptr;
  size_t length = strlen(text);
  wchar_t* wide = static_cast<wchar_t*>(calloc(length + 1, sizeof(wchar_t)));
  if (!wide) return nullptr;
  for (size_t i = 0; i < length; ++i) wide[i] = static_cast<unsigned char>(text[i]);
  return wide;
}

int64_t host_filetime_to_unix(const uint32_t* file_time) {
  int64_t steps = static_cast<int64_t>((static_cast<uint64_t>(file_time[1]) << 32) | file_time[0]);
  return steps / 10000000 - 11644473600LL;
}

namespace {

// The narrow name that host_widen widened, into `narrow` of kPathSize
// bytes; false for an empty or too long name or a unit above one byte.
bool narrow_name(const wchar_t* name, char* narrow) {
  size_t length = wcslen(name);
  if (length == 0 || length >= static_cast<size_t>(kPathSize)) return false;
  for (size_t i = 0; i < length; ++i) {
    if (name[i] < 0 || name[i] > 0xFF) return false;
    narrow[i] = static_cast<char>(name[i]);
  }
  narrow[length] = '\0';
  return true;
}

}  // namespace

int host_wstat(const wchar_t* name, HostStat* record) {
  char narrow[kPathSize];
  struct stat status;
  if (!name || !record || !narrow_name(name, narrow) || stat(narrow, &status) != 0) {
    engine.host_errno = kBadArgument;
    return -1;
  }
  bool directory = S_ISDIR(status.st_mode);
  *record = HostStat{};
  record->st_mode = directory ? 0x4000 : 0x8000;
  // The owner's write bit stands for the device's read-only attribute.
  if (status.st_mode & S_IWUSR) record->st_mode += 0x80;
  record->st_nlink = directory ? 2 : 1;
  record->st_size = static_cast<uint32_t>(status.st_size);
  record->st_atime = status.st_atim.tv_sec;
  record->st_mtime = status.st_mtim.tv_sec;
  record->st_ctime = status.st_ctim.tv_sec;
  engine.host_errno = 0;
  return 0;
}

int host_stat(const char* name, HostStat* record) {
  if (!name || !record) {
    engine.host_errno = kBadArgument;
    return -1;
  }
  wchar_t* wide = host_widen(name);
  if (!wide) {
    engine.host_errno = kNoMemory;
    return -1;
  }
  int result = host_wstat(wide, record);
  free(wide);
  return result;
}
