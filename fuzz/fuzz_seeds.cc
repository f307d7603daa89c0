// fuzz_seeds DIR: writes the seed corpora of the harnesses into DIR/book,
// DIR/work_file, DIR/settings and DIR/app_keys: books made by the test
// helpers (each with body text, head lines, menu, notice, indexes of both
// leaf layouts, a multi-search definition and a font, in every book type),
// work files of lookups in them, settings files, and key scripts.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "command/engine.h"
#include "fuzz/book_input.h"
#include "fuzz/key_input.h"
#include "testing/temp_tree.h"
#include "testing/utf8_literal.h"
#include "tools/body_text.h"
#include "tools/book_writer.h"
#include "tools/gaiji_writer.h"
#include "tools/index_directory_writer.h"
#include "tools/index_tree_writer.h"
#include "tools/jis_text.h"

namespace fs = std::filesystem;

namespace {

const std::vector<std::u8string> kWords = {u8"さくら", u8"はな", u8"はなび", u8"やま", u8"ABC"};

void write_seed(const fs::path& path, const std::string& bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary).write(bytes.data(), bytes.size());
}

// Fills `book` with an article and a head line for each word and indexes
// over them in the given shape.
void fill_book(Book& book, const IndexTreeShape& shape) {
  BodyText body;
  BodyText heads;
  std::vector<IndexLeafEntry> plain;
  std::vector<IndexLeafEntry> grouped;
  body.code(0x1F02);
  for (const std::u8string& word : kWords) {
    std::string key = utf8_to_jis(std::string(word.begin(), word.end()));
    plain.push_back({0x00, key, body.size(), heads.size()});
    grouped.push_back({0x00, key, body.size(), heads.size()});
    body.code(0x1F09, {1}).text(word).code(0x1F0A).text(u8"説明").code(0xA121)
        .code(0x1F42).text(u8"参照").code(0x1F62).bcd(2048).code(0x1F0A).code(0x1F03);
    heads.text(word).code(0x1F0A);
  }
  heads.code(0x1F03);
  const int32_t body_base = (book.text.add_area(0x00, body.data()) - 1) * 2048;
  const int32_t heads_base = (book.text.add_area(0x05, heads.data()) - 1) * 2048;
  for (std::vector<IndexLeafEntry>* entries : {&plain, &grouped}) {
    for (IndexLeafEntry& entry : *entries) {
      entry.text += body_base;
      entry.head += heads_base;
    }
  }
  book.text.add_area(0x01, BodyText().text(u8"目次").code(0x1F0A).code(0x1F03).data());
  book.text.add_area(0x02, BodyText().text(u8"著作権").code(0x1F03).data());
  book.text.add_area(0x91, index_tree(plain, book.text.next_page(), shape));
  IndexTreeShape group_shape = shape;
  group_shape.layout = LeafLayout::kGroup;
  grouped[1].type = 0x80;
  grouped[1].members = 1;
  grouped[2].type = 0xC0;
  book.text.add_area(0x90, index_tree(grouped, book.text.next_page(), group_shape));
  const int32_t definitions = book.text.next_page();
  book.text.add_area(0xFF, multi_search_page({{utf8_to_jis("複合"), {{0x91, definitions - 2, 1}}}}));
  book.text.add_area(0xF1, font_area_bytes({16, 16, 0xA121, 2, {}}));
}

// The book's logical address space as one text file.
std::string text_bytes(const Book& book) {
  std::string bytes;
  for (const auto& [position, run] : book.text.contents()) {
    if (bytes.size() < position + run.size()) bytes.resize(position + run.size());
    bytes.replace(position, run.size(), run);
  }
  return bytes;
}

void write_book_seeds(const fs::path& dir, const fs::path& scratch) {
  const BookType types[] = {BookType::kEpwing, BookType::kElectronicBook,
                            BookType::kEncyclopedia};
  const IndexTreeShape shapes[] = {{}, {LeafLayout::kPlain, 2, 2, 0}};
  int n = 0;
  for (BookType type : types) {
    for (const IndexTreeShape& shape : shapes) {
      BookTree tree(type);
      Book& book = tree.add_book(utf8(u8"試験の辞書"), "BOOK");
      fill_book(book, shape);
      BookInput input;
      input.type = static_cast<uint8_t>(type);
      input.position_page = 2;
      input.catalog = tree.catalog();
      input.text = text_bytes(book);
      input.file_table = file_definition_table({{0, "book/data/honmon"}, {1, "book/start"}});
      input.gaiji = gaiji_definition_file({{0xA121, "X"}, {0xA122, ""}});
      input.keyword = utf8_to_sjis(n % 2 ? "はな" : "はなこ");
      write_seed(dir / "book" / ("seed" + std::to_string(n)), encode_book_input(input));
      if (n == 0) {  // real work files of lookups, for the parser
        tree.write(scratch);
        fs::create_directories(dir / "work_file");
        int w = 0;
        for (const char* word : {"はな", "はなこ", "ABC"}) {
          const fs::path work = dir / "work_file" / ("seed" + std::to_string(w++));
          engine_output(scratch.c_str(), 0, work.c_str(), utf8_to_sjis(word).c_str());
        }
      }
      ++n;
    }
  }
}

