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
//
// Files are read in blocks of kBlockSize at their offsets, and kBlockCount
// blocks are kept, in sets of kBlockWays by their offset, the least
// recently used of a set giving way: a walk that goes from an index page
// to an article and back reads the page once, and a seek or the position
// costs no system call. A block carries the stamp of its file as it stood
// when opened (device, inode, size, modification and change times).
//
// cdclose closes a book file with a stamp only in name: it stays open,
// parked with its blocks, and the next cdopen of the same path, in this run
// or a later one, takes it up again after one stat of the file (and one of
// each directory listed to find it) shows the path still leads to the very
// same stamp. A parked file that no longer does is closed; so is the one
// parked longest when its slot is wanted. Blocks of a file closed for good
// wait, by their stamp, for its next open. Any write to the file moves its
// change time (which only FAT lets a copy set back, as it keeps no change
// time of its own: size and times must then all match), and a file put in
// its place has another inode; a file changed within the last seconds gets
// no stamp, is closed by cdclose, and its blocks go (engine/find_file.h).
//
// engine.reader stands for the stream's position and its end and error
// flags, with the stream's rules: a read past the end sets the end flag and
// reads nothing more until a seek clears it.
#include "engine/file_access.h"

#include <unistd.h>

#include <algorithm>
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

// The reader of current_file (which is not null): a file it did not
// describe so far stands at its start, as a stream just opened does.
BookReader& reader() {
  BookReader& reader = engine.reader;
  if (reader.file != engine.current_file) reader = {engine.current_file, 0, false, false, nullptr};
  return reader;
}

// A slot that holds nothing; its bytes need no clearing.
void free_block(BookBlock& block) {
  block.file = nullptr;
  block.stamp = FileStamp{};
  block.last_use = 0;
}

// Calls `visit` on every block of the sets ever filled: the others hold
// nothing, and a process that read a few blocks does not go through (nor
// touch the pages of) all the rest.
template <typename Visit>
void each_filled_block(Visit visit) {
  for (int set = 0; set < kBlockSets; ++set) {
    if (!(engine.filled_sets[set / 64] >> (set % 64) & 1)) continue;
    for (int way = 0; way < kBlockWays; ++way) visit(engine.blocks[set * kBlockWays + way]);
  }
}

// The slot of `file`, or null when it has none.
BookFileSlot* slot_of(FILE* file) {
  for (BookFileSlot& slot : engine.book_files) {
    if (slot.file == file) return &slot;
  }
  return nullptr;
}

// The stamp `file` got when cdopen opened it; zero when it has none.
FileStamp stamp_of(FILE* file) {
  const BookFileSlot* slot = file ? slot_of(file) : nullptr;
  return slot ? slot->stamp : FileStamp{};
}

// Blocks of `file` are no longer its: they wait, by their stamp, for the
// next open of the same unchanged file.
void detach_blocks(FILE* file) {
  each_filled_block([file](BookBlock& block) {
    if (block.file == file) block.file = nullptr;
  });
}

// Closes a parked file for good and frees its slot.
void close_parked(BookFileSlot& slot) {
  detach_blocks(slot.file);
  fclose(slot.file);
  slot = BookFileSlot{};
}

// A slot for a file just opened: a free one, else the one parked longest,
// closed now; null when every slot holds a file in use.
BookFileSlot* free_slot() {
  BookFileSlot* oldest = nullptr;
  for (BookFileSlot& slot : engine.book_files) {
    if (!slot.file) return &slot;
    if (slot.parked && (!oldest || slot.parked_at < oldest->parked_at)) oldest = &slot;
  }
  if (oldest) close_parked(*oldest);
  return oldest;
}

// Notes the stamp of `file`, just opened at `path`, and gives it the kept
// blocks of the same unchanged file. A file with no slot gets no stamp.
void take_up_blocks(FILE* file, const FileStamp& stamp, const char* path) {
  if (stamp.inode == 0) return;
  BookFileSlot* slot = free_slot();
  if (!slot) return;
  slot->file = file;
  slot->stamp = stamp;
  strcpy(slot->path, path);
  each_filled_block([file, &stamp](BookBlock& block) {
    if (!block.file && same_stamp(block.stamp, stamp)) block.file = file;
  });
}

// The file parked for `path`, taken up again, while the path leads to the
// same unchanged file; one that no longer does is closed.
FILE* take_parked(const char* path) {
  for (BookFileSlot& slot : engine.book_files) {
    if (!slot.parked || strcmp(slot.path, path) != 0) continue;
    if (still_leads_to(path, slot.stamp)) {
      slot.parked = false;
      return slot.file;
    }
    close_parked(slot);
  }
  return nullptr;
}

// `file`, which cdclose is done with: parked when it has a stamp, its
// blocks staying with it; else closed, and what was read of it goes.
void release(FILE* file) {
  if (BookFileSlot* slot = slot_of(file)) {
    slot->parked = true;
    slot->parked_at = ++engine.park_count;
    return;
  }
  cdforget(file);
  fclose(file);
}

// The block of `file` that holds `offset`, read now unless it is kept; null
// when the read fails.
BookBlock* block_at(FILE* file, int64_t offset) {
  const int64_t start = offset - offset % kBlockSize;
  const int64_t set_number = start / kBlockSize % kBlockSets;
  BookBlock* const set = &engine.blocks[set_number * kBlockWays];
  BookBlock* oldest = set;
  for (BookBlock* block = set; block < set + kBlockWays; ++block) {
    if (block->file == file && block->start == start) {
      block->last_use = ++engine.block_uses;
      return block;
    }
    if (block->last_use < oldest->last_use) oldest = block;
  }
  engine.filled_sets[set_number / 64] |= uint64_t{1} << (set_number % 64);
  oldest->bytes = engine.block_bytes[oldest - engine.blocks];
  const ssize_t got = pread(fileno(file), oldest->bytes, kBlockSize, start);
  if (got < 0) {
    free_block(*oldest);
    return nullptr;
  }
  oldest->file = file;
  oldest->stamp = stamp_of(file);
  oldest->start = start;
  oldest->length = static_cast<int32_t>(got);
  oldest->last_use = ++engine.block_uses;
  return oldest;
}

