// Reading what a stream holds, the one way the program does it.
#ifndef PLATFORM_READ_FILE_H_
#define PLATFORM_READ_FILE_H_

#include <cstddef>
#include <cstdio>
#include <string>

// Every byte of `file` from where it stands to its end, read in blocks
// straight into the string. The stream stays open. A caller that reads a
// large file just opened may make it unbuffered first (setvbuf), so that
// no byte goes through the stream's own buffer. Reading stops once more
// than `limit` bytes have come: a result longer than `limit` tells a file
// too large without reading all of it. A read error ends the bytes early
// and leaves ferror(file) set.
std::string ReadToEnd(FILE* file, size_t limit = static_cast<size_t>(-1));

#endif  // PLATFORM_READ_FILE_H_
