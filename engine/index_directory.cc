// The index directory: the first page of a book's text file lists the data
// areas of the book (body text, menu, headings, indexes, fonts) by one-byte
// identifier. All values are big-endian.
//
// Directory, at position 0 of the text file:
//
//   Offset  Size  Meaning
//   ------  ----  -------------------------------------------------------
//        0     2  number of entries
//        2    14  not read
//       16  16*N  the entries
//
// Entry (the same form serves as a component of a multi-search definition):
//
//   Offset  Size  Meaning
//   ------  ----  -------------------------------------------------------
//        0     1  identifier
//        1     1  not read
//        2     4  first page of the area (pages count from 1)
//        6     4  number of pages
//       10     6  not read
//
// An entry 0xFF points at a page of multi-search definitions:
//
//   Offset  Size  Meaning
//   ------  ----  -------------------------------------------------------
//        0     2  number of definitions
//        2    14  not read
//       16     -  the definitions, one after the other
//
// Multi-search definition:
//
//   Offset  Size  Meaning
//   ------  ----  -------------------------------------------------------
//        0     1  number of components K
//        1     1  not read
//        2    30  title: 15 JIS codes, or 30 bytes of text in English mode
//       32  16*K  the components, each in the form of an entry
//
// The definitions of all 0xFF entries are numbered together from 1 in the
// order they stand; that number is what -X selects.
//
// Counts are read as they stand, but a damaged book cannot make a scan
// endless: the directory is read no further than its page, the
// definitions of an entry no further than theirs, and the scans of
// entries and definitions end where the reads run off the end of the
// book.
#include "engine/index_directory.h"

#include <algorithm>

#include "engine/book_end.h"
#include "engine/catalog.h"
#include "engine/engine_state.h"
#include "engine/file_access.h"

namespace {

constexpr int32_t kEntrySize = 16;
constexpr int32_t kDirectoryHeaderSize = 16;
// Entries the directory page holds.
constexpr int32_t kMaxDirectoryEntries = (kPageSize - kDirectoryHeaderSize) / kEntrySize;
constexpr int kMultiSearchDefinitions = 0xFF;
// Components from this identifier on are indexes a search can walk.
constexpr int kFirstIndexIdentifier = 0x80;
constexpr int kTitleBytes = 30;

// What describe_index writes for a range of identifiers, and whether the
// range belongs to the forward-search group.
struct IdentifierText {
  int first;         // first identifier of the range
  int last;          // last identifier of the range
  const char* text;  // the line written for it
  bool forward;      // a forward-search heading or index
};

// "* " marks areas the reader does not support, as the -V head line says.
constexpr IdentifierText kIdentifierTexts[] = {
    {0x00, 0x00, "本文\n", false},
    {0x01, 0x01, "メニュー\n", false},
    {0x02, 0x02, "著作権表示\n", false},
    {0x03, 0x03, "条件検索見出し\n", false},
    {0x04, 0x04, "前方一致（かな）見出し\n", true},
    {0x05, 0x05, "前方一致見出し\n", true},
    {0x06, 0x06, "後方一致（かな）見出し\n", false},
    {0x07, 0x07, "後方一致見出し\n", false},
    {0x08, 0x08, "前方一致（英字）見出し\n", true},
    {0x09, 0x09, "後方一致（英字）見出し\n", false},
    {0x0A, 0x0A, "条件検索（その他）見出し\n", false},
    {0x0B, 0x0B, "分類番号見出し\n", false},
    {0x0C, 0x0C, "複合検索見出し\n", false},
    {0x0F, 0x0F, "* 図版一覧\n", false},
    {0x30, 0x30, "* かなインデックス\n", false},
    {0x60, 0x60, "* 表記インデックス\n", false},
    {0x70, 0x70, "後方一致（かな）インデックス\n", false},
    {0x71, 0x71, "後方一致インデックス\n", false},
    {0x72, 0x72, "後方一致（英字）インデックス\n", false},
    {0x73, 0x7F, "後方一致（その他）インデックス\n", false},
    {0x80, 0x80, "条件検索インデックス\n", false},
    {0x81, 0x8F, "条件検索（その他）インデックス\n", false},
    {0x90, 0x90, "前方一致（かな）インデックス\n", true},
    {0x91, 0x91, "前方一致インデックス\n", true},
    {0x92, 0x92, "前方一致（英字）インデックス\n", true},
    {0x93, 0x9F, "前方一致（その他）インデックス\n", true},
    {0xA0, 0xA0, "分類番号インデックス\n", false},
    {0xA1, 0xA1, "複合検索インデックス\n", false},
    {0xD0, 0xD0, "* 音声／図データ\n", false},
    {0xD1, 0xD1, "* 図版データ\n", false},
    {0xF1, 0xF4, "* 外字\n", false},
    {0xFF, 0xFF, "複合検索定義\n", false},
};

// A 32-bit big-endian value read as two words, the first one high.
int32_t read_long() {
  uint32_t high = static_cast<uint32_t>(cdgetword());
  return static_cast<int32_t>((high << 16) | static_cast<uint32_t>(cdgetword()));
}

// The last page of an area, wrapping like the 32-bit arithmetic of a book.
long last_page(int32_t first_page, int32_t page_count) {
  return static_cast<int32_t>(static_cast<uint32_t>(first_page) +
                              static_cast<uint32_t>(page_count) - 1u);
}

// Whether the definition whose component count was just read ends on its
// page: the definitions of an entry stand on one page, and a damaged count
// of definitions or components never takes a scan beyond it.
bool definition_on_page(int32_t page, int components) {
  const int64_t start = int64_t{cdtell()} - 1;
  return start + 2 + kTitleBytes + int64_t{kEntrySize} * components <= int64_t{page} * kPageSize;
}

// Opens the book when nothing is open and goes to its head.
void go_to_book_head() {
  if (engine.current_file != nullptr) {
    cdseek(0, 0);
  } else {
    engine.current_file = open_text();
  }
  // cdtell finds an encyclopedia's text file through the built-in table.
  if (engine.flags & DF_ENCYCLOPEDIA) default_file_table[0].stream = engine.current_file;
}

// Walks the multi-search definitions on `page`, numbering them on from
// *number. When the definition engine.multi_index is among them, sets
// *page_found to the first page of its first index component (0 when it
// has none) and gives true; index_id follows the components read.
bool find_in_definitions(int32_t page, int32_t* number, int32_t* page_found) {
  cdseekpage(page);
  int32_t definitions = cdgetword();
  cdseek(14, 1);
  for (int32_t d = 0; d < definitions; ++d, ++*number) {
    int components = cdgetbyte();
    if (cdeof() || !definition_on_page(page, components)) return false;
    cdseek(1 + kTitleBytes, 1);
    if (*number != engine.multi_index) {
      cdseek(kEntrySize * components, 1);
      continue;
    }
    *page_found = 0;
    for (int c = 0; c < components; ++c) {
      engine.index_id = cdgetbyte();
      if (engine.index_id < kFirstIndexIdentifier) {
        cdseek(kEntrySize - 1, 1);
        continue;
      }
      cdseek(1, 1);
      *page_found = read_long();
      engine.found_pages = read_long();
      return true;
    }
    return true;
  }
  return false;
}

// The -V lines of the definitions on `page`, numbered on from *number.
void list_definitions(int32_t page, int32_t* number) {
  cdseekpage(page);
  int32_t definitions = cdgetword();
  cdseek(14, 1);
  for (int32_t d = 0; d < definitions; ++d) {
    int components = cdgetbyte();
    if (cdeof() || !definition_on_page(page, components)) return;
    cdseek(1, 1);
    fprintf(engine.output, "+\t\t  -X%d:\t", static_cast<int>((*number)++));
    if (engine.flags & DF_ENGLISH) {
      for (int i = 0; i < kTitleBytes; ++i) {
        int byte = cdgetbyte();
        fputc(byte == 0 ? ' ' : byte, engine.output);
      }
    } else {
      for (int i = 0; i < kTitleBytes / 2; ++i) {
        int32_t sjis = jis_to_sjis(cdgetword());  // a code 0 becomes two blanks
        fputc((sjis >> 8) & 0xFF, engine.output);
        fputc(sjis & 0xFF, engine.output);
      }
    }
    fputc('\n', engine.output);
    for (int c = 0; c < components; ++c) {
      int identifier = cdgetbyte();
      fprintf(engine.output, "|0x%02X:", identifier);
      cdseek(1, 1);
      int32_t first = read_long();
      fprintf(engine.output, "%6ld-", static_cast<long>(first));
      fprintf(engine.output, "%5ld\t", last_page(first, read_long()));
      cdseek(6, 1);
      describe_index(identifier);
    }
  }
}

}  // namespace

