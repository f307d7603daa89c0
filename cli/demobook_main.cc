// demobook DIR: writes a small EPWING book tree with a two-book catalog, for
// trying the reader (`tomeview -DDIR -C`) without a real disc.
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <string>

#include "testing/book_writer.h"
#include "testing/jis_text.h"

namespace {

const char kUsage[] =
    "usage: demobook DIR\n"
    "Writes a demo EPWING book tree into DIR: the catalog \"catalogs\" with two\n"
    "books and each book's text file (DIR/KOKUGO/data/honmon, DIR/EIWA/data/honmon).\n"
    "DIR is created when missing; the demo's own files in it are replaced, and\n"
    "nothing else in DIR is touched.\n";

void add_demo_book(BookTree& tree, const char* title, const char* directory, const char* body) {
  Book& book = tree.add_book(title, directory);
  book.text.add_area(0x00, utf8_to_jis(body));  // body text
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && (strcmp(argv[1], "--help") == 0 || strcmp(argv[1], "-h") == 0)) {
    fputs(kUsage, stdout);
    return 0;
  }
  if (argc != 2 || argv[1][0] == '\0' || argv[1][0] == '-') {
    fprintf(stderr, "demobook: expected one directory argument\n%s", kUsage);
    return 2;
  }
  const std::filesystem::path root = argv[1];
  std::error_code error;
  if (std::filesystem::exists(root, error) && !std::filesystem::is_directory(root, error)) {
    fprintf(stderr, "demobook: %s exists and is not a directory\n", argv[1]);
    return 1;
  }
  try {
    BookTree tree(BookType::kEpwing);
    add_demo_book(tree, "デモ国語辞典", "KOKUGO", "辞書を引く。");
    add_demo_book(tree, "デモ英和辞典", "EIWA", "dictionary 辞書");
    tree.write(root);
  } catch (const std::exception& failure) {
    fprintf(stderr, "demobook: %s\n", failure.what());
    return 1;
  }
  return 0;
}
