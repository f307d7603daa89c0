// Characters as written: half-width runs, external-character tokens,
// wrapping, colour, 8-bit text, and the dump and raw cut of DF_DUMP and -Y.
#include <gtest/gtest.h>

#include "engine/engine_state.h"
#include "testing/body_file.h"
#include "text/decoder.h"

namespace {

class DecoderText : public ::testing::Test {
 protected:
  void SetUp() override { reset_text_state(); }
  void TearDown() override { reset_text_state(); }
};

std::string marker(int32_t offset) {
  return "\n<次項目:" + std::to_string(kBodyPosition + offset) + ">\n\n";
}

TEST_F(DecoderText, HalfWidthRuns) {
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

TEST_F(DecoderText, WidthWrapsBetweenWords) {
  engine.flags = DF_ENGLISH;
  engine.width = 10;
  BodyText wraps;
  wraps.bytes("abcde,wxy.").code(0x1F03);
  EXPECT_EQ(decode_body(wraps).out, "abcde,\nwxy." + marker(12));
  BodyText fits;
  fits.bytes("abcd,wxy.").code(0x1F03);
  EXPECT_EQ(decode_body(fits).out, "abcd,wxy." + marker(11));
}

TEST_F(DecoderText, ColourSequences) {
  engine.flags = DF_COLOUR;
  BodyText body;
  body.code(0x1F09, {3}).text(u8"あ").code(0x1F12).text(u8"い").code(0x1F10).code(0x1F0E);
  body.text(u8"う").code(0x1F13).code(0x1F11).code(0x1F0F).code(0x1F03);
  EXPECT_EQ(decode_body(body).out,
            "\x1b[m  あ\x1b[7mい\x1b[2;7;33mう\x1b[m" + marker(body.size()));
  // The last state written holds on: an unchanged colour is not written again.
  EXPECT_EQ(decode_body(body).out, "  あ\x1b[7mい\x1b[2;7;33mう\x1b[m" + marker(body.size()));
}

TEST_F(DecoderText, EnglishBytes) {
  engine.flags = DF_ENGLISH;
  BodyText body;
  body.bytes("Hi!\x80").bytes("\x0F\x41").code(0x1F0A).code(0x1F09, {1}).bytes("go");
  body.code(0x1F42, {1}).bytes("x").code(0x1F03);  // no Y in English books
  EXPECT_EQ(decode_body(body).out, "Hi![80][F41]\n go<→x" + marker(body.size()));
}

TEST_F(DecoderText, WordDumpAndRawCut) {
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

}  // namespace
