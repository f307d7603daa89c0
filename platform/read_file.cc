#include "platform/read_file.h"

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
