// External characters: the definition tables that give them texts, and
// the dump of a book's font areas (-# and -$).
#include "text/gaiji.h"

#include <gtest/gtest.h>

#include <fstream>

#include "engine/engine_state.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "tools/gaiji_writer.h"
#include "tools/index_directory_writer.h"

namespace {

std::string write_file(const std::string& name, const std::string& bytes) {
  std::string path = scratch_path(name);
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

// The text of a code as a string, "none" when no table defines it.
std::string find(int code) {
  const char* text = cdgaijifind(code);
  return text != nullptr ? text : "none";
}

class GaijiTables : public ::testing::Test {
 protected:
  void TearDown() override {
    cdgaijiload("", &engine.gaiji_table);
    cdgaijiload("", &engine.hankaku_table);
    engine.flags = 0;
  }
};

TEST_F(GaijiTables, FullAndHalfWidthLookup) {
  cdgaijiload("", &engine.gaiji_table);
  EXPECT_EQ(find(0xA121), "none");
  EXPECT_EQ(find(0xFFFF), "");  // the built-in end record

  cdgaijiload(write_file("full.dmp", gaiji_definition_file({{0xA121, "X"}, {0xA123, ""}})).c_str(),
              &engine.gaiji_table);
  cdgaijiload(write_file("half.dmp", gaiji_definition_file({{0xA121, "h"}, {0xA122, "y"}})).c_str(),
              &engine.hankaku_table);
  EXPECT_EQ(find(0xA121), "X");
  EXPECT_EQ(find(0xA120), "none");
  EXPECT_EQ(find(0xA122), "none");  // half-width table unused without the flag
  EXPECT_EQ(find(0xA123), "");      // an empty text makes the character vanish
  engine.flags = DF_NO_ITEM_SPLIT;
  EXPECT_EQ(find(0xA121), "h");
  EXPECT_EQ(find(0xA122), "y");
  EXPECT_EQ(find(0xA123), "");
}

TEST_F(GaijiTables, WalkStopsAtTheEndOfAFileWithoutEndRecord) {
  cdgaijiload(write_file("no_end.dmp", gaiji_definition_file({{0x2001, "a"}}, false)).c_str(),
              &engine.gaiji_table);
  EXPECT_EQ(find(0x2001), "a");
  EXPECT_EQ(find(0xFFFF), "none");
  // Cut inside the text of its only record: the text ends with the file.
  cdgaijiload(write_file("cut.dmp", std::string("\x01\x20" "abc", 5)).c_str(), &engine.gaiji_table);
  EXPECT_EQ(find(0x2001), "abc");
  EXPECT_EQ(find(0x3000), "none");
}

TEST_F(GaijiTables, LoadFailures) {
  std::string good = write_file("good.dmp", gaiji_definition_file({{0xA121, "X"}}));
  std::string missing = scratch_path("missing.dmp");
  EngineRun run = capture_engine([&] {
    cdgaijiload(good.c_str(), &engine.gaiji_table);
    EXPECT_EQ(cdgaijiload(missing.c_str(), &engine.gaiji_table), empty_gaiji_table);
  });
  EXPECT_EQ(run.out, "外字定義ファイルがみつかりません\nerror 11.\n");
  EXPECT_EQ(run.err.rfind(missing + ": ", 0), 0u);

  std::string largest = gaiji_definition_file({{0xA121, std::string(65494, 'x')}});
  ASSERT_EQ(largest.size(), 65500u);
  cdgaijiload(write_file("largest.dmp", largest).c_str(), &engine.gaiji_table);
  EXPECT_NE(engine.gaiji_table, empty_gaiji_table);

  run = capture_engine([&] {
    cdgaijiload(good.c_str(), &engine.gaiji_table);
    cdgaijiload(write_file("too_large.dmp", largest + "x").c_str(), &engine.gaiji_table);
  });
  EXPECT_EQ(run.out, "外字定義ファイルが大きすぎる／メモリ不足です\nerror 12.\n");
  EXPECT_EQ(engine.gaiji_table, empty_gaiji_table);  // the old table went first
}

// A book whose directory lists the font area on page 2 as 0xF1.
std::string font_book(const std::string& name, const FontArea& area) {
  return write_file(name, index_directory_page({{0xF1, 2, 2}}) + font_area_bytes(area));
}

TEST(GaijiDump, BitmapsAndCodeStepping) {
  std::string first("\x80\x01\x00\xFF", 4);  // two rows, the rest blank
  std::string book = font_book("font_book", {16, 16, 0xA17E, 2, {first}});
  std::string blank_rows(14, '\n');
  EXPECT_EQ(run_engine({"-N" + book, "-#"}).out,
            "* GAIJI width=16, hight=16, code=A17E-, 2 chars"
            "\n*A17E\t\nO              O\nOOOOOOOO\n" + blank_rows +
            "\n*A221\t\n" + blank_rows + "\n\n"
            "* GAIJI code=-A221\n");
  std::string english = run_engine({"-E", "-N" + book, "-#0xF1"}).out;
  EXPECT_NE(english.find("\n*A17F\t\n"), std::string::npos);
  EXPECT_NE(english.find("* GAIJI code=-A17F\n"), std::string::npos);
  EXPECT_EQ(run_engine({"-N" + book, "-#0xF2"}).out, "");  // no such area
}

TEST(GaijiDump, BlocksOf1024Bytes) {
  // 24 by 24 dots: 72 bytes each, 14 to a block, then 16 bytes skipped.
  std::string book = font_book("font_24", {24, 24, 0xA121, 15, {}});
  std::string out = run_engine({"-N" + book, "-S0x4000", "-#"}).out;
  EXPECT_NE(out.find("\n*A12E:(5032)\n"), std::string::npos);
  EXPECT_NE(out.find("\n*A12F:(5120)\n"), std::string::npos);
}

TEST(GaijiDump, DamagedCountEndsAtTheEndOfTheBook) {
  // 65535 characters claimed, two written: the dump stops at the first
  // bitmap that runs past the end instead of reading on for ever.
  std::string area = font_area_bytes({16, 16, 0xA121, 65535, {}});
  std::string book = write_file("font_cut", index_directory_page({{0xF1, 2, 2}}) +
                                                area.substr(0, 2048 + 64));
  std::string out = run_engine({"-N" + book, "-#"}).out;
  EXPECT_NE(out.find("\n*A122\t\n"), std::string::npos);
  EXPECT_EQ(out.find("\n*A124\t\n"), std::string::npos);
  EXPECT_NE(out.find("* GAIJI code=-A123\n"), std::string::npos);
}

TEST(GaijiDump, PlainFileOption) {
  std::string plain = write_file("font_plain", font_area_bytes({16, 16, 0xA121, 0, {}}));
  EXPECT_EQ(run_engine({"-$" + plain}).out,
            "* GAIJI width=16, hight=16, code=A121-, 0 chars* GAIJI code=-A120\n");
  EngineRun missing = run_engine({"-$" + scratch_path("no_font")});
  EXPECT_EQ(missing.out, "外字ファイルがみつかりません\nerror 25.\n");
  EXPECT_NE(missing.err.find("no_font: "), std::string::npos);
  EXPECT_EQ(run_engine({"-$"}).out, "");
}

}  // namespace
