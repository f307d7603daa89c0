// Logical file tables: the built-in layout of the encyclopedia, and the
// table that a file definition table (-F, CDFILES) describes.
//
// A file definition table is text, one row a line:
//
//   line                      meaning
//   "#..."                    a comment, no row
//   NUMBER[,][ ]NAME[ rest]   a row: NUMBER (parse_number: decimal, 0 octal,
//                             0x hexadecimal) is the row's first page counted
//                             from 0; NAME, under drive_path, ends at a blank,
//                             tab, CR, LF or the end of the line; rest ignored
//   (blank line)              a row with first page 0 and an empty name
//
// Lines are read up to 511 bytes (the rest of a longer line is dropped);
// at most 30 rows are read, later lines are not.
#include <cstdlib>
#include <cstring>

#include "engine/failure.h"
#include "engine/file_access.h"
#include "engine/host.h"
#include "engine/number.h"

namespace {

constexpr int kDefinedRows = 30;

// Copies the name that starts at `text` to the heap; it ends at a blank,
// tab, CR, LF or the end of the text.
char* copy_name(const char* text) {
  const size_t length = strcspn(text, " \t\r\n");
  char* name = static_cast<char*>(malloc(length + 1));
  if (!name) return nullptr;
  memcpy(name, text, length);
  name[length] = '\0';
  return name;
}

// Reads one line of at most 511 bytes into `line`; the rest of a longer
// line is skipped, so that it makes no row of its own. False at the end.
bool read_line(FILE* file, char (&line)[kPathSize]) {
  if (!fgets(line, sizeof line, file)) return false;
  if (!strchr(line, '\n')) {
    int c;
    do c = fgetc(file);
    while (c != '\n' && c != EOF);
  }
  return true;
}

void free_defined_names() {
  for (LogicalFile* row = defined_file_table; row->name; ++row) {
    free(const_cast<char*>(row->name));
    row->name = nullptr;
  }
}

}  // namespace

LogicalFile default_file_table[] = {
    {0x0, "start", nullptr},
    {0x1, "index/kana.idx", nullptr},
    {0x579, "index/hyoki.idx", nullptr},
    {0xEF3, "index/zkana.idx", nullptr},
    {0x156E, "title/zkana.txt", nullptr},
    {0x1B1B, "index/zhyoki.idx", nullptr},
    {0x2797, "title/zhyoki.txt", nullptr},
    {0x37AE, "index/kkana.idx", nullptr},
    {0x3E12, "title/kkana.txt", nullptr},
    {0x43BF, "index/khyoki.idx", nullptr},
    {0x508E, "title/khyoki.txt", nullptr},
    {0x614E, "sekai/joken1.tbl", nullptr},
    {0x72C2, "sekai/joken2.tbl", nullptr},
    {0x7BE9, "index/joken.idx", nullptr},
    {0xE1D8, "title/joken.txt", nullptr},
    {0x260F4, "sekai/honmon.dat", nullptr},
    {0x3AFB1, "copr/copr.dat", nullptr},
    {0x3AFB2, "abstract/abstract.dat", nullptr},
    {0x3B015, "sekai/zuhan.dat", nullptr},
    {0x44ECC, "gaiji/gai16.zen", nullptr},
    {0x44F38, "gaiji/gai24.zen", nullptr},
    {0x4502D, "gaiji/gai16.han", nullptr},
    {0x45033, "gaiji/gai24.han", nullptr},
    {0, nullptr, nullptr},
};

LogicalFile defined_file_table[kDefinedRows + 1];

LogicalFile* load_file_table(const char* path) {
  cdclose();
  // The defined table's names are always heap copies or null, so they are
  // freed whatever table was in force: a run that starts with fresh flags
  // must not leak the names an earlier run loaded.
  free_defined_names();
  engine.flags &= ~DF_FILE_TABLE;
  if (!path) return default_file_table;
  FILE* file = fopen(path, "r");
  if (!file) {
    host_perror(path);
    engine_fail(10);
    return defined_file_table;
  }
  int rows = 0;
  char line[kPathSize];
  while (rows < kDefinedRows && read_line(file, line)) {
    if (line[0] == '#') continue;
    const int32_t first_page = parse_number(line);
    const char* name = engine.number_end;
    if (*name == ',') ++name;
    while (*name == ' ' || *name == '\t') ++name;
    char* copy = copy_name(name);
    if (!copy) break;  // out of memory: the table ends with the rows it has
    defined_file_table[rows++] = {first_page, copy, nullptr};
  }
  defined_file_table[rows] = {0, nullptr, nullptr};
  fclose(file);
  engine.flags |= DF_FILE_TABLE;
  return defined_file_table;
}
