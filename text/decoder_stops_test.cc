// Where records end: end codes, line allowances, margins, 0x1F41, and the
// positions their markers give.
#include <gtest/gtest.h>

#include "engine/engine_state.h"
#include "engine/file_access.h"
#include "testing/body_file.h"
#include "text/decoder.h"

namespace {

class DecoderStops : public ::testing::Test {
 protected:
  void SetUp() override { reset_text_state(); }
  void TearDown() override { reset_text_state(); }
};

std::string marker(int32_t offset) {
  return "\n<次項目:" + std::to_string(kBodyPosition + offset) + ">\n\n";
}

TEST_F(DecoderStops, EndCodesAndEndOfData) {
  BodyText body;
  body.code(0x1F02).code(0x1F09, {1}).text(u8"あ").code(0x1F0A);
  body.code(0x1F09, {3}).text(u8"い").code(0x1F0A).code(0x1F03);
  EXPECT_EQ(decode_body(body).out, "あ\n  い\n" + marker(20));

  BodyText zero;
  zero.text(u8"あ").code(0).text(u8"い");
  EXPECT_EQ(decode_body(zero).out, "あ<<End of data>>\n" + marker(2));

  // Without stops the text runs on to the true end of the data, and ends there.
  engine.flags = DF_NO_STOP;
  std::string out = decode_body(zero.code(0x1F03).text(u8"う")).out;
  EXPECT_EQ(out.find("あ<<End of data>>\nいう"), 0u) << out;
  EXPECT_TRUE(out.ends_with("<<End of data>>\n" + marker(zero.size()))) << out;
}

TEST_F(DecoderStops, LineAllowance) {
  BodyText lines;
  for (int i = 0; i < 600; ++i) lines.text(u8"あ").code(0x1F0A);
  std::string twenty = decode_body(lines, 20).out;
  EXPECT_TRUE(twenty.ends_with("あ\n" + marker(20 * 4))) << twenty;

  EXPECT_TRUE(decode_body(lines).out.ends_with("あ\n" + marker(513 * 4)));

  // A head line of a group ends silently behind its line end.
  engine.flags = DF_GROUP_SEARCH;
  int32_t after = 0;
  EngineRun head = with_body_file(lines, [&] {
    cdtext(1);
    after = cdtell();
  });
  EXPECT_EQ(head.out, "あ");
  EXPECT_EQ(after, kBodyPosition + 4);
}

TEST_F(DecoderStops, LeftMargins) {
  BodyText fall;
  fall.code(0x1F09, {1}).text(u8"あ").code(0x1F09, {4}).text(u8"い").code(0x1F0A);
  fall.code(0x1F09, {1}).text(u8"う").code(0x1F03);
  EXPECT_EQ(decode_body(fall).out, "あ い\n" + marker(14));

  BodyText dash;
  dash.code(0x1F09, {4}).text(u8"い").code(0x1F0A).code(0x1F09, {1}).text(u8"―う").code(0x1F03);
  EXPECT_EQ(decode_body(dash).out, "   い\n―う" + marker(18));

  engine.flags = DF_NO_ITEM_SPLIT;
  BodyText blank;
  blank.text(u8"あ").code(0x1F0A).text(u8"い").code(0x1F0A).code(0x1F0A).text(u8"う");
  EXPECT_EQ(decode_body(blank).out, "あ\nい\n" + marker(10));
  EXPECT_EQ(decode_body(fall).out, "あ い\nう" + marker(22));

  // The margin of the record's first 0x1F09 is the left edge of the item.
  engine.flags = DF_MARGIN_SPLIT;
  BodyText split;
  split.code(0x1F09, {3}).text(u8"あ").code(0x1F09, {5}).text(u8"い").code(0x1F09, {3});
  EXPECT_EQ(decode_body(split).out, "  あい" + marker(10));
}

TEST_F(DecoderStops, CodeF41PastTheFirstLine) {
  BodyText body;
  body.code(0x1F41, {0x01A0}).text(u8"あ").code(0x1F0A).code(0x1F41, {0x01A0}).text(u8"い").code(0x1F03);
  engine.flags = DF_1F41_SPLIT;
  EXPECT_EQ(decode_body(body).out, "あ\n" + marker(8));
  EXPECT_EQ(decode_body(body, 2).out, "あ\nい" + marker(16));

  engine.flags = DF_SYNONYM_INDEX;
  engine.index_id = 0xA0;
  EXPECT_EQ(decode_body(body).out, "あ\n" + marker(8));
  engine.index_id = 0x91;
  EXPECT_EQ(decode_body(body).out, "あ\nい" + marker(16));
}

TEST_F(DecoderStops, SeenPositionsAndNoBook) {
  BodyText body;
  body.text(u8"あ").code(0x1F03);
  EngineRun twice = with_body_file(body, [] {
    cdtext(0);
    cdseek(kBodyPosition, 0);
    cdtext(0);
    engine.seen_count = 0;  // a new argument
    cdseek(kBodyPosition, 0);
    cdtext(0);
  });
  EXPECT_EQ(twice.out, "あ" + marker(4) + "あ" + marker(4));

  // No book open: the failure of the position is all there is.
  engine.flags = DF_NO_STOP;
  engine.current_file = nullptr;
  EngineRun none = capture_engine([] { cdtext(0); });
  EXPECT_EQ(none.out, "error in cdtell: file not open\nerror 2.\n");
}

}  // namespace
