// Reading what a stream holds, the one way the program does it.
#ifndef PLATFORM_READ_FILE_H_
#define PLATFORM_READ_FILE_H_

#include <cstdio>
#include <string>

// Every byte of `file` from where it stands to its end, read in blocks
// straight into the string. The stream stays open. A caller that reads a
// large file just opened may make it unbuffered first (setvbuf), so that
// no byte goes through the stream's own buffer.
std::string ReadToEnd(FILE* file);

#endif  // PLATFORM_READ_FILE_H_
