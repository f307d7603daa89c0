// The host layer: the few services the engine expects of a runtime library
// that the device lacks (environment, file attributes, error words).
#ifndef ENGINE_HOST_H_
#define ENGINE_HOST_H_

#include <sys/stat.h>

#include <cstdint>

// glibc's <sys/stat.h> defines st_atime, st_mtime and st_ctime as macros
// over its own fields, which would rename HostStat's fields wherever that
// header came first. It is included above and the macros are dropped, so
// HostStat keeps its names in every file (use st_mtim.tv_sec on a struct stat).
#undef st_atime
#undef st_mtime
#undef st_ctime

struct HostStat {
  uint32_t st_dev;    // always 0
  uint16_t st_ino;    // always 0
  uint16_t st_mode;   // 0x4000 directory or 0x8000 file, +0x80 when writable
  int16_t st_nlink;   // 2 for a directory, else 1
  int16_t st_uid;     // always 0
  int16_t st_gid;     // always 0
  uint32_t st_rdev;   // always 0
  uint32_t st_size;   // low 32 bits of the size
  int64_t st_atime;   // last access, seconds since 1970 UTC
  int64_t st_mtime;   // last write
  int64_t st_ctime;   // creation (status change on this host)
};

// The value of an environment variable, or null. Valid until the next call.
const char* host_getenv(const char* name);
// Writes "text: " (when given and not empty) and the word of host_errno to
// the engine's standard error.
void host_perror(const char* text);
// 0 and the record filled, or -1 with host_errno 22 (or 12).
int host_stat(const char* name, HostStat* record);
// host_stat over a wide name.
int host_wstat(const wchar_t* name, HostStat* record);
// A new wide copy of `text` from the heap (the caller frees it), or null
// for a null text or when memory runs out.
wchar_t* host_widen(const char* text);
// A file time (100 ns steps from 1601; two 32-bit halves, the low one
// first) as seconds since 1970.
int64_t host_filetime_to_unix(const uint32_t* file_time);

#endif  // ENGINE_HOST_H_
