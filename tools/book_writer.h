// Book trees described in code and written to a directory byte for byte:
// the catalog of one of the three book types and each book's text file,
// with its index directory on page 1 and areas of raw pages behind it.
//
//   BookTree tree(BookType::kEpwing);
//   Book& book = tree.add_book("日本語の辞書", "JITEN");
//   int32_t body = book.text.add_area(0x00, body_bytes);
//   tree.write(root);   // root/catalogs, root/JITEN/data/honmon
#ifndef TOOLS_BOOK_WRITER_H_
#define TOOLS_BOOK_WRITER_H_

#include <cstdint>
#include <deque>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/catalog_writer.h"
#include "tools/index_directory_writer.h"

// How names are written. Discs copied to disk keep their upper-case names
// and version suffixes, which the engine must find all the same.
struct NameStyle {
  bool upper_case = false;  // "CATALOGS", "JITEN/DATA/HONMON"
  bool bare_dot = false;    // a final '.' on a file name without one: "HONMON."
  bool version = false;     // ";1" behind every file name: "HONMON.;1"
};

// A book's logical address space in pages of 2048 bytes, counted from 1:
// the index directory on page 1, areas on the pages behind it. Pages that
// nothing was put on read as zeros.
class BookText {
 public:
  // Puts `bytes` on whole pages from next_page(), lists them in the
  // directory as area `identifier` and returns the first page. An empty
  // area still takes one page.
  int32_t add_area(int identifier, std::string_view bytes);
  // The same from `first_page`, which must not be before next_page().
  int32_t add_area_at(int identifier, int32_t first_page, std::string_view bytes);
  // Puts pages listed in no directory entry (pages an area refers to);
  // returns the first.
  int32_t add_pages(std::string_view bytes);
  // Lists an entry whose pages are not written here.
  void add_entry(const AreaEntry& entry);
  // The first page that nothing has been put on.
  int32_t next_page() const { return next_page_; }
  const std::vector<AreaEntry>& entries() const { return entries_; }
  // What stands in the space: the directory page and every run of pages,
  // by byte position.
  std::map<int64_t, std::string> contents() const;

 private:
  // Puts bytes on whole pages from first_page; gives the page count.
  int32_t place(int32_t first_page, std::string_view bytes);

  std::vector<AreaEntry> entries_;
  std::map<int32_t, std::string> pages_;  // first page -> whole pages
  int32_t next_page_ = 2;
};

// One row of a file layout: the file whose first byte stands at position
// first_page * 2048 (first_page counted from 0, as in file tables).
struct FileRow {
  int32_t first_page;
  std::string name;  // path under the root
};

// Writes `text` over the files of `rows` under `root`: each file gets the
// bytes from its row's start up to the last byte put before the next row
// (gaps as zeros); a file that would hold nothing is not written.
void write_laid_out(const std::filesystem::path& root, const BookText& text,
                    const std::vector<FileRow>& rows, const NameStyle& style = {});

// The rows of the encyclopedia's built-in layout.
std::vector<FileRow> encyclopedia_rows();

// The text of a file definition table (-F) for `rows`, one "0x%X,%s" line
// a row behind a comment line.
std::string file_definition_table(const std::vector<FileRow>& rows);

// `relative` with each component styled: upper case on every component,
// bare dot and version on the last.
std::string styled_path(const std::string& relative, const NameStyle& style);

// Writes `bytes` to root/styled(relative), making the directories. The
// file is written beside its place and renamed over it, so that a failed
// write never leaves half a file. Throws std::filesystem::filesystem_error.
void write_book_file(const std::filesystem::path& root, const std::string& relative,
                     std::string_view bytes, const NameStyle& style = {});

struct Book {
  std::string title;      // UTF-8, stored as JIS X 0208; in English mode as it stands
  std::string directory;  // under the root, up to 8 bytes; unused by the encyclopedia
  BookText text;
};

class BookTree {
 public:
  explicit BookTree(BookType type = BookType::kEpwing) : type(type) {}

  // Adds a book; the reference stays valid while the tree lives.
  Book& add_book(std::string title, std::string directory = "");

  // The catalog's name under the root: catalog_name when set, else the
  // first name of the type.
  std::string catalog_path() const;
  std::string catalog() const;
  // The text file of a book, under the root.
  std::string text_path(const Book& book) const;
  // Writes the catalog and every book's files (the encyclopedia's first
  // book laid out by the built-in table).
  void write(const std::filesystem::path& root) const;

  BookType type;
  bool english = false;                 // titles are 8-bit text
  NameStyle names;                      // how file names are written
  std::string catalog_name;             // e.g. "titles"; empty for the usual name
  std::optional<uint16_t> stored_count; // count in the catalog instead of books.size()
  std::deque<Book> books;
};

#endif  // TOOLS_BOOK_WRITER_H_
