// The book engine's one process-wide state.
//
// The engine is a command-driven reader written as plain functions over this
// record: every function reads and writes `engine` directly, nothing is
// allocated per call, and all texts are Shift-JIS bytes. A run (engine_main)
// resets the fields that start from the environment and leaves the others as
// the last run left them.
#ifndef ENGINE_ENGINE_STATE_H_
#define ENGINE_ENGINE_STATE_H_

#include <cstdint>
#include <cstdio>

// EngineFlags: bits 0..17 are debug flags (set by -S and CDDEBUG), bits
// 18..23 are modes that -S keeps.
enum : uint32_t {
  DF_NO_ITEM_SPLIT = 0x1,        // item separators suppressed; half-width gaiji table used
  DF_KEEP_FULL_KANA = 0x2,       // kana in half-width runs stay full width
  DF_NO_KEY_SYMBOLS = 0x4,       // symbols are dropped from a search key
  DF_HIDE_LINKS = 0x8,           // link information is not shown
  DF_MARGIN_SPLIT = 0x10,        // a left-margin code ends an item
  DF_1F41_SPLIT = 0x20,          // code 1F41 ends an item
  DF_INDEX_HIRAGANA = 0x100,     // katakana in index entries compare as hiragana
  DF_FILE_DOT = 0x200,           // a file name without extension gets a final '.'
  DF_COLOUR = 0x400,             // attributes shown by terminal colour sequences
  DF_VERBOSE = 0x800,            // control codes shown as marks
  DF_NO_STOP = 0x1000,           // output does not stop at an end mark
  DF_DUMP = 0x2000,              // an article is shown as a hexadecimal dump
  DF_TRACE = 0x4000,             // search and font dumps show debug lines
  DF_IGNORE_ERRORS = 0x8000,     // reported by -A only
  DF_SCAN_NO_DEFAULTS = 0x10000, // -T takes no starting values
  DF_NO_BACKSLASH = 0x20000,     // '\' is not turned into '/' in a drive path

  DF_ENGLISH = 0x40000,          // books hold 8-bit text
  DF_SYNONYM_INDEX = 0x80000,    // a digit-led argument is a keyword
  DF_ENCYCLOPEDIA = 0x100000,    // encyclopedia book type
  DF_EBOOK = 0x200000,           // Electronic Book type
  DF_FILE_TABLE = 0x400000,      // positions go through file_table
  DF_GROUP_SEARCH = 0x800000,    // a group-structured index search runs

  DF_MODE_MASK = 0xFC0000,       // the mode bits that -S keeps
};

// Display attributes of body text (text_attribute).
enum : uint32_t {
  TA_HALF = 0x01,    // half-width run
  TA_SUPER = 0x02,   // superscript
  TA_SUB = 0x04,     // subscript
  TA_BOLD = 0x08,    // bold
  TA_ITALIC = 0x10,  // italic
};

// Bytes in a path buffer; paths are limited to one less.
constexpr int kPathSize = 512;
// Articles remembered per argument so none is shown twice.
constexpr int kSeenMax = 512;
// Members of a group waiting to be printed.
constexpr int kCandidateMax = 300;

// One row of a logical file table: files laid end to end in one address space.
struct LogicalFile {
  int32_t first_page;  // position of the file's first byte divided by 2048
  const char* name;    // path relative to drive_path; null ends the table
  FILE* stream;        // the file while open, else null
};

// Bytes of the buffer of a search key made by cdnormkey: 255 two-byte
// characters and the final byte 0.
constexpr int kKeyBufferSize = 512;
// Bytes of the buffer of a key folded by cdfoldkey: a key of at most 511
// bytes never grows.
constexpr int kFoldBufferSize = 600;
// Definition tables loaded from files held at once: every table pointer
// holds at most one, so a few cover the full and the half-width table.
constexpr int kGaijiTableSlots = 4;

// A definition table that cdgaijiload loaded from a file and owns.
struct LoadedGaijiTable {
  unsigned char* block;       // records, then one byte 0 of our own; null when free
  const unsigned char* end;   // behind the last byte of the file's contents
};

