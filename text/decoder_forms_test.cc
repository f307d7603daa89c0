// The forms of links, figures, sounds and lists in plain, DF_HIDE_LINKS,
// DF_VERBOSE and encyclopedia mode, and forms too long for one emit.
#include <gtest/gtest.h>

#include "engine/engine_state.h"
#include "testing/body_file.h"

namespace {

class DecoderForms : public ::testing::Test {
 protected:
  void SetUp() override { reset_text_state(); }
  void TearDown() override { reset_text_state(); }
};

std::string marker(int32_t offset) {
  return "\n<次項目:" + std::to_string(kBodyPosition + offset) + ">\n\n";
}

TEST_F(DecoderForms, LinksFiguresAndSounds) {
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

TEST_F(DecoderForms, EncyclopediaOperands) {
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

TEST_F(DecoderForms, LongFormsAreCutAndReadWhole) {
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

}  // namespace
