// Finding a book file on a file system that respects case.
//
// Books copied from a disc keep the disc's names: upper case, often with a
// version (";1") or a bare final dot ("HONMON.", "START.;1"). The engine
// asks for lower-case names, so each component of a path is matched against
// its directory without regard to case, and with a trailing ";<digits>" and
// then a trailing "." ignored on both sides.
#ifndef ENGINE_FIND_FILE_H_
#define ENGINE_FIND_FILE_H_

#include <sys/stat.h>

#include <cstdio>

#include "engine/engine_state.h"

// A file or directory changed within this time may change again within the
// same tick of the file system's clock and keep its times: it is not
// trusted to be the same later. FAT, the cards' file system, keeps times
// in two-second steps, and the kernel's file clock lags a little.
constexpr int64_t kSettledNanos = 3000000000;

// The stamp of what `status` describes; all zero when it changed within
// kSettledNanos of now.
FileStamp settled_stamp(const struct stat& status);
// True when both stamp the same unchanged file (never for zero stamps).
bool same_stamp(const FileStamp& a, const FileStamp& b);

// Writes to `found` (kPathSize bytes) the path of an existing entry that
// matches `path` component by component; an exact name is preferred, then
// one that differs in case only, then one that differs in suffix too.
// False when some component has no match or the result would not fit.
bool find_file(const char* path, char* found);

// Opens the regular file at `path` ("rb"), or at what find_file gives for
// it; null when there is none. Directories are never opened. A path found
// by listing directories is kept, and found again by a stat of each of
// them while they stay unchanged.
// `stamp` gets the settled stamp of the file opened.
FILE* open_book_file(const char* path, FileStamp* stamp);

// True when `path` still leads to the file stamped `stamp` (not zero),
// unchanged: through its kept found path while the directories listed for
// it stand, else as it is. A stat of each of those and one of the file.
bool still_leads_to(const char* path, const FileStamp& stamp);

#endif  // ENGINE_FIND_FILE_H_