void write_settings_seeds(const fs::path& dir) {
  write_seed(dir / "settings" / "seed0",
             "[OPTION_SETTING]\nGAIJI_REPLACE=1\nGAIJI_VISIBLE=0\nSYLLABLE_VISIBLE=0\n"
             "PH_SIGNS_VISIBLE=0\nLINK_VISIBLE=0\n[DICT_LIST]\nLIST_SIZE=2\n"
             "TITLE_0000=" + utf8_to_sjis("国語辞典") + "\nPATH_0000=\\SD\\epwing\\kokugo\n"
             "BOOKNUM_0000=0\nTITLE_0001=x\nPATH_0001=\\SD\\a\nBOOKNUM_0001=3\n");
  write_seed(dir / "settings" / "seed1", "[DICT_LIST]\r\nLIST_SIZE=3\r\n\r\n[OPTION_SETTING]\n");
}

// Key scripts through the reader on the demo card: a lookup with its
// article and candidates, the menu and the settings screen, and the
// registration of a book through the folder chooser, then its deletion.
void write_key_seeds(const fs::path& dir) {
  const char* const scripts[] = {
      "KEY_NEXT_CTRL\ntext はな\nKEY_ENTER\nKEY_ENTER\n48\nKEY_BACK\n"
      "KEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_ENTER\nKEY_MENU\n48\nKEY_ENTER\nKEY_ENTER\n"
      "KEY_BACK\nKEY_BACK\nKEY_EXIT\n",
      "KEY_MENU\n74\n74\n48\nKEY_OPTION_VALUE\nKEY_NEXT_CTRL\n48\nKEY_NEXT_CTRL\n"
      "KEY_NEXT_CTRL\nKEY_ENTER\nKEY_EDIT_POPUP\ncursor 3\nmute 1\nsetting 2 1\nKEY_EXIT\n",
      "KEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_ENTER\nKEY_NEXT_CTRL\nKEY_ENTER\n"
      "choose plus\nKEY_OPTION_DOWN\nKEY_ENTER\n32768\ntext ・改\nKEY_ENTER\nKEY_EXIT\n"
      "KEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_ENTER\n48\n48\nKEY_NEXT_CTRL\n"
      "KEY_NEXT_CTRL\nKEY_ENTER\n48\nKEY_ENTER\nKEY_EXIT\nKEY_EXIT\n",
      "KEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_ENTER\nKEY_NEXT_CTRL\nKEY_ENTER\n"
      "24\n256\n24\n88\n88\n218\nKEY_PREV_CTRL\nKEY_EXIT\n",
      // Words the engine would take for options or its prompt loop.
      "KEY_NEXT_CTRL\ntext -Ox\nKEY_ENTER\nKEY_EXIT\nKEY_NEXT_CTRL\ntext /Oy\nKEY_ENTER\n"
      "KEY_EXIT\nKEY_NEXT_CTRL\ntext --\nKEY_ENTER\nKEY_EXIT\n",
  };
  int n = 0;
  for (const char* script : scripts) {
    std::vector<TaskAction> actions;
    std::string error;
    if (!ParseTaskScript(script, actions, error)) {
      fprintf(stderr, "fuzz_seeds: key seed %d: %s\n", n, error.c_str());
      exit(1);
    }
    write_seed(dir / "app_keys" / ("seed" + std::to_string(n++)), encode_key_input(actions));
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    fprintf(stderr, "usage: fuzz_seeds DIR\n");
    return 2;
  }
  const fs::path dir = argv[1];
  write_book_seeds(dir, fresh_directory("fuzz_seeds"));
  write_settings_seeds(dir);
  write_key_seeds(dir);
  return 0;
}