// Up to `size` bytes of current_file from the reader's offset on, as fread
// reads them: fewer when the file ends (at_end) or a read fails (failed).
size_t read_bytes(unsigned char* bytes, size_t size) {
  if (const unsigned char* kept = kept_bytes(size)) {
    memcpy(bytes, kept, size);
    return size;
  }
  if (!engine.current_file) return 0;
  BookReader& place = reader();
  if (place.at_end) return 0;
  size_t got = 0;
  while (got < size) {
    BookBlock* block = place.block;
    if (!block || block->file != place.file || place.offset < block->start ||
        place.offset >= block->start + kBlockSize) {
      block = place.block = block_at(place.file, place.offset);
      if (!block) {
        place.failed = true;
        break;
      }
    }
    const int64_t inside = place.offset - block->start;
    if (inside >= block->length) {
      place.at_end = true;
      break;
    }
    const size_t take = std::min(size - got, static_cast<size_t>(block->length - inside));
    memcpy(bytes + got, block->bytes + inside, take);
    got += take;
    place.offset += static_cast<int64_t>(take);
  }
  return got;
}

// One byte of current_file, or EOF.
int next_byte() {
  if (const unsigned char* kept = kept_bytes(1)) return *kept;
  unsigned char byte;
  return read_bytes(&byte, 1) == 1 ? byte : EOF;
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
  BookReader& place = reader();
  place.offset = offset - row_start(file);
  place.at_end = false;
  return static_cast<int32_t>(place.offset);
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
  if (FILE* parked = take_parked(path)) return parked;
  FileStamp stamp;
  FILE* file = open_book_file(path, &stamp);
  // A stream closed behind the engine's back may come again under the same
  // address: nothing kept of the old one may pass for the new one.
  if (file) {
    cdforget(file);
    take_up_blocks(file, stamp, path);
  }
  return file;
}

void cdforget(FILE* file) {
  each_filled_block([file](BookBlock& block) {
    if (block.file == file) free_block(block);
  });
  if (BookFileSlot* slot = slot_of(file)) *slot = BookFileSlot{};
  if (engine.reader.file == file) engine.reader = BookReader{};
}

void cdclose() {
  if (engine.flags & DF_FILE_TABLE) {
    for (LogicalFile* row = table_rows(); row->name; ++row) {
      if (row->stream) release(row->stream);
      row->stream = nullptr;
    }
  } else if (engine.current_file) {
    release(engine.current_file);
  }
  engine.current_file = nullptr;
  // A book file cdopen handed out that is not closed here (its caller
  // closes it) is no longer followed.
  for (BookFileSlot& slot : engine.book_files) {
    if (slot.file && !slot.parked) {
      detach_blocks(slot.file);
      slot = BookFileSlot{};
    }
  }
  engine.reader = BookReader{};
}

void cdclose_parked() {
  for (BookFileSlot& slot : engine.book_files) {
    if (slot.parked) close_parked(slot);
  }
}

int32_t position_from_file() {
  FILE* file = engine.current_file;
  if (!file) {
    fputs("error in cdtell: file not open\n", engine.std_out);
    engine_fail(2);
    return -1;
  }
  const int64_t offset = reader().offset;
  if (!(engine.flags & DF_FILE_TABLE)) return static_cast<int32_t>(offset);
  for (const LogicalFile* row = table_rows(); row->name; ++row) {
    if (row->stream == file) return static_cast<int32_t>(offset + row_start(*row));
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
    if (!engine.current_file) return -1;
    BookReader& place = reader();
    const int64_t target = whence == 1 ? place.offset + offset : offset;
    if (target >= 0) {
      place.offset = target;
      place.at_end = false;
      return static_cast<int32_t>(target);
    }
    if (whence == 0) {
      fprintf(engine.std_out, "cdseek error at %ld(%ld:%ld) of %d", static_cast<long>(offset),
              page_of(offset), offset_in_page(offset), stream_number(engine.current_file));
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
  int byte = next_byte();
  if (byte != EOF) return byte;
  // Off the end of this file: find the file that holds the position.
  cdseek(cdtell(), 0);
  byte = next_byte();
  if (byte != EOF) return byte;
  fprintf(engine.std_out, "データ読み込みに失敗しました(BYTE:pos=%ld)\n", static_cast<long>(cdtell()));
  engine_fail(9);
  return 0;
}

int word_from_file() {
  if (!engine.current_file) return 0;
  // Under a table, cdtell also checks that current_file is one of its rows
  // and reports when it is not, so it runs ahead of every read there.
  const bool table = engine.flags & DF_FILE_TABLE;
  const int32_t table_start = table ? cdtell() : 0;
  unsigned char word[2];
  const size_t got = read_bytes(word, 2);
  if (got == 2) return word[0] << 8 | word[1];
  // The word lies across the end of a file: read it byte by byte.
  const int32_t start = table ? table_start : cdtell() - static_cast<int32_t>(got);
  cdseek(start, 0);
  const int first = cdgetbyte();
  return first << 8 | cdgetbyte();
}

size_t cdread(void* bytes, size_t size) { return read_bytes(static_cast<unsigned char*>(bytes), size); }

const BookReader* current_reader() { return engine.current_file ? &reader() : nullptr; }
