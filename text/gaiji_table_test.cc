#include <gtest/gtest.h>

#include <fstream>

#include "engine/engine_state.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "text/gaiji.h"
#include "tools/gaiji_writer.h"

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

}  // namespace
