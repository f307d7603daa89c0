// The two ways cdtext shows a book's bytes instead of its text: the
// hexadecimal word dump (DF_DUMP) and the raw copy of -Y (cut_length).
#include <cstdio>

#include "engine/engine_state.h"
#include "engine/failure.h"
#include "engine/file_access.h"
#include "text/text_record.h"

namespace {

constexpr int32_t kDumpWords = 1024;  // words of a dump when cut_length is 0
constexpr int32_t kWordsPerLine = 8;
constexpr size_t kCutBlock = 512;

// Reads up to `wanted` bytes of the book; under a file table a block that
// runs off the end of one file goes on in the next.
size_t read_block(unsigned char* block, size_t wanted) {
  size_t got = cdread(block, wanted);
  if (got < wanted && (engine.flags & DF_FILE_TABLE)) {
    int32_t position = cdtell();
    if (position >= 0) cdseek(position, 0);
    if (engine.current_file != nullptr) {
      got += cdread(block + got, wanted - got);
    }
  }
  return got;
}

}  // namespace

void word_dump() {
  if (engine.current_file == nullptr) return;
  // A raw copy leaves cut_length at -1, which dumps nothing.
  int32_t count = engine.cut_length == 0 ? kDumpWords : engine.cut_length;
  for (int32_t i = 0; i < count; ++i) {
    if (i % kWordsPerLine == 0) {
      long position = cdtell();
      fprintf(engine.output, "\n%9ld(%06lX %04lX):", position, position / kPageSize,
              position % kPageSize);
    }
    fprintf(engine.output, " %04X", cdgetword());
  }
}

void raw_cut() {
  int32_t remaining = engine.cut_length;
  engine.cut_length = -1;  // one copy only
  if (engine.current_file == nullptr) return;
  unsigned char block[kCutBlock];
  while (remaining > 0) {
    size_t wanted = static_cast<size_t>(remaining) < kCutBlock ? remaining : kCutBlock;
    size_t got = read_block(block, wanted);
    if (fwrite(block, 1, got, engine.output) < got) engine_fail(wanted == kCutBlock ? 14 : 15);
    if (got < wanted) return;  // the data ends here
    remaining -= static_cast<int32_t>(wanted);
  }
}
