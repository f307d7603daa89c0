// mkbook: builds an EPWING book tree from book sources, or from the EDICT
// dictionary file. The source format is described in docs/MKBOOK.md.
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>
#include <vector>

#include "project_version.h"
#include "tools/book_builder.h"
#include "tools/book_writer.h"
#include "tools/edict_import.h"
#include "tools/jis_text.h"
#include "tools/source_reader.h"
#include "tools/tree_output.h"

namespace {

const char kUsage[] =
    "usage: mkbook [--ebook] -o DIR SOURCE...\n"
    "       mkbook [--ebook] -o DIR --from-edict FILE\n"
    "Builds a book tree in DIR: the catalog and each book's text file with its\n"
    "body text, head lists, forward and backward indexes (kana, head word,\n"
    "alphabet), menu, notice of rights and font. Every @book of the sources is\n"
    "one book of the catalog (docs/MKBOOK.md describes the source format).\n"
    "  -o DIR            the tree to write; an existing DIR must be empty or a\n"
    "                    book tree, and is replaced only once the new one stands\n"
    "  --from-edict FILE a Japanese-English book of every entry of FILE, the\n"
    "                    EDICT dictionary (EUC-JP): kana, head-word and English keys\n"
    "  --ebook           the Electronic Book layout (\"catalog\", DIR/BOOK/start)\n"
    "  --help            this text\n"
    "  --version         the version\n";

int fail_usage(const char* reason) {
  fprintf(stderr, "mkbook: %s\n%s", reason, kUsage);
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  std::string output;
  std::string edict;
  bool ebook = false;
  std::vector<std::string> sources;
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    if (arg == "--help" || arg == "-h") {
      fputs(kUsage, stdout);
      return 0;
    } else if (arg == "--version") {
      print_version("mkbook");
      return 0;
    } else if (arg == "--ebook") {
      ebook = true;
    } else if (arg == "-o" || arg == "--from-edict") {
      if (i + 1 >= argc || argv[i + 1][0] == '\0') return fail_usage((arg + " needs a value").c_str());
      (arg == "-o" ? output : edict) = argv[++i];
    } else if (arg.size() > 1 && arg[0] == '-') {
      return fail_usage(("unknown option " + arg).c_str());
    } else {
      sources.push_back(arg);
    }
  }
  if (output.empty()) return fail_usage("no output folder (-o DIR)");
  if (edict.empty() == sources.empty()) return fail_usage("give source files or --from-edict FILE, not both");

  try {
    std::vector<BookContent> books;
    if (!edict.empty()) books.push_back(read_edict(edict));
    for (const std::string& source : sources) {
      for (BookContent& book : read_source(source)) books.push_back(std::move(book));
    }
    BookTree tree(ebook ? BookType::kElectronicBook : BookType::kEpwing);
    for (const BookContent& content : books) {
      for (const Book& other : tree.books) {
        if (strcasecmp(other.directory.c_str(), content.directory.c_str()) == 0) {
          throw SourceError(content.source, content.line, "a second book in directory " + content.directory);
        }
      }
      if (utf8_to_jis(content.title).size() > catalog_title_size(tree.type)) {
        throw SourceError(content.source, content.line,
                          "a title of more than 15 characters for the Electronic Book layout");
      }
      build_book(content, tree.add_book(content.title, content.directory));
    }
    write_book_tree(tree, output);
  } catch (const std::exception& failure) {
    fprintf(stderr, "mkbook: %s\n", failure.what());
    return 1;
  }
  return 0;
}