// What stat says of a file or directory that moves on with any change of
// its contents (the status-change time cannot be set back); all zero for
// one changed too recently to be trusted (engine/find_file.h).
struct FileStamp {
  uint64_t device;           // st_dev
  uint64_t inode;            // st_ino; 0 in a stamp that stands for nothing
  int64_t size;              // st_size
  int64_t modified_seconds;  // st_mtim.tv_sec
  int64_t modified_nanos;    // st_mtim.tv_nsec
  int64_t changed_seconds;   // st_ctim.tv_sec
  int64_t changed_nanos;     // st_ctim.tv_nsec
};

// Bytes of one block of a book file as read and kept, the blocks kept, the
// blocks of one set (a block at a given offset is kept in one set only, so
// that finding it looks at kBlockWays blocks, not all), and the open book
// files whose stamps are known. The blocks hold what a few dozen lookups
// read: the upper pages of an index and the articles read again.
constexpr int kBlockSize = 4096;
constexpr int kBlockCount = 1024;
constexpr int kBlockWays = 8;
constexpr int kBookFileSlots = 8;
constexpr int kBlockSets = kBlockCount / kBlockWays;
static_assert(kBlockCount % kBlockWays == 0 && kBlockSets % 64 == 0);

// A block of a book file, kept while the run reads on, so that going back
// to a page (an index page between the articles it leads to) reads nothing;
// kept after the file closes for the next open of the same unchanged file.
// Its bytes are block_bytes at the same index, apart, so that going through
// the blocks touches only their descriptions.
struct BookBlock {
  FILE* file;          // the file it was read from while open; else null
  FileStamp stamp;     // that file as it stood when opened; zero: not kept past its close
  int64_t start;       // offset of its first byte in the file
  int32_t length;      // bytes it holds: kBlockSize, fewer where the file ends
  uint32_t last_use;   // use count at its last use; the least recent of a set goes first
  unsigned char* bytes;  // its bytes in block_bytes; set when it is first read
};

// A book file cdopen opened whose stamp is known: while in use, and after
// cdclose, parked (still open) for the next cdopen of the same path, which
// takes it up again while the path leads to the same unchanged file.
struct BookFileSlot {
  FILE* file;             // the open stream; null when the slot is free
  FileStamp stamp;        // the file as it stood when opened; never zero
  char path[kPathSize];   // the path cdopen made for it (under drive_path, lower case)
  bool parked;            // closed by cdclose, waiting for the next cdopen of path
  uint32_t parked_at;     // park count when parked; the oldest goes first
};

// Where the reading of a book file stands. Book files are read by block at
// an offset (pread), never through their streams, so these stand for the
// stream's own position and flags.
struct BookReader {
  FILE* file;       // the file described; another current_file stands at its start
  int64_t offset;   // offset in the file of the next byte to read
  bool at_end;      // the last read ran past the file's end (as feof); a seek clears it
  bool failed;      // a read failed (as ferror)
  BookBlock* block; // the block read last, tried first
};

// Directories whose listing a kept path rests on, and paths kept at once.
constexpr int kScannedMax = 4;
constexpr int kFoundPathSlots = 4;

// A book file path that open_book_file had to find by listing directories,
// kept between runs so that the next open of it lists nothing while those
// directories stand unchanged.
struct FoundPath {
  char asked[kPathSize];   // the path asked for; empty when the slot is free
  char found[kPathSize];   // the path of the file find_file found for it
  int32_t scanned_count;   // directories listed to find it
  int32_t scanned_ends[kScannedMax];  // bytes of `found` naming each ("" is the working one)
  FileStamp scanned_stamps[kScannedMax];  // each as it was when listed
};

// Where engine_catalog collects the titles of a -C listing.
struct CaptureBuffer {
  char* buffer;  // caller's buffer, not owned; null when no capture runs
  int32_t size;  // bytes in buffer
  int32_t used;  // bytes the listing so far needs, without the final NUL
};

