// Harness: a book tree made from the fuzzer's bytes (fuzz/book_input.h),
// driven through the three in-process calls and one run of every action
// that reads a book, first by the catalog, then by a file definition table.
// Every run must end, in bounded time, without a fault.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "command/engine.h"
#include "fuzz/book_input.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"

namespace fs = std::filesystem;

namespace {

void write_file(const fs::path& path, const std::string& bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary).write(bytes.data(), bytes.size());
}

// The table as given, less any line that climbs out of the book tree.
std::string confined_table(const std::string& table) {
  std::string kept;
  size_t start = 0;
  while (start < table.size()) {
    size_t end = table.find('\n', start);
    end = end == std::string::npos ? table.size() : end + 1;
    std::string line = table.substr(start, end - start);
    if (line.find("..") == std::string::npos) kept += line;
    start = end;
  }
  return kept;
}

// A keyword that the run takes as a keyword and never as an option, which
// could name files outside the tree.
std::string keyword_of(std::string keyword) {
  keyword = keyword.substr(0, keyword.find('\0'));
  while (!keyword.empty() && (keyword[0] == '-' || keyword[0] == '/')) keyword.erase(0, 1);
  keyword.resize(std::min<size_t>(keyword.size(), 200));
  return keyword.empty() ? "a" : keyword;
}

void write_tree(const fs::path& root, const BookInput& input) {
  static const char* const kCatalogs[] = {"catalogs", "catalog", "catalog/catalog1"};
  write_file(root / kCatalogs[input.type], input.catalog);
  if (input.type == 0) write_file(root / "book/data/honmon", input.text);
  if (input.type == 1) write_file(root / "book/start", input.text);
  if (input.type == 2) {  // the built-in layout: page 0 in "start", page 1 on
    write_file(root / "start", input.text.substr(0, std::min<size_t>(input.text.size(), 2048)));
    if (input.text.size() > 2048) write_file(root / "index/kana.idx", input.text.substr(2048));
  }
  write_file(root / "files.tbl", confined_table(input.file_table));
  write_file(root / "gaiji.txt", input.gaiji);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const fs::path root = fresh_directory("fuzz_book");
  BookInput input = decode_book_input(data, size);
  fs::remove_all(root);
  write_tree(root, input);

  const std::string drive = root.string();
  const std::string out = (root / "out.txt").string();
  const std::string keyword = keyword_of(input.keyword);
  const std::string position = std::to_string(input.position_page * 2048 + 1);

  capture_engine([&] {
    char titles[512];
    engine_catalog(drive.c_str(), titles, 0);
    engine_catalog(drive.c_str(), titles, sizeof titles);
    engine_has_forward_index(drive.c_str(), 0);
    engine_output(drive.c_str(), 0, out.c_str(), keyword.c_str());
  });
  run_engine({"-D" + drive, "-O" + out, "-B0", "-G" + (root / "gaiji.txt").string(),
              "-C", "-V", "-M", "-U", "-P2", position,
              "-K", keyword, "-R", keyword, "-J", keyword, "-I", keyword, "-X1", keyword,
              "-Q", "-T", "-#"});
  run_engine({"-D" + drive, "-O" + out, "-F" + (root / "files.tbl").string(),
              "-V", "-M", position, "-K", keyword, "-T"});
  return 0;
}
