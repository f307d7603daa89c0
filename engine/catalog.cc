// Catalogs and book opening.
//
// The name of the catalog file tells the book type; the names are tried in
// this order and the first that opens wins: "catalogs", "titles" (EPWING),
// "catalog", "title" (Electronic Book), "catalog/catalog1", "catalog/title1"
// (encyclopedia).
//
// EPWING and Electronic Book catalog:
//
//   offset  size  meaning
//   0       2     number of books, big-endian
//   2       14    not read
//   16      ...   one record a book, book 0 first
//
// Record                         EPWING        Electronic Book
//   field                        offset  size  offset  size
//   not read                     0       2     0       2
//   title                        2       80    2       30
//   directory, blank-padded      82      8     32      8
//   not read                     90      74    -       -
//   whole record                         164           40
//
// A title holds JIS X 0208 codes, two bytes each, high byte first (code 0
// is padding), or in English mode 8-bit text ended by a NUL or its size.
// The directory has no NUL; it ends at its first blank or after 8 bytes.
//
// Encyclopedia catalog: 6 bytes not read, then one title of 80 bytes as in
// EPWING. The book's files are those of default_file_table.
//
// Text file of a book: EPWING directory + "/data/honmon"; Electronic Book
// directory + "/start"; encyclopedia "start".
#include "engine/catalog.h"

#include <cstring>

#include "engine/book_end.h"
#include "engine/engine_state.h"
#include "engine/failure.h"
#include "engine/file_access.h"

namespace {

constexpr uint32_t kBookTypeFlags = DF_ENCYCLOPEDIA | DF_EBOOK;
constexpr int32_t kEpwingRecordSize = 164;
constexpr int32_t kEbookRecordSize = 40;

struct CatalogName {
  const char* name;  // path under drive_path
  uint32_t type;     // book type flag it selects (0 for EPWING)
};

constexpr CatalogName kCatalogNames[] = {
    {"catalogs", 0},
    {"titles", 0},
    {"catalog", DF_EBOOK},
    {"title", DF_EBOOK},
    {"catalog/catalog1", DF_ENCYCLOPEDIA},
    {"catalog/title1", DF_ENCYCLOPEDIA},
};

// Opens the first catalog that exists as current_file, setting the book
// type's flag as each name is tried. False when none opens.
bool open_catalog_file() {
  for (const CatalogName& catalog : kCatalogNames) {
    engine.flags = (engine.flags & ~kBookTypeFlags) | catalog.type;
    engine.current_file = cdopen(catalog.name);
    if (engine.current_file) return true;
  }
  return false;
}

// Reads a title of `size` bytes at the current position into catalog_title.
// Japanese titles become Shift-JIS, two bytes a code, a code 0 two blanks.
void read_title(int size) {
  char* title = engine.catalog_title;
  if (engine.flags & DF_ENGLISH) {
    for (int i = 0; i < size; ++i) title[i] = static_cast<char>(cdgetbyte());
  } else {
    for (int i = 0; i < size; i += 2) {
      const int32_t code = jis_to_sjis(cdgetword());
      title[i] = static_cast<char>(code >> 8);
      title[i + 1] = static_cast<char>(code);
    }
  }
  title[size] = '\0';
}

// Adds a title to the capture of engine_catalog: written when it fits with
// room for the final NUL, counted in every case.
void capture_title(const char* title) {
  CaptureBuffer& capture = engine.capture;
  const int32_t length = static_cast<int32_t>(strlen(title));
  if (capture.buffer && length + capture.used + 1 < capture.size) {
    memcpy(capture.buffer + capture.used, title, length);
    capture.buffer[capture.used + length] = '\n';
    capture.buffer[capture.used + length + 1] = '\0';
  }
  capture.used += length + 1;
}

// Reads the 8-byte directory into catalog_title, cut at its first blank.
void read_directory() {
  char* directory = engine.catalog_title;
  for (int i = 0; i < 8; ++i) directory[i] = static_cast<char>(cdgetbyte());
  directory[8] = '\0';
  if (char* blank = strchr(directory, ' ')) *blank = '\0';
}

}  // namespace

const char* open_catalog(int32_t book) {
  cdclose();
  // A table is in force: a defined layout has no catalog, and an
  // encyclopedia found earlier in the run is not read again.
  if (engine.flags & DF_FILE_TABLE) return nullptr;
  engine.flags &= ~kBookTypeFlags;
  if (!open_catalog_file()) {
    fputs("カタログ・ファイルが見つかりません\n", engine.std_out);
    engine_fail(16);
    return nullptr;
  }
  const bool listing = book == -1;
  const bool encyclopedia = engine.flags & DF_ENCYCLOPEDIA;
  const bool ebook = engine.flags & DF_EBOOK;
  int32_t count = 1;
  if (encyclopedia) {
    cdseek(6, 0);
  } else {
    count = cdgetword();
    cdseek(18, 0);
  }
  const int title_size = ebook ? 30 : 80;
  if (!listing && !encyclopedia) {
    // A book's record is read at its place: opening the last of 65535
    // books costs what opening the first does.
    const char* path = nullptr;
    if (book >= 0 && book < count) {
      cdseek(18 + book * (ebook ? kEbookRecordSize : kEpwingRecordSize), 0);
      read_title(title_size);
      if (!cdeof()) {  // else the count claims more records than the catalog holds
        read_directory();
        strcat(engine.catalog_title, ebook ? "/start" : "/data/honmon");
        path = engine.catalog_title;
      }
    }
    cdclose();
    return path;
  }
  for (int32_t number = 0; number < count; ++number) {
    read_title(title_size);
    if (cdeof()) break;  // the count claims more records than the catalog holds
    if (listing) capture_title(engine.catalog_title);
    if (encyclopedia) {
      cdclose();
      if (listing) fprintf(engine.output, "%s\n", engine.catalog_title);
      engine.file_table = default_file_table;
      engine.flags |= DF_FILE_TABLE;
      return "start";
    }
    fprintf(engine.output, "-B%d ; %s : ", static_cast<int>(number), engine.catalog_title);
    read_directory();
    fprintf(engine.output, "%s\n", engine.catalog_title);
    cdseek(ebook ? 2 : 76, 1);
  }
  cdclose();
  return nullptr;
}

FILE* open_text() {
  if (engine.single_file[0]) return fopen(engine.single_file, "rb");
  if (engine.flags & DF_FILE_TABLE) {
    cdseek(0, 0);
    return engine.current_file;
  }
  const char* path = open_catalog(engine.book_number);
  if (!path) {
    fputs("文書番号が不適当です（-B オプション）\n", engine.std_out);
    engine_fail(17);
    return nullptr;
  }
  return cdopen(path);
}