struct EngineState {
  char drive_path[kPathSize];   // root of the book tree, ends in '/' once set
  char single_file[kPathSize];  // text file opened directly when not empty
  uint32_t flags;               // EngineFlags
  int32_t book_number;          // book selected from the catalog, from 0
  int32_t index_id;             // index to search; -1 forward, -2 backward
  int32_t multi_index;          // multi-search definition (-X), from 1; 0 none
  int32_t lines;                // line count of the list after a missed search
  int32_t width;                // wrap width of an output line; 0 no wrapping
  int32_t key_length;           // longest key in two-byte characters; 0 no limit
  int32_t cut_length;           // bytes of the next raw cut (-Y)
  const unsigned char* gaiji_table;    // full-width external-character texts
  const unsigned char* hankaku_table;  // half-width external-character texts
  LoadedGaijiTable gaiji_files[kGaijiTableSlots];  // the tables loaded from files
  LogicalFile* file_table;      // table of logical files in use or reported
  FILE* current_file;           // the book file open for reading, or null; see cdforget
  BookReader reader;            // the position and flags of current_file
  BookBlock blocks[kBlockCount];  // blocks of the open book files, read once each
  uint32_t block_uses;          // uses of blocks so far, for last_use
  uint64_t filled_sets[kBlockSets / 64];  // bit per set: some block of it was ever read
  BookFileSlot book_files[kBookFileSlots];  // open book files whose stamps are known
  uint32_t park_count;          // book files parked so far, for parked_at
  FoundPath found_paths[kFoundPathSlots];  // found book file paths, kept between runs
  uint32_t found_path_next;     // the slot the next path found takes (in turn)
  FILE* output;                 // where results go
  char output_buffer[8192];     // the buffer of an output file of -O
  CaptureBuffer capture;        // set only around engine_catalog
  int32_t failure_count;        // "error %d." lines of this run
  int32_t bad_option_count;     // arguments of this run refused as bad options
  int32_t forward_index_seen;   // 1 once a forward index was described
  char catalog_title[88];       // scratch of open_catalog: a title, then a path
  const char* number_end;       // where the last parse_number stopped
  int32_t seen_count;           // articles shown for this argument
  int32_t seen_positions[kSeenMax];  // their positions
  const char* search_string;    // the key as prepared for the search
  const char* normalized_key;   // the key compared with the index
  char key_buffer[kKeyBufferSize];    // the key as cdnormkey made it
  char fold_buffer[kFoldBufferSize];  // the key as cdfoldkey folded it
  int32_t walk_first_page;      // first page of the index area the walk keeps to
  int32_t walk_last_page;       // its last page; 0 when the area's size is not known
  int32_t walk_visits_left;     // page visits left before the walk gives up
  int32_t walk_depth;           // pages of the walk open one inside another
  int32_t index_pages;          // pages that an inspection dump covers
  int32_t found_pages;          // page count of the area find_index found last
  int32_t candidate_count;      // group members waiting to be printed
  int32_t head_positions[kCandidateMax];  // their head lines
  int32_t text_positions[kCandidateMax];  // their texts
  int32_t pending_position;     // head the next candidate list starts from
  int32_t saved_position;       // entry in hand / where cdheadlist comes back
  int32_t shown_attribute;      // attributes last written as colour; -1 none
  uint32_t text_attribute;      // attributes in force (TA_*)
  int32_t host_errno;           // last error of the host layer
  char* env_value;              // heap buffer holding the last host_getenv value
  size_t env_capacity;          // bytes in env_value
  FILE* std_in;                 // the engine's standard input
  FILE* std_out;                // the engine's standard output
  FILE* std_err;                // the engine's standard error
  alignas(kBlockSize) unsigned char block_bytes[kBlockCount][kBlockSize];  // each block's bytes, a page each
};

// The one instance. Zero-initialised at start, except the fields set before
// main (shown_attribute -1, the standard streams).
extern EngineState engine;

#endif  // ENGINE_ENGINE_STATE_H_
