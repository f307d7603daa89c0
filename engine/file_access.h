// Reading a book: one flat logical address space of 2048-byte pages made of
// one file, or of the files a logical file table lays end to end. These are
// the only ways the rest of the engine reads a book.
#ifndef ENGINE_FILE_ACCESS_H_
#define ENGINE_FILE_ACCESS_H_

#include <cstdint>
#include <cstdio>

#include "engine/engine_state.h"

constexpr int32_t kPageSize = 2048;

// The built-in layout of the encyclopedia book type (23 rows and the end row).
extern LogicalFile default_file_table[];
// The table -F or CDFILES describes: 30 rows and the end row.
extern LogicalFile defined_file_table[];

// Opens `name` under drive_path for reading ("rb"): the whole path is
// lower-cased, gets a final '.' under DF_FILE_DOT when its last component
// has none, and is then found whatever the case and disc suffixes of the
// stored names (engine/find_file.h). Null, without a message, when there is
// no such file or the path would pass 511 bytes; failure 1 when drive_path
// is empty.
FILE* cdopen(const char* name);
// Drops whatever was read and kept of `file`, ahead of closing it outside
// cdclose (a stream's address may come again for another file).
void cdforget(FILE* file);
// Closes whatever book files are open; current_file becomes null. A book
// file with a stamp stays open, parked for the next cdopen of its path.
void cdclose();
// Closes for good the book files cdclose parked (their blocks wait for the
// next open of the same unchanged file), so that no book file stays open.
void cdclose_parked();
// The bytes of current_file from the position to the end of the block read
// last, `*size` of them, the reader not moving; null when that block does not
// hold the position. Text decoding runs over them without a call a word.
[[gnu::always_inline]] inline const unsigned char* kept_rest(int64_t* size) {
  const BookReader& place = engine.reader;
  const BookBlock* block = place.block;
  if (!block || !place.file || place.file != engine.current_file || block->file != place.file ||
      place.at_end) {
    return nullptr;
  }
  const int64_t inside = place.offset - block->start;
  if (inside < 0 || inside > block->length) return nullptr;
  *size = block->length - inside;
  return block->bytes + inside;
}

// The next `size` bytes of current_file when the block read last holds them
// all, the reader then standing behind them; else null. The path of nearly
// every read, inlined where text is decoded.
[[gnu::always_inline]] inline const unsigned char* kept_bytes(size_t size) {
  int64_t rest = 0;
  const unsigned char* kept = kept_rest(&rest);
  if (!kept || static_cast<int64_t>(size) > rest) return nullptr;
  engine.reader.offset += static_cast<int64_t>(size);
  return kept;
}

// The out-of-line parts of cdtell and cdgetword.
int32_t position_from_file();
int word_from_file();

// The logical position; -1 after a failure.
inline int32_t cdtell() {
  const BookReader& place = engine.reader;
  if (place.file && place.file == engine.current_file && !(engine.flags & DF_FILE_TABLE)) {
    return static_cast<int32_t>(place.offset);
  }
  return position_from_file();
}
// whence 0: to logical position `offset`; whence 1: by `offset` bytes.
int32_t cdseek(int32_t offset, int whence);
// To the first byte of `page` (pages count from 1).
void cdseekpage(int32_t page);
// One byte 0..255; 0 after a failure.
int cdgetbyte();
// One big-endian word 0..65535; 0 after a failure.
inline int cdgetword() {
  // Under a table, cdtell runs ahead of every read (word_from_file).
  if (!(engine.flags & DF_FILE_TABLE)) {
    if (const unsigned char* kept = kept_bytes(2)) return kept[0] << 8 | kept[1];
  }
  return word_from_file();
}
// Up to `size` bytes from the position on, as fread reads them: fewer where
// the file ends or a read fails, and never on into the next file of a table.
size_t cdread(void* bytes, size_t size);
// How the reading of current_file stands (its end and error flags); null
// when no book file is current.
const BookReader* current_reader();
// Loads a file definition table, or selects the default table for null.
LogicalFile* load_file_table(const char* path);

#endif  // ENGINE_FILE_ACCESS_H_
