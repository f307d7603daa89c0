// The application's calls: what they give back when there is nothing to
// read or the paths do not fit, and which leave book files open.
// (The capture's size rules are tested with the catalogs.)
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "command/engine.h"
#include "engine/engine_state.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "testing/utf8_literal.h"
#include "testing/word_book.h"
#include "tools/jis_text.h"

namespace {

class InProcessCalls : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : {"CDDRIVE", "CDFILE", "CDDEBUG", "CDFILES"}) unsetenv(name);
  }
};

TEST_F(InProcessCalls, CatalogGivesOneWithoutTitles) {
  const std::string empty = fresh_directory("no_catalog").string();
  char buffer[16];
  memset(buffer, 'x', sizeof buffer);
  int32_t result = 0;
  capture_engine([&] { result = engine_catalog(empty.c_str(), buffer, sizeof buffer); });
  EXPECT_EQ(result, 1);
  EXPECT_EQ(std::string(buffer, sizeof buffer), std::string(sizeof buffer, '\0'));
  EXPECT_EQ(engine.capture.buffer, nullptr);

  // A drive that doesn't fit "-D%s" in 512 bytes runs nothing.
  const std::string too_long(kPathSize - 2, 'd');
  memset(buffer, 'x', sizeof buffer);
  EngineRun run = capture_engine([&] { result = engine_catalog(too_long.c_str(), buffer, sizeof buffer); });
  EXPECT_EQ(result, 1);
  EXPECT_EQ(buffer[0], '\0');
  EXPECT_EQ(run.out, "-D" + too_long + ":オプション指定が間違っています\n");
  EXPECT_EQ(capture_engine([&] { EXPECT_EQ(engine_has_forward_index(empty.c_str(), 1234567), 0); }).out,
            "-B1234567:オプション指定が間違っています\n");
}

// engine_output keeps the book's files open for the next lookup, which
// gives the same text; listing the catalog and looking at the indexes
// leave none open.
TEST_F(InProcessCalls, OnlyLookupsKeepBookFilesOpen) {
  const std::filesystem::path book = fresh_directory("kept_open");
  BodyText body, heads;
  body.text(u8"あ").code(0x1F0A).text(u8"本文").code(0x1F0A).code(0x1F03);
  heads.text(u8"あ").code(0x1F0A);
  write_word_book(book, body, heads, {{0, utf8_to_jis(utf8(u8"あ")), 0, 0, 0}});
  wait_until_settled();  // files changed just now are never kept
  const auto open_files = [] {
    int count = 0;
    for (const BookFileSlot& slot : engine.book_files) count += slot.file != nullptr;
    return count;
  };
  const std::string work = (book / "work.dat").string();
  const auto lookup = [&] {
    std::filesystem::remove(work);
    capture_engine([&] { engine_output(book.c_str(), 0, work.c_str(), "あ"); });
    return ReadWholeFile(work);
  };
  const std::string first = lookup();
  EXPECT_NE(first.find("本文"), std::string::npos);
  EXPECT_EQ(open_files(), 2);  // the catalog and the text
  EXPECT_EQ(lookup(), first);
  EXPECT_EQ(open_files(), 2);

  char titles[64];
  capture_engine([&] { engine_catalog(book.c_str(), titles, sizeof titles); });
  EXPECT_EQ(open_files(), 0);
  EXPECT_EQ(lookup(), first);
  capture_engine([&] { EXPECT_EQ(engine_has_forward_index(book.c_str(), 0), 1); });
  EXPECT_EQ(open_files(), 0);
}

}  // namespace
