// Reading what a stream holds, the one way the program does it.
#ifndef PLATFORM_READ_FILE_H_
#define PLATFORM_READ_FILE_H_

#include <cstddef>
#include <cstdio>
#include <string>

// Every byte of `file` from where it stands to its end, read in blocks.
// The stream stays open. A caller that reads a large file just opened may
// make it unbuffered first (setvbuf), so that no byte goes through the
// stream's own buffer. Reading stops once more than `limit` bytes have
// come: a result longer than `limit` tells a file too large without
// reading all of it. A read error ends the bytes early and leaves
// ferror(file) set.
std::string ReadToEnd(FILE* file, size_t limit = static_cast<size_t>(-1));

// Every byte of the regular file open as `file`, from where its descriptor
// stands (the start, for a stream just opened and not yet read through),
// by read(2) on the descriptor. A regular file gives fewer bytes than
// asked only at its end, so a short read ends the reading without one more
// read to see the end, which ReadToEnd's fread makes. For a file that
// nothing writes to meanwhile, never for a pipe or a terminal. A read
// error ends the bytes early; the stream stays open.
std::string ReadRegularFile(FILE* file);

#endif  // PLATFORM_READ_FILE_H_
