// Records shown by the arguments of a run on a written book: -M, -U, -P and
// a number, and a marker fed back as the next argument.
#include <gtest/gtest.h>

#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "tools/body_text.h"
#include "tools/book_writer.h"

namespace {

std::string marker(int32_t position) {
  return "\n<次項目:" + std::to_string(position) + ">\n\n";
}

int32_t position_of(int32_t page) { return (page - 1) * 2048; }

TEST(DecoderRun, MenuRightsPagesAndPositions) {
  BodyText body;
  body.code(0x1F09, {3}).text(u8"あ").code(0x1F0A).code(0x1F09, {1}).text(u8"い").code(0x1F03);
  BodyText menu;
  menu.text(u8"メニュー").code(0x1F0A).code(0x1F03);
  BodyText rights;
  rights.text(u8"著作権").code(0x1F03);

  BookTree tree;
  Book& book = tree.add_book("DICT", "JITEN");
  int32_t body_page = book.text.add_area(0x00, body.data());
  int32_t text = position_of(body_page);
  int32_t menu_at = position_of(book.text.add_area(0x01, menu.data()));
  int32_t rights_at = position_of(book.text.add_area(0x02, rights.data()));
  std::filesystem::path root = fresh_directory("decoder_run");
  tree.write(root);

  char next[16];
  snprintf(next, sizeof next, "0x%X", text + 8);
  std::string page = std::to_string(body_page);
  EngineRun run = run_engine({"-D" + root.string(), "-M", "-U", "-P" + page, "/p" + page, next});
  EXPECT_EQ(run.out, "メニュー\n" + marker(menu_at + 12) + "著作権" + marker(rights_at + 8) +
                         "  あ\n" + marker(text + 8) + "  あ\n" + marker(text + 8) + "い" +
                         marker(text + 16));
}

}  // namespace
