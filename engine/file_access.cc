// Reading a book through one flat logical address space.
//
// A book's bytes are addressed by a signed 32-bit position. Pages hold 2048
// bytes; a page number as stored in a book counts from 1, so page N starts
// at position (N - 1) * 2048. Every multi-byte value in a book is
// big-endian: the word at a position is (byte at it) << 8 | (byte behind).
//
// Without DF_FILE_TABLE the space is current_file itself, position = file
// offset. With it, file_table lays files end to end:
//
//   row field    meaning
//   first_page   the row's first byte stands at position first_page * 2048
//                (counted from 0, unlike stored page numbers)
//   name         path under drive_path, opened on first use
//   stream       the open file, kept until cdclose
//
// A position belongs to the last row whose first byte is not behind it, so
// position first_page * 2048 is always that row's first byte. A read that
// runs off the end of one file carries on in the file that holds the next
// position.
#include "engine/file_access.h"

#include <cctype>
#include <cstring>

#include "engine/failure.h"
#include "engine/find_file.h"
#include "engine/host.h"

namespace {

// What failures print for a stream: its descriptor, 0 for none. A pointer
// value would say nothing to a reader and differ from run to run.
int stream_number(FILE* stream) { return stream ? fileno(stream) : 0; }

// The low 11 bits of a position are its offset within the page.
long page_of(int32_t offset) { return offset / kPageSize; }
long offset_in_page(int32_t offset) { return offset & (kPageSize - 1); }

// The rows in force; none when no table was ever loaded.
LogicalFile* table_rows() {
  static LogicalFile no_rows[1] = {{0, nullptr, nullptr}};
  return engine.file_table ? engine.file_table : no_rows;
}

int64_t row_start(const LogicalFile& row) {
  return static_cast<int64_t>(row.first_page) * kPageSize;
}

// Moves `file` to the physical position `offset` (whence 0) or `offset`
// bytes on (whence 1) by reading through its buffer, when that lies at most
// a page ahead. The stream library makes a system call on every seek, even
// within its buffer, and a lookup skips forward over index entries many
// times. False, with the stream where it was and its flags as they were,
// when this does not apply: the caller seeks.
bool skip_forward(FILE* file, long offset, int whence) {
  if (feof(file) || ferror(file)) return false;
  const long here = ftell(file);
  const long target = whence == 1 ? here + offset : offset;
  if (here < 0 || target < here || target - here > kPageSize) return false;
  char passed[kPageSize];
  const size_t wanted = static_cast<size_t>(target - here);
  if (fread(passed, 1, wanted, file) == wanted) return true;
  // The file ends on the way: back to where it stood, for the seek to go
  // past its end as seeks may.
  clearerr(file);
  fseek(file, here, SEEK_SET);
  return false;
}

// Moves current_file to logical position `offset` through file_table,
// opening the row's file on first use. Gives the physical position, or -1.
int32_t seek_in_table(int32_t offset) {
  LogicalFile* table = table_rows();
  int rows = 0;
  while (table[rows].name) ++rows;
  int row = rows - 1;
  while (row >= 0 && row_start(table[row]) > offset) --row;
  if (row < 0) {
    fprintf(engine.std_out, "cdseek error at %ld(%ld:%ld)", static_cast<long>(offset),
            page_of(offset), offset_in_page(offset));
    engine_fail(6);
    return -1;
  }
  LogicalFile& file = table[row];
  if (!file.stream) file.stream = cdopen(file.name);
  engine.current_file = file.stream;
  if (!file.stream) {
    host_perror(file.name);
    engine_fail(4);
    return -1;
  }
  const long inside = static_cast<long>(offset - row_start(file));
  if (skip_forward(file.stream, inside, 0)) return static_cast<int32_t>(inside);
  if (fseek(file.stream, inside, SEEK_SET) != 0) {
    fprintf(engine.std_out, "cdseek error on %s at %ld", file.name, static_cast<long>(offset));
    engine_fail(5);
    return -1;
  }
  return static_cast<int32_t>(inside);
}

}  // namespace

FILE* cdopen(const char* name) {
  if (engine.drive_path[0] == '\0') {
    fputs("CD-ROM のドライブを設定してください\n", engine.std_out);
    fputs("（環境変数 CDDRIVE、もしくは -D オプション）\n", engine.std_out);
    engine_fail(1);
    return nullptr;
  }
  char path[kPathSize];
  const size_t drive_length = strlen(engine.drive_path);
  const size_t name_length = strlen(name);
  // One byte is kept for the '.' that DF_FILE_DOT may add.
  if (drive_length + name_length + 2 > sizeof path) return nullptr;
  memcpy(path, engine.drive_path, drive_length);
  memcpy(path + drive_length, name, name_length + 1);
  // Book files are looked up in lower case, the drive part too; find_file
  // then matches them against names stored in any case.
  for (char* p = path; *p; ++p) *p = static_cast<char>(tolower(static_cast<unsigned char>(*p)));
  if (engine.flags & DF_FILE_DOT) {
    const char* base = strrchr(path, '/');
    if (!strchr(base ? base : path, '.')) strcat(path, ".");
  }
  FILE* file = open_book_file(path);
  // A stream learns its offset only from a seek; until then every position
  // asked of it costs a system call.
  if (file) fseek(file, 0, SEEK_SET);
  return file;
}