int32_t find_index(int32_t identifier) {
  go_to_book_head();
  if (identifier < 0) return 0;
  engine.found_pages = 0;
  int32_t entries = std::min(cdgetword(), kMaxDirectoryEntries);
  cdseek(14, 1);
  int32_t next_definition = 1;
  for (int32_t i = 0; i < entries; ++i) {
    const int entry_identifier = cdgetbyte();
    if (cdeof()) return 0;
    if (entry_identifier != identifier) {
      cdseek(kEntrySize - 1, 1);
      continue;
    }
    cdseek(1, 1);
    int32_t first = read_long();
    int32_t pages = read_long();
    if (identifier != kMultiSearchDefinitions) {
      engine.found_pages = pages;
      return first;
    }
    int32_t page_found = 0;
    if (find_in_definitions(first, &next_definition, &page_found)) return page_found;
    // A later 0xFF entry goes on with the numbering.
    cdseek(kDirectoryHeaderSize + kEntrySize * (i + 1), 0);
  }
  return 0;
}

void describe_index(int32_t identifier) {
  for (const IdentifierText& row : kIdentifierTexts) {
    if (identifier < row.first || identifier > row.last) continue;
    if (row.forward) engine.forward_index_seen = 1;
    fputs(row.text, engine.output);
    return;
  }
  fputs("？\n", engine.output);
}

void list_indexes() {
  go_to_book_head();
  if (engine.current_file == nullptr) return;
  int32_t entries = std::min(cdgetword(), kMaxDirectoryEntries);
  cdseek(14, 1);
  fputs("INDEX:START -  END\t内容（*:未対応）\n", engine.output);
  int32_t next_definition = 1;
  for (int32_t i = 0; i < entries; ++i) {
    int identifier = cdgetbyte();
    if (cdeof()) return;
    fprintf(engine.output, " 0x%02X:", identifier);
    cdseek(1, 1);
    int32_t first = read_long();
    fprintf(engine.output, "%6ld-", static_cast<long>(first));
    fprintf(engine.output, "%5ld\t", last_page(first, read_long()));
    describe_index(identifier);
    if (identifier == kMultiSearchDefinitions) {
      list_definitions(first, &next_definition);
      cdseek(kDirectoryHeaderSize + kEntrySize * i + 10, 0);
    }
    cdseek(6, 1);
  }
}
