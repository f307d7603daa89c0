#include "platform/read_file.h"

#include <unistd.h>

#include <cerrno>

// Both read a block at a time into a buffer of their own and append what
// came: growing the string to read into it would first fill every block
// with zeros, which for the usual work file of a few kilobytes costs more
// than the read.
constexpr size_t kBlock = 16384;

std::string ReadToEnd(FILE* file, size_t limit) {
  std::string bytes;
  char block[kBlock];
  for (;;) {
    const size_t got = std::fread(block, 1, kBlock, file);
    bytes.append(block, got);
    if (got < kBlock || bytes.size() > limit) return bytes;
  }
}

std::string ReadRegularFile(FILE* file) {
  const int descriptor = fileno(file);
  std::string bytes;
  char block[kBlock];
  for (;;) {
    const ssize_t got = read(descriptor, block, kBlock);
    if (got < 0 && errno == EINTR) continue;
    if (got > 0) bytes.append(block, static_cast<size_t>(got));
    if (got < static_cast<ssize_t>(kBlock)) return bytes;
  }
}
