#include "platform/read_file.h"

#include <unistd.h>

#include <cerrno>

std::string ReadToEnd(FILE* file, size_t limit) {
  constexpr size_t kBlock = 16384;
  std::string bytes;
  for (size_t used = 0;;) {
    bytes.resize(used + kBlock);
    const size_t got = std::fread(bytes.data() + used, 1, kBlock, file);
    used += got;
    if (got < kBlock || used > limit) {
      bytes.resize(used);
      return bytes;
    }
  }
}

std::string ReadRegularFile(FILE* file) {
  constexpr size_t kBlock = 16384;
  const int descriptor = fileno(file);
  std::string bytes;
  for (size_t used = 0;;) {
    bytes.resize(used + kBlock);
    const ssize_t got = read(descriptor, bytes.data() + used, kBlock);
    if (got < 0 && errno == EINTR) continue;
    if (got > 0) used += static_cast<size_t>(got);
    if (got < static_cast<ssize_t>(kBlock)) {
      bytes.resize(used);
      return bytes;
    }
  }
}
