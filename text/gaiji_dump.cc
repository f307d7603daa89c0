// The dump of an external-character bitmap area (-#, and -$ for a plain
// file of the same layout). The area starts on a page boundary:
//
//   Offset  Size  Meaning
//   ------  ----  -------------------------------------------------------
//        0     8  not read
//        8     1  width of a character in dots
//        9     1  height of a character in dots
//       10     2  code of the first character, big-endian
//       12     2  number of characters, big-endian
//       14  2034  not read, to the end of the header page
//     2048     -  the bitmaps
//
// A bitmap is `height` rows of ((width - 1) / 8 + 1) bytes, the leftmost
// dot in the top bit of a row's first byte. Bitmaps are packed in blocks of
// 1024 bytes counted from the start of the address space: a bitmap that
// would pass the end of a block, judged by height * width / 8 bytes (not by
// the row bytes), starts at the next block instead.
//
// Codes run on from the first one: in Japanese mode along the JIS grid
// (0xA17E is followed by 0xA221), in English mode through every low byte.
//
// A damaged header may claim up to 65535 characters of 255 rows of 32
// bytes; the dump ends with the first character whose bitmap ran past the
// end of the book, so that it never reads on through failure after failure.
#include <cstdio>

#include "engine/book_end.h"
#include "engine/engine_state.h"
#include "engine/failure.h"
#include "engine/file_access.h"
#include "engine/host.h"
#include "text/gaiji.h"

namespace {

constexpr int32_t kBitmapBlockSize = 1024;
constexpr int32_t kHeaderSkip = 2034;

int next_code(int code) {
  ++code;
  if (!(engine.flags & DF_ENGLISH) && (code & 0xFF) == 0x7F) code += 0xA2;
  return code;
}

// One row byte: nothing for 0, else eight marks from the top bit down.
void write_row_byte(int byte) {
  if (byte == 0) return;
  for (int bit = 0x80; bit != 0; bit >>= 1) fputc((byte & bit) ? 'O' : ' ', engine.output);
}

// Goes to the next block when the next bitmap would pass the end of this one.
void skip_to_block_if_full(int32_t bitmap_bytes) {
  int32_t position = cdtell();
  if (position < 0) return;
  int32_t in_block = position % kBitmapBlockSize;
  if (in_block + bitmap_bytes > kBitmapBlockSize) cdseek(kBitmapBlockSize - in_block, 1);
}

}  // namespace

void cdgaijidump() {
  cdseek(8, 1);
  int width = cdgetbyte();
  int height = cdgetbyte();
  int code = cdgetword();
  int count = cdgetword();
  cdseek(kHeaderSkip, 1);
  fprintf(engine.output, "* GAIJI width=%d, hight=%d, code=%X-, %d chars", width, height, code,
          count);
  int row_bytes = (width - 1) / 8 + 1;
  int32_t bitmap_bytes = height * width / 8;
  for (int c = 0; c < count; ++c) {
    if (engine.flags & DF_TRACE) {
      fprintf(engine.output, "\n*%X:(%ld)\n", code, static_cast<long>(cdtell()));
    } else {
      fprintf(engine.output, "\n*%X\t\n", code);
    }
    code = next_code(code);
    for (int row = 0; row < height; ++row) {
      for (int b = 0; b < row_bytes; ++b) write_row_byte(cdgetbyte());
      fputc('\n', engine.output);
    }
    if (cdeof()) break;
    skip_to_block_if_full(bitmap_bytes);
  }
  fprintf(engine.output, "* GAIJI code=-%X\n", code - 1);
}

void dump_gaiji_file(const char* path) {
  if (path[0] == '\0') return;
  FILE* file = fopen(path, "rb");
  if (file == nullptr) {
    fputs("外字ファイルがみつかりません\n", engine.std_out);
    host_perror(path);
    engine_fail(25);
    return;
  }
  FILE* book = engine.current_file;
  const BookReader place = engine.reader;  // the book's position and flags, for after
  // The plain file is no row of a logical file table: positions are its own.
  uint32_t table_flag = engine.flags & DF_FILE_TABLE;
  engine.flags &= ~DF_FILE_TABLE;
  engine.current_file = file;
  cdgaijidump();
  cdforget(file);
  fclose(file);
  engine.current_file = book;
  engine.reader = place;
  engine.flags |= table_flag;
}
