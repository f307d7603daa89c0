#include "engine/file_access.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "engine/book_end.h"
#include "engine/find_file.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "tools/book_writer.h"

namespace {

namespace fs = std::filesystem;

class BookFiles : public ::testing::Test {
 protected:
  void SetUp() override { reset(); }
  void TearDown() override {
    engine.file_table = load_file_table(nullptr);
    reset();
  }
  static void reset() {
    cdclose();
    engine.flags = 0;
    engine.file_table = default_file_table;
    engine.drive_path[0] = '\0';
  }
  // A fresh tree whose name has upper case, as drive_path.
  fs::path use_tree(const std::string& name) {
    const fs::path root = fresh_directory(name);
    snprintf(engine.drive_path, kPathSize, "%s/", root.c_str());
    return root;
  }
  // `bytes` as the file `name` under `root`, its folders made as needed.
  static void put_file(const fs::path& root, const std::string& name, const char* bytes) {
    fs::create_directories((root / name).parent_path());
    std::ofstream(root / name, std::ios::binary) << bytes;
  }
  // The first byte of a book file, or -1 when cdopen finds none.
  static int first_byte(const char* name) {
    FILE* file = cdopen(name);
    if (!file) return -1;
    const int byte = fgetc(file);
    fclose(file);
    return byte;
  }
};

std::string bytes_ending(size_t size, char first, char last) {
  std::string bytes(size, '\0');
  bytes.front() = first;
  bytes.back() = last;
  return bytes;
}

TEST_F(BookFiles, TableReadsAcrossFileEnds) {
  const fs::path root = use_tree("Across");
  write_book_file(root, "a", bytes_ending(2048, '\x01', '\x12'));
  write_book_file(root, "b", bytes_ending(4096, '\x34', '\x56'));
  write_book_file(root, "c", bytes_ending(10, '\x78', '\x9A'));
  write_book_file(root, "files.tbl", file_definition_table({{0, "a"}, {1, "b"}, {3, "c"}}));
  engine.file_table = load_file_table((root / "files.tbl").c_str());
  ASSERT_TRUE(engine.flags & DF_FILE_TABLE);

  const EngineRun run = capture_engine([] {
    cdseek(2047, 0);
    EXPECT_EQ(cdgetword(), 0x1234);  // last byte of a, first of b
    cdseek(2048, 0);                 // first_page * 2048 is b's first byte
    EXPECT_EQ(cdtell(), 2048);
    EXPECT_EQ(cdgetbyte(), 0x34);
    cdseek(6143, 0);
    EXPECT_EQ(cdgetword(), 0x5678);
    cdseek(10, 0);
    cdseek(6144 - 10, 1);  // relative: a's stream now stands far behind its end
    EXPECT_EQ(cdgetbyte(), 0x78);
    EXPECT_EQ(cdtell(), 6145);
    cdseekpage(2);
    EXPECT_EQ(cdgetbyte(), 0x34);
  });
  EXPECT_EQ(run.out, "");
}

TEST_F(BookFiles, TableFailures) {
  const fs::path root = use_tree("TableFailures");
  write_book_file(root, "files.tbl", "1 late\n2 missing\n");
  write_book_file(root, "late", "L");
  engine.file_table = load_file_table((root / "files.tbl").c_str());
  const EngineRun run = capture_engine([] {
    EXPECT_EQ(cdseek(100, 0), -1);  // ahead of every row
    EXPECT_EQ(cdseek(4096, 0), -1);
    EXPECT_EQ(engine.current_file, nullptr);
    EXPECT_EQ(cdgetword(), 0);
    cdseek(2048, 0);
    EXPECT_EQ(cdgetbyte(), 'L');
  });
  EXPECT_EQ(run.out, "cdseek error at 100(0:100)error 6.\nerror 4.\n");
  EXPECT_NE(run.err.find("missing"), std::string::npos);
}

TEST_F(BookFiles, OneFileWithoutTable) {
  const fs::path root = use_tree("One");
  write_book_file(root, "book", "\x01\x02\x03");
  // Short seeks forward, and back.
  write_book_file(root, "five", "\x01\x02\x03\x04\x05");
  engine.current_file = cdopen("five");
  ASSERT_NE(engine.current_file, nullptr);
  const EngineRun seeks = capture_engine([] {
    EXPECT_EQ(cdgetbyte(), 1);
    cdseek(2, 1);
    EXPECT_EQ(cdtell(), 3);
    EXPECT_EQ(cdgetbyte(), 4);
    cdseek(1, 0);  // behind the position
    EXPECT_EQ(cdgetword(), 0x0203);
    cdseek(10, 1);  // past the end, which a seek may go
    EXPECT_EQ(cdtell(), 13);
    EXPECT_EQ(cdgetbyte(), 0);
    cdseek(2, 1);  // on from a read that failed at the end
    EXPECT_EQ(cdtell(), 15);
    cdseek(4, 0);
    EXPECT_EQ(cdgetbyte(), 5);
  });
  EXPECT_EQ(seeks.out, "データ読み込みに失敗しました(BYTE:pos=13)\nerror 9.\n");
  cdclose();

  engine.current_file = cdopen("book");
  ASSERT_NE(engine.current_file, nullptr);
  const EngineRun run = capture_engine([] {
    cdseek(2, 0);
    EXPECT_EQ(cdgetword(), 0x0300);  // the missing low byte fails and reads 0
    EXPECT_EQ(cdgetbyte(), 0);
    cdseekpage(0);
    EXPECT_EQ(cdtell(), 3);
    cdseek(-5, 1);  // before the start: stays where it stood
    EXPECT_EQ(cdtell(), 3);
    cdseekpage(1);
    EXPECT_EQ(cdgetbyte(), 1);
    cdseek(-1, 0);
  });
  EXPECT_EQ(run.out,
            "データ読み込みに失敗しました(BYTE:pos=3)\nerror 9.\n"
            "データ読み込みに失敗しました(BYTE:pos=3)\nerror 9.\n"
            "ページ番号が不正です(0)\nerror 8.\n"
            "cdseek error at -1(0:2047) of " +
                std::to_string(fileno(engine.current_file)) + "error 7.\n");

  cdclose();
  const EngineRun closed = capture_engine([] {
    EXPECT_EQ(cdgetword(), 0);
    EXPECT_EQ(cdtell(), -1);
  });
  EXPECT_EQ(closed.out, "error in cdtell: file not open\nerror 2.\n");
}

// Blocks are kept and given up as reads wander: every read gives the
// file's bytes, wherever it falls and whatever was read in between.
TEST_F(BookFiles, ReadsWanderingOverManyBlocks) {
  const fs::path root = use_tree("Wander");
  std::string bytes(40 * kBlockSize, '\0');
  for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>((i * 7 + i / 251) & 0xFF);
  write_book_file(root, "book", bytes);
  engine.current_file = cdopen("book");
  ASSERT_NE(engine.current_file, nullptr);
  const auto word_at = [&](size_t at) {
    return (static_cast<unsigned char>(bytes[at]) << 8) | static_cast<unsigned char>(bytes[at + 1]);
  };
  const EngineRun run = capture_engine([&] {
    const int32_t leaf = 3 * kBlockSize + 100;
    for (int32_t visit = 0; visit < 30; ++visit) {
      // Out to a place further on each time, and back to the same page.
      const int32_t far = (visit + 5) * kBlockSize - 1;  // a word across two blocks
      cdseek(far, 0);
      EXPECT_EQ(cdgetword(), word_at(static_cast<size_t>(far))) << visit;
      cdseek(leaf, 0);
      EXPECT_EQ(cdgetword(), word_at(leaf)) << visit;
      EXPECT_EQ(cdtell(), leaf + 2);
    }
    // One read over more blocks than are kept.
    std::string whole(12 * kBlockSize, '\0');
    cdseek(kBlockSize / 2, 0);
    EXPECT_EQ(cdread(whole.data(), whole.size()), whole.size());
    EXPECT_EQ(whole, bytes.substr(kBlockSize / 2, whole.size()));
    // Up to the end and past it.
    cdseek(static_cast<int32_t>(bytes.size()) - 3, 0);
    char tail[8];
    EXPECT_EQ(cdread(tail, sizeof tail), 3u);
    EXPECT_EQ(cdeof(), 1);
    EXPECT_EQ(cdread(tail, sizeof tail), 0u);
    cdseek(0, 0);
    EXPECT_EQ(cdeof(), 0);
    EXPECT_EQ(cdgetbyte(), static_cast<unsigned char>(bytes[0]));
  });
  EXPECT_EQ(run.out, "");
}

// A file closed by cdclose and another opened after it read as themselves,
// even where the stream library gives the second the first one's address.
TEST_F(BookFiles, NothingKeptOutlivesTheFile) {
  const fs::path root = use_tree("Again");
  write_book_file(root, "one", std::string(100, 'a'));
  write_book_file(root, "two", std::string(100, 'b'));
  engine.current_file = cdopen("one");
  ASSERT_NE(engine.current_file, nullptr);
  cdseek(10, 0);
  EXPECT_EQ(cdgetbyte(), 'a');
  cdclose();
  engine.current_file = cdopen("two");
  ASSERT_NE(engine.current_file, nullptr);
  EXPECT_EQ(cdtell(), 0);
  cdseek(10, 0);
  EXPECT_EQ(cdgetbyte(), 'b');
}

TEST_F(BookFiles, FindsNamesWhateverTheirCase) {
  const fs::path root = use_tree("Disc");
  write_book_file(root, "catalogs", "C", {.upper_case = true, .version = true});
  write_book_file(root, "jiten/data/honmon", "H", {.upper_case = true, .bare_dot = true});
  write_book_file(root, "eb/start", "S", {.upper_case = true, .bare_dot = true, .version = true});
  EXPECT_EQ(first_byte("catalogs"), 'C');           // CATALOGS;1
  EXPECT_EQ(first_byte("JITEN/data/HONMON"), 'H');  // JITEN/DATA/HONMON.
  EXPECT_EQ(first_byte("eb/start"), 'S');           // EB/START.;1
  EXPECT_EQ(first_byte("jiten"), -1);               // a directory is no book file
  EXPECT_EQ(first_byte("catalog"), -1);
  EXPECT_EQ(first_byte(std::string(600, 'x').c_str()), -1);

  // Exact names first, then names differing in case, then in suffix too.
  write_book_file(root, "pick/Start", "");
  write_book_file(root, "pick/START;1", "");
  write_book_file(root, "pick/start.", "");
  char found[kPathSize];
  ASSERT_TRUE(find_file((root / "pick/start").c_str(), found));
  EXPECT_EQ(fs::path(found), root / "pick/Start");
  ASSERT_TRUE(find_file((root / "PICK/start.").c_str(), found));
  EXPECT_EQ(fs::path(found), root / "pick/start.");
  EXPECT_FALSE(find_file((root / "pick/stop").c_str(), found));

  engine.drive_path[0] = '\0';
  const EngineRun run = capture_engine([] { EXPECT_EQ(cdopen("catalogs"), nullptr); });
  EXPECT_EQ(run.out,
            "CD-ROM のドライブを設定してください\n"
            "（環境変数 CDDRIVE、もしくは -D オプション）\nerror 1.\n");
}

// A path found by listing directories is kept between opens, and dropped
// as soon as a directory it was listed from changes.
TEST_F(BookFiles, KeptPathsFollowTheDirectories) {
  const fs::path root = use_tree("Kept");
  const auto put = [&](const std::string& name, const char* bytes) { put_file(root, name, bytes); };
  put("DATA;1/honmon", "H");
  // Directories changed within kSettledNanos are not kept.
  wait_until_settled();
  EXPECT_EQ(first_byte("data/honmon"), 'H');
  const auto kept = [] {
    int count = 0;
    for (const FoundPath& path : engine.found_paths) count += strstr(path.asked, "/data/honmon") != nullptr;
    return count;
  };
  EXPECT_EQ(kept(), 1);
  EXPECT_EQ(first_byte("data/honmon"), 'H');

  put("Data/honmon", "N");  // a better match than the kept one
  EXPECT_EQ(first_byte("data/honmon"), 'N');
  fs::remove_all(root / "Data");
  fs::rename(root / "DATA;1", root / "DATA");
  EXPECT_EQ(first_byte("data/honmon"), 'H');
  put("data/honmon", "L");  // the path as asked comes first
  EXPECT_EQ(first_byte("data/honmon"), 'L');
  fs::remove_all(root / "data");
  fs::remove_all(root / "DATA");
  EXPECT_EQ(first_byte("data/honmon"), -1);
}

// Blocks of a file that stood unchanged are taken up by its next open; a
// file written since is read anew, even at the same size.
TEST_F(BookFiles, KeptBlocksFollowTheFile) {
  const fs::path root = use_tree("Blocks");
  write_book_file(root, "honmon", std::string(100, 'a'));
  wait_until_settled();  // files changed within kSettledNanos get no stamp
  const auto byte_at = [](int32_t offset) {
    engine.current_file = cdopen("honmon");
    if (!engine.current_file) return -1;
    cdseek(offset, 0);
    const int byte = cdgetbyte();
    cdclose();
    return byte;
  };
  const auto kept_blocks = [] {
    int count = 0;
    for (const BookBlock& block : engine.blocks) count += block.stamp.inode != 0;
    return count;
  };
  EXPECT_EQ(byte_at(10), 'a');
  EXPECT_EQ(kept_blocks(), 1);
  EXPECT_EQ(byte_at(20), 'a');
  EXPECT_EQ(kept_blocks(), 1);

  std::ofstream(root / "honmon", std::ios::binary | std::ios::in) << "bbbbbbbbbbbbbbbbbbbbbbbbb";
  EXPECT_EQ(byte_at(10), 'b');
  EXPECT_EQ(byte_at(20), 'b');
  fs::remove(root / "honmon");
  write_book_file(root, "honmon", std::string(100, 'c'));
  EXPECT_EQ(byte_at(10), 'c');
}

// More blocks of one set than it keeps, read in turn and then again: each
// read gives the file's bytes, and the set keeps the blocks read last.
TEST_F(BookFiles, BlocksOfOneSetGiveWayInTurn) {
  const fs::path root = use_tree("OneSet");
  constexpr size_t kStride = size_t{kBlockCount / kBlockWays} * kBlockSize;  // same set
  constexpr int kTurns = kBlockWays + 3;
  std::string bytes(kStride * kTurns, '\0');
  for (int turn = 0; turn < kTurns; ++turn) bytes[kStride * turn + 7] = static_cast<char>('a' + turn);
  write_book_file(root, "book", bytes);
  engine.current_file = cdopen("book");
  ASSERT_NE(engine.current_file, nullptr);
  for (int pass = 0; pass < 2; ++pass) {
    for (int turn = 0; turn < kTurns; ++turn) {
      cdseek(static_cast<int32_t>(kStride * turn + 6), 0);
      EXPECT_EQ(cdgetword(), 'a' + turn) << pass << " " << turn;
    }
  }
  int kept = 0;
  for (const BookBlock& block : engine.blocks) kept += block.file == engine.current_file;
  EXPECT_EQ(kept, kBlockWays);
}

// A book file closed by cdclose stays open for the next cdopen of its path,
// which takes it up while the path leads to the same unchanged file: not
// when a better match for the name appears, nor when the file is replaced.
TEST_F(BookFiles, ClosedBookFilesWaitForTheirPath) {
  const fs::path root = use_tree("Parked");
  const auto put = [&](const std::string& name, const char* bytes) { put_file(root, name, bytes); };
  put("DATA;1/honmon", "H");
  put("catalogs", "C");
  wait_until_settled();  // files changed within kSettledNanos are not kept
  FILE* opened = nullptr;
  const auto byte_of = [&](const char* name) {
    engine.current_file = opened = cdopen(name);
    if (!engine.current_file) return -1;
    const int byte = cdgetbyte();
    cdclose();
    return byte;
  };
  const auto parked = [] {
    int count = 0;
    for (const BookFileSlot& slot : engine.book_files) count += slot.parked;
    return count;
  };
  EXPECT_EQ(byte_of("data/honmon"), 'H');
  FILE* first = opened;
  EXPECT_EQ(byte_of("catalogs"), 'C');
  EXPECT_EQ(parked(), 2);
  EXPECT_EQ(byte_of("data/honmon"), 'H');
  EXPECT_EQ(opened, first);
  EXPECT_EQ(parked(), 2);

  put("Data/honmon", "N");  // a better match than the name found before
  EXPECT_EQ(byte_of("data/honmon"), 'N');
  fs::remove(root / "catalogs");
  put("catalogs.new", "D");
  fs::rename(root / "catalogs.new", root / "catalogs");
  EXPECT_EQ(byte_of("catalogs"), 'D');
  fs::remove(root / "catalogs");
  EXPECT_EQ(byte_of("catalogs"), -1);
}

TEST_F(BookFiles, FileDotOnNamesWithoutExtension) {
  const fs::path root = use_tree("Dot");
  write_book_file(root, "start", "A");
  write_book_file(root, "start.", "B");
  write_book_file(root, "index/kana.idx", "C");
  write_book_file(root, "index/kana.idx.", "D");
  write_book_file(root, "v1.0/start", "E");
  write_book_file(root, "v1.0/start.", "F");
  write_book_file(root, "plain/honmon", "G");
  EXPECT_EQ(first_byte("start"), 'A');
  engine.flags |= DF_FILE_DOT;
  EXPECT_EQ(first_byte("start"), 'B');
  EXPECT_EQ(first_byte("index/kana.idx"), 'C');
  EXPECT_EQ(first_byte("v1.0/start"), 'F');  // a dot in a directory is no extension
  EXPECT_EQ(first_byte("plain/honmon"), 'G');  // "honmon." still finds "honmon"
}

}  // namespace
