#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "engine/file_access.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "tools/book_writer.h"

namespace {

class FileTables : public ::testing::Test {
 protected:
  void TearDown() override {
    engine.file_table = load_file_table(nullptr);
    engine.flags = 0;
  }
  // Loads a file definition table of this text.
  LogicalFile* load(const std::string& text) {
    const std::filesystem::path root = fresh_directory("tables");
    write_book_file(root, "files.tbl", text);
    return load_file_table((root / "files.tbl").c_str());
  }
  static int rows(const LogicalFile* table) {
    int count = 0;
    while (table[count].name) ++count;
    return count;
  }
};

TEST_F(FileTables, DefinitionFormat) {
  LogicalFile* table = load(
      "# first page, file\n"
      "0x10, sekai/honmon.dat  what follows is ignored\n"
      "\n"
      "  012\tindex/a.idx\r\n"
      "5,b\n"
      "#0x20 commented out\n"
      "-1 last");
  EXPECT_EQ(table, defined_file_table);
  EXPECT_TRUE(engine.flags & DF_FILE_TABLE);
  ASSERT_EQ(rows(table), 5);
  EXPECT_EQ(table[0].first_page, 16);
  EXPECT_STREQ(table[0].name, "sekai/honmon.dat");
  EXPECT_EQ(table[1].first_page, 0);  // a blank line is a row
  EXPECT_STREQ(table[1].name, "");
  EXPECT_EQ(table[2].first_page, 10);
  EXPECT_STREQ(table[2].name, "index/a.idx");
  EXPECT_STREQ(table[3].name, "b");
  EXPECT_EQ(table[4].first_page, -1);
  EXPECT_STREQ(table[4].name, "last");  // no line end after it
  EXPECT_EQ(table[4].stream, nullptr);
}

TEST_F(FileTables, RowLimitsAndLongLines) {
  std::string text = "7 " + std::string(600, 'n') + "\n";  // one row, the rest of the line dropped
  for (int row = 1; row <= 31; ++row) text += std::to_string(row) + " file" + std::to_string(row) + "\n";
  LogicalFile* table = load(text);
  ASSERT_EQ(rows(table), 30);
  EXPECT_EQ(table[0].first_page, 7);
  EXPECT_EQ(strlen(table[0].name), 509u);
  EXPECT_EQ(table[1].first_page, 1);
  EXPECT_STREQ(table[29].name, "file29");
}

TEST_F(FileTables, ReplacingATable) {
  load("3 a\n");
  EXPECT_EQ(load_file_table(nullptr), default_file_table);
  EXPECT_FALSE(engine.flags & DF_FILE_TABLE);
  EXPECT_EQ(defined_file_table[0].name, nullptr);  // names freed

  load("3 a\n");
  const EngineRun run = capture_engine([] {
    EXPECT_EQ(load_file_table("/nonexistent/files.tbl"), defined_file_table);
  });
  EXPECT_FALSE(engine.flags & DF_FILE_TABLE);
  EXPECT_EQ(defined_file_table[0].name, nullptr);
  EXPECT_EQ(run.out, "error 10.\n");
  EXPECT_EQ(run.err.rfind("/nonexistent/files.tbl: ", 0), 0u);
}

}  // namespace
