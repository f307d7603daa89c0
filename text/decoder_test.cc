// The decoder on body texts written straight into a file: characters as
// written (half-width runs, external-character tokens, wrapping, colour,
// 8-bit text, the dump and raw cut of DF_DUMP and -Y); the forms of links,
// figures, sounds and lists in each mode; and where records end (end codes,
// line allowances, margins, 0x1F41) with the positions their markers give.
#include "text/decoder.h"

#include <gtest/gtest.h>

#include "engine/engine_state.h"
#include "engine/file_access.h"
#include "testing/body_file.h"

namespace {

class Decoder : public ::testing::Test {
 protected:
  void SetUp() override { reset_text_state(); }
  void TearDown() override { reset_text_state(); }
};

// The marker behind a record that ends `offset` bytes into the body.
std::string marker(int32_t offset) {
  return "\n<次項目:" + std::to_string(kBodyPosition + offset) + ">\n\n";
}

// Characters as written.

TEST_F(Decoder, HalfWidthRuns) {
  BodyText body;
  body.code(0x1F04).text(u8"Aアモガヮ亜。ぁ ").code(0x1F05).text(u8"A").code(0x1F03);
  std::string end = marker(body.size());
  EXPECT_EQ(decode_body(body).out, "Aｱﾓｶﾞヮ亜｡ｧ Ａ" + end);

  engine.flags = DF_KEEP_FULL_KANA;
  EXPECT_EQ(decode_body(body).out, "Aアモガヮ亜。ぁ Ａ" + end);

  engine.flags = DF_VERBOSE;
  EXPECT_EQ(decode_body(body).out, "\\small{Ａアモガヮ亜。ぁ　}Ａ\n\\end{cdrom}\n" + end);

  BodyText tokens;
  tokens.code(0x1F14).code(0xA121).code(0x1F03);
  engine.flags = 0;
  EXPECT_EQ(decode_body(tokens).out, "[1F14][A121]" + marker(6));
}

// Long runs of characters, full width and then half width, each across
// the end of a block of the file (the body starts 2048 bytes in).
TEST_F(Decoder, RunsAcrossBlockEnds) {
  BodyText body;
  std::string expected;
  for (int i = 0; i < 1100; ++i) {
    body.text(u8"亜");
    expected += "亜";
  }
  body.code(0x1F04);
  for (int i = 0; i < 1100; ++i) {
    body.text(u8"Ab");
    expected += "Ab";
  }
  body.text(u8"ア").code(0x1F05).text(u8"b").code(0x1F03);
  expected += "ｱｂ";
  EXPECT_EQ(decode_body(body).out, expected + marker(body.size()));
}

TEST_F(Decoder, WidthWrapsBetweenWords) {
  engine.flags = DF_ENGLISH;
  engine.width = 10;
  BodyText wraps;
  wraps.bytes("abcde,wxy.").code(0x1F03);
  EXPECT_EQ(decode_body(wraps).out, "abcde,\nwxy." + marker(12));
  BodyText fits;
  fits.bytes("abcd,wxy.").code(0x1F03);
  EXPECT_EQ(decode_body(fits).out, "abcd,wxy." + marker(11));
}

TEST_F(Decoder, ColourSequences) {
  engine.flags = DF_COLOUR;
  BodyText body;
  body.code(0x1F09, {3}).text(u8"あ").code(0x1F12).text(u8"い").code(0x1F10).code(0x1F0E);
  body.text(u8"う").code(0x1F13).code(0x1F11).code(0x1F0F).code(0x1F03);
  EXPECT_EQ(decode_body(body).out,
            "\x1b[m  あ\x1b[7mい\x1b[2;7;33mう\x1b[m" + marker(body.size()));
  // The last state written holds on: an unchanged colour is not written again.
  EXPECT_EQ(decode_body(body).out, "  あ\x1b[7mい\x1b[2;7;33mう\x1b[m" + marker(body.size()));
}

TEST_F(Decoder, EnglishBytes) {
  engine.flags = DF_ENGLISH;
  BodyText body;
  body.bytes("Hi!\x80").bytes("\x0F\x41").code(0x1F0A).code(0x1F09, {1}).bytes("go");
  body.code(0x1F42, {1}).bytes("x").code(0x1F03);  // no Y in English books
  EXPECT_EQ(decode_body(body).out, "Hi![80][F41]\n go<→x" + marker(body.size()));
}

TEST_F(Decoder, WordDumpAndRawCut) {
  BodyText body;
  body.text(u8"あい").code(0x1F03);
  engine.flags = DF_DUMP;
  engine.cut_length = 3;
  EXPECT_EQ(decode_body(body).out, "\n     2048(000001 0000): 2422 2424 1F03");

  engine.flags = 0;
  engine.cut_length = 4;
  EXPECT_EQ(decode_body(body).out, body.data().substr(0, 4));
  EXPECT_EQ(engine.cut_length, -1);
  engine.flags = DF_DUMP;
  EXPECT_EQ(decode_body(body).out, "");

  // A copy the output refuses is reported, by the number of its last block.
  engine.flags = 0;
  FILE* read_only = fopen("/dev/null", "r");
  EngineRun refused = with_body_file(body, [read_only] {
    FILE* output = engine.output;
    engine.output = read_only;
    engine.cut_length = 4;
    cdtext(0);
    engine.output = output;
  });
  fclose(read_only);
  EXPECT_EQ(refused.out, "error 15.\n");
}

// Links, figures, sounds and lists.

TEST_F(Decoder, LinksFiguresAndSounds) {
  BodyText body;
  body.code(0x1F42, {1, 2}).text(u8"はな").code(0x1F63, {0x0000, 0x0012, 0x0034});
  body.code(0x1F42).text(u8"あ").code(0x1F62).bcd(4096);
  body.code(0x1F32).text(u8"い").code(0x1F32, {3, 4});
  body.code(0x1F4D, {0}).code(0x1F4D, {3, 0x1A, 0xFF, 0x1234});
  body.code(0x1F44, {5}).bcd8(12).bcd8(34);
  body.code(0x1F48, {1, 2}).bcd(22562).code(0x1F68).code(0x1F43).code(0x1F03);
  std::string end = marker(body.size());

  EXPECT_EQ(decode_body(body).out,
            "<解説|X=1,Y=2はな|22562><あ|4096><い<次図|X=3,Y=4<1F4D:(0)|<1F4D:(3) 1a,ff,1234|"
            "<Figure:5,X=12,Y=34<Sound 2,1|22562><><" + end);

  engine.flags = DF_HIDE_LINKS;
  EXPECT_EQ(decode_body(body).out, "<はな><あ><い<<<<<><" + end);

  engine.flags = DF_VERBOSE | DF_HIDE_LINKS;
  EXPECT_EQ(decode_body(body).out,
            "<はな|1F63|22562><あ|1F62|4096><1F32|い<1F32|次図|X=3,Y=4<<<<><1F43|"
            "\n\\end{cdrom}\n" + end);
}

TEST_F(Decoder, EncyclopediaOperands) {
  BodyText body;
  body.code(0x1F44, {5}).bcd8(12).bcd8(34).bcd8(56);
  body.code(0x1F45).text(u8"あ").code(0x1F65);
  body.code(0x1F49).text(u8"い").code(16).code(24);
  body.code(0x1FE0, {5}).code(0x1F03);
  engine.flags = DF_ENCYCLOPEDIA;
  EXPECT_EQ(decode_body(body).out,
            "<Figure:5,X=12,Y=34,Z=56|\\Fig{あ}<い,24x16|[0005]" + marker(body.size()));
  engine.flags = DF_ENCYCLOPEDIA | DF_HIDE_LINKS;
  EXPECT_EQ(decode_body(body).out, "<あ<い[0005]" + marker(body.size()));

  // In an EPWING book: no caption character, no size, an attribute value.
  engine.flags = 0;
  BodyText epwing;
  epwing.code(0x1F45).text(u8"あ").code(0x1F65).code(0x1F49).code(0x1FE0, {5}).text(u8"い");
  epwing.code(0x1F03);
  EXPECT_EQ(decode_body(epwing).out, "\\Fig{あ}い" + marker(epwing.size()));
}

TEST_F(Decoder, LongFormsAreCutAndReadWhole) {
  BodyText list;
  list.code(0x1F4D, {300});
  for (int i = 0; i < 300; ++i) list.code(0x1234);
  list.text(u8"あ").code(0x1F03);
  std::string out = decode_body(list).out;
  size_t bar = out.find('|');
  ASSERT_NE(bar, std::string::npos);
  EXPECT_LT(bar, 512u);
  EXPECT_EQ(out.substr(bar - 4), "1234|あ" + marker(list.size()));

  engine.flags = DF_ENGLISH;
  BodyText word;
  word.bytes(std::string(700, 'a') + ". ").code(0x1F03);
  EXPECT_EQ(decode_body(word).out, std::string(700, 'a') + ". " + marker(word.size()));
}

// Where records end.

TEST_F(Decoder, EndCodesAndEndOfData) {
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

TEST_F(Decoder, LineAllowance) {
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

TEST_F(Decoder, LeftMargins) {
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

TEST_F(Decoder, CodeF41PastTheFirstLine) {
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

TEST_F(Decoder, SeenPositionsAndNoBook) {
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
