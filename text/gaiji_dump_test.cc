#include <gtest/gtest.h>

#include <fstream>

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