void cdclose() {
  if (engine.flags & DF_FILE_TABLE) {
    for (LogicalFile* row = table_rows(); row->name; ++row) {
      if (row->stream) fclose(row->stream);
      row->stream = nullptr;
    }
  } else if (engine.current_file) {
    fclose(engine.current_file);
  }
  engine.current_file = nullptr;
}

int32_t cdtell() {
  FILE* file = engine.current_file;
  if (!file) {
    fputs("error in cdtell: file not open\n", engine.std_out);
    engine_fail(2);
    return -1;
  }
  if (!(engine.flags & DF_FILE_TABLE)) return static_cast<int32_t>(ftell(file));
  for (const LogicalFile* row = table_rows(); row->name; ++row) {
    if (row->stream == file) return static_cast<int32_t>(ftell(file) + row_start(*row));
  }
  fprintf(engine.std_out, "error in cdtell: file_table out (%d)\n", stream_number(file));
  for (const LogicalFile* row = table_rows(); row->name; ++row) {
    fprintf(engine.std_out, "%2d:%6ld:%s\n", stream_number(row->stream),
            static_cast<long>(row->first_page), row->name);
  }
  engine_fail(3);
  return -1;
}

int32_t cdseek(int32_t offset, int whence) {
  for (;;) {
    if (whence == 0 && (engine.flags & DF_FILE_TABLE)) return seek_in_table(offset);
    // Seeking no stream at all simply fails; the reads that follow report.
    FILE* file = engine.current_file;
    if (!file) return -1;
    if (skip_forward(file, offset, whence)) return static_cast<int32_t>(ftell(file));
    long position = -1;
    if (fseek(file, offset, whence == 1 ? SEEK_CUR : SEEK_SET) == 0) position = ftell(file);
    if (position >= 0) return static_cast<int32_t>(position);
    if (whence == 0) {
      fprintf(engine.std_out, "cdseek error at %ld(%ld:%ld) of %d", static_cast<long>(offset),
              page_of(offset), offset_in_page(offset), stream_number(file));
      engine_fail(7);
      return -1;
    }
    // A relative step before the start is given up: stay where the file is.
    offset = cdtell();
    whence = 0;
  }
}

void cdseekpage(int32_t page) {
  if (page < 1) {
    fprintf(engine.std_out, "ページ番号が不正です(%ld)\n", static_cast<long>(page));
    engine_fail(8);
    return;
  }
  // Unsigned so that a page beyond the 32-bit space wraps instead of
  // overflowing; the seek then fails as any bad position does.
  cdseek(static_cast<int32_t>((static_cast<uint32_t>(page) - 1u) * kPageSize), 0);
}

int cdgetbyte() {
  int byte = engine.current_file ? fgetc(engine.current_file) : EOF;
  if (byte != EOF) return byte;
  // Off the end of this file: find the file that holds the position.
  cdseek(cdtell(), 0);
  byte = engine.current_file ? fgetc(engine.current_file) : EOF;
  if (byte != EOF) return byte;
  fprintf(engine.std_out, "データ読み込みに失敗しました(BYTE:pos=%ld)\n", static_cast<long>(cdtell()));
  engine_fail(9);
  return 0;
}

int cdgetword() {
  FILE* file = engine.current_file;
  if (!file) return 0;
  // Under a table, cdtell also checks that current_file is one of its rows
  // and reports when it is not, so it runs ahead of every read there.
  // Without one it cannot fail, and the start is worked out only when the
  // word is cut short: asking a stream its position is the costliest step
  // of reading a word.
  const bool table = engine.flags & DF_FILE_TABLE;
  const int32_t table_start = table ? cdtell() : 0;
  const int high = fgetc(file);
  const int low = high == EOF ? EOF : fgetc(file);
  if (low != EOF) return high << 8 | low;
  // The word lies across the end of a file: read it byte by byte.
  const int32_t start = table ? table_start : cdtell() - (high == EOF ? 0 : 1);
  cdseek(start, 0);
  const int first = cdgetbyte();
  return first << 8 | cdgetbyte();
}
