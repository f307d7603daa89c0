// Harness: a book tree made from the fuzzer's bytes (fuzz/book_input.h),
// driven through the three in-process calls and one run of every action
// that reads a book, first by the catalog, then by a file definition table.
// Every run must end, in bounded time, without a fault.
//
// Inputs may run to a megabyte (scripts/fuzz.sh), so that damaged counts
// can reach over many pages. No file may grow past 64 MB (a write beyond
// fails), and the dumps and listings (-C, -V, -Q, -T, -#) must write no
// more than kListingBound allows for the book they read: a damaged count
// that keeps a loop going shows as a crash. Texts and searches may show
// one article for each of thousands of hits, so only the cap holds them.
#include <sys/resource.h>

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
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

constexpr rlim_t kFileCap = 64 << 20;

// The most the dumps and listings of a book of `book_bytes` may write:
// a few times each byte they read, and the fixed part of -V (127 entries,
// a page of definitions each) and of -T (256 odd words, 256 codes).
uint64_t listing_bound(uint64_t book_bytes) { return 16 * book_bytes + (4 << 20); }

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

// The bytes of all files under `root`.
uint64_t tree_bytes(const fs::path& root) {
  uint64_t bytes = 0;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root))
    if (entry.is_regular_file()) bytes += entry.file_size();
  return bytes;
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

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  // A write past the cap fails instead of ending the process.
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit cap{kFileCap, kFileCap};
  setrlimit(RLIMIT_FSIZE, &cap);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const fs::path root = fresh_directory("fuzz_book");
  BookInput input = decode_book_input(data, size);
  fs::remove_all(root);
  write_tree(root, input);

  const std::string drive = root.string();
  // The book's own size, before the lookup's output joins it in the tree.
  const uint64_t book_bytes = tree_bytes(root);
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
  const std::string listings = (root / "listings.txt").string();
  const EngineRun listed = run_engine({"-D" + drive, "-O" + listings, "-B0", "-C", "-V", "-Q",
                                       "-Q0x90", "-T", "-#", "-X1", "-Q"});
  const uint64_t written = fs::file_size(listings) + listed.out.size() + listed.err.size();
  if (written > listing_bound(book_bytes)) {
    fprintf(stderr, "the listings wrote %llu bytes for a book of %llu\n",
            static_cast<unsigned long long>(written), static_cast<unsigned long long>(book_bytes));
    abort();
  }
  run_engine({"-D" + drive, "-O" + out, "-B0", "-G" + (root / "gaiji.txt").string(),
              "-M", "-U", "-P2", position,
              "-K", keyword, "-R", keyword, "-J", keyword, "-I", keyword, "-X1", keyword});
  run_engine({"-D" + drive, "-O" + out, "-F" + (root / "files.tbl").string(),
              "-V", "-M", position, "-K", keyword, "-T"});
  return 0;
}
