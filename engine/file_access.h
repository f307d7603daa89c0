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
// The logical position; -1 after a failure.
int32_t cdtell();
// whence 0: to logical position `offset`; whence 1: by `offset` bytes.
int32_t cdseek(int32_t offset, int whence);
// To the first byte of `page` (pages count from 1).
void cdseekpage(int32_t page);
// One byte 0..255; 0 after a failure.
int cdgetbyte();
// One big-endian word 0..65535; 0 after a failure.
int cdgetword();
// Up to `size` bytes from the position on, as fread reads them: fewer where
// the file ends or a read fails, and never on into the next file of a table.
size_t cdread(void* bytes, size_t size);
// How the reading of current_file stands (its end and error flags); null
// when no book file is current.
const BookReader* current_reader();
// Loads a file definition table, or selects the default table for null.
LogicalFile* load_file_table(const char* path);

#endif  // ENGINE_FILE_ACCESS_H_
