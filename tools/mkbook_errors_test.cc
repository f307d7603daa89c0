// Malformed sources and the errors they give.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "testing/command_run.h"
#include "testing/temp_tree.h"
#include "tools/book_builder.h"
#include "tools/jis_text.h"
#include "tools/source_reader.h"
#include "tools/tree_output.h"

namespace {

namespace fs = std::filesystem;

// The message of building `source`, or "" when it builds.
std::string error_of(const std::u8string& source) {
  const fs::path file = fresh_directory("errors") / "bad.txt";
  std::ofstream(file, std::ios::binary) << std::string(source.begin(), source.end());
  try {
    BookTree tree;
    for (const BookContent& content : read_source(file.string())) {
      build_book(content, tree.add_book(content.title, content.directory));
    }
  } catch (const SourceError& error) {
    return std::string(error.what()).substr(file.string().size());
  }
  return "";
}

TEST(MkbookErrors, EachFaultIsToldWithItsLine) {
  EXPECT_EQ(error_of(u8"@entry 花\n"), ":1: @entry before the first @book");
  EXPECT_EQ(error_of(u8"@book B 本\nはな\n"), ":2: text outside an entry, menu or notice");
  EXPECT_EQ(error_of(u8"@book B 本\n@entry 花\n@kana 花\n"), ":2: a reading must be kana alone");
  EXPECT_EQ(error_of(u8"@book B 本\n@entry 花\n@alpha はな\n"),
            ":2: an alphabet key must be letters, digits and symbols alone");
  EXPECT_EQ(error_of(u8"@book B 本\n@entry 花\n\n{see:草}\n"),
            ":4: link to a head word that no entry has");
  EXPECT_EQ(error_of(u8"@book B 本\n@entry 花\n{b:あ\n"), ":3: a '{' that is never closed");
  EXPECT_EQ(error_of(u8"@book B 本\n@entry 花\n{x:あ}\n"), ":3: unknown markup {x:");
  EXPECT_EQ(error_of(u8"@book B 本\n@entry 花\n{m:2}あ\n{m:0}い\n"),
            ":4: a margin back to 0 inside an entry would end its article");
  EXPECT_EQ(error_of(u8"@book B 本\n@entry 花\n{m:2}あ\n{m:0}―い\n"), "");
  EXPECT_EQ(error_of(u8"@book B 本\n@entry 花\n{g:2422}\n"),
            ":3: an external character is four hexadecimal digits, A121 to FE7E");
  EXPECT_EQ(error_of(u8"@book B 本\n@gaiji A121\n#...............\n@entry 花\n"),
            ":4: a bitmap has 16 rows");
  EXPECT_EQ(error_of(u8"@book B 本\n@entry 花\n\u0251\n"),
            ":3: a character with no JIS X 0208 form in \"\u0251\"");
  EXPECT_EQ(error_of(u8"@book TOOLONGNAME 本\n"),
            ":1: @book DIRECTORY TITLE: a directory of 1 to 8 letters, digits or _");
  EXPECT_EQ(error_of(u8"@book B 本\n@book b 本\n"), ":2: a second book in directory b");
  EXPECT_EQ(error_of(u8"@book B 本\n"), ":1: a book without entries");
  EXPECT_EQ(error_of(u8"@book B 本\n@frobnicate\n"), ":2: unknown directive @frobnicate");
}

// (Help, version and unknown options are shown with every program's.)
TEST(MkbookErrors, TheCommandExitsNonZeroAndWritesNothing) {
  if (std::getenv("TOMEVIEW_BIN") == nullptr) GTEST_SKIP() << "TOMEVIEW_BIN is not set";
  const fs::path folder = fresh_directory("command");
  std::ofstream(folder / "bad.txt") << "@book B x\n@entry y\n{see:z}\n";
  const std::string mkbook = built_programs() + "mkbook ";
  const CommandResult bad =
      run_command(mkbook + "-o " + (folder / "out").string() + " " + (folder / "bad.txt").string() + " 2>&1");
  EXPECT_EQ(bad.status, 1);
  EXPECT_EQ(bad.out, "mkbook: " + (folder / "bad.txt").string() + ":3: link to a head word that no entry has\n");
  EXPECT_FALSE(fs::exists(folder / "out"));
  EXPECT_EQ(run_command(mkbook + (folder / "bad.txt").string() + " 2>/dev/null").status, 2) << "no -o";
}

TEST(MkbookErrors, AFolderThatIsNoBookTreeIsNotReplaced) {
  const fs::path folder = fresh_directory("keep");
  std::ofstream(folder / "letter.txt") << "mine";
  BookTree tree;
  EXPECT_THROW(write_book_tree(tree, folder), std::runtime_error);
  EXPECT_TRUE(fs::exists(folder / "letter.txt"));
  for (const auto& sibling : fs::directory_iterator(folder.parent_path())) {
    EXPECT_EQ(sibling.path().filename().string().find("keep."), std::string::npos) << "left behind";
  }
}

}  // namespace
