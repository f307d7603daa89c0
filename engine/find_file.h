// Finding a book file on a file system that respects case.
//
// Books copied from a disc keep the disc's names: upper case, often with a
// version (";1") or a bare final dot ("HONMON.", "START.;1"). The engine
// asks for lower-case names, so each component of a path is matched against
// its directory without regard to case, and with a trailing ";<digits>" and
// then a trailing "." ignored on both sides.
#ifndef ENGINE_FIND_FILE_H_
#define ENGINE_FIND_FILE_H_

#include <cstdio>

// Writes to `found` (kPathSize bytes) the path of an existing entry that
// matches `path` component by component; an exact name is preferred, then
// one that differs in case only, then one that differs in suffix too.
// False when some component has no match or the result would not fit.
bool find_file(const char* path, char* found);

// Opens the regular file at `path` ("rb"), or at what find_file gives for
// it; null when there is none. Directories are never opened. A path found
// by listing directories is kept, and found again by a stat of each of
// them while they stay unchanged.
FILE* open_book_file(const char* path);

#endif  // ENGINE_FIND_FILE_H_
