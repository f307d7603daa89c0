#include "results/braille_gaiji.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "platform/device_path.h"
#include "testing/temp_tree.h"

namespace {

class BrailleGaijiTest : public testing::Test {
 protected:
  void SetUp() override {
    card_ = fresh_directory("braille_gaiji_card");
    std::filesystem::create_directories(card_ / "dict");
    SetDeviceFolder(DeviceFolder::kCard, card_.string());
  }
  void TearDown() override { SetDeviceFolder(DeviceFolder::kCard, ""); }

  // The table read from a file of `bytes`.
  GaijiMappingArray Load(const std::string& bytes) {
    std::ofstream(card_ / "dict" / "BrailleGaiji.txt", std::ios::binary) << bytes;
    GaijiMappingArray table = {{u"[0000]", u"stale"}};
    LoadBrailleGaiji(u"\\SD\\dict", table);
    return table;
  }

  std::filesystem::path card_;
};

TEST_F(BrailleGaijiTest, NoFileOrNoRecordGivesAnEmptyTable) {
  GaijiMappingArray table = {{u"[0000]", u"stale"}};
  LoadBrailleGaiji(u"\\SD\\nothing", table);
  EXPECT_TRUE(table.empty());
  EXPECT_TRUE(Load("").empty());
  EXPECT_TRUE(Load("# comment\n41=a\n").empty());
  EXPECT_TRUE(Load("41 a\n").empty());
}

TEST_F(BrailleGaijiTest, RecordsInFileOrder) {
  GaijiMappingArray table = Load("41=abc\r\nA121=x\n  a121=y\n12345=\x82\xa0\n");
  ASSERT_EQ(table.size(), 4u);
  EXPECT_EQ(table[0].codeText, CString(u"[0041]"));
  EXPECT_EQ(table[0].replacement, CString(u"abc"));  // the carriage return is white space
  EXPECT_EQ(table[1].codeText, CString(u"[A121]"));
  EXPECT_EQ(table[2].codeText, CString(u"[A121]"));  // lower-case digits, a repeated code
  EXPECT_EQ(table[2].replacement, CString(u"y"));
  EXPECT_EQ(table[3].codeText, CString(u"[12345]"));
  EXPECT_EQ(table[3].replacement, CString(u"あ"));
}

TEST_F(BrailleGaijiTest, WhiteSpaceEndsATextAndABadRecordEndsTheReading) {
  GaijiMappingArray table = Load("41=a 42=b\n43=c d\n44=e\n");
  ASSERT_EQ(table.size(), 3u);  // "d" is no record
  EXPECT_EQ(table[1].codeText, CString(u"[0042]"));
  EXPECT_EQ(table[2].replacement, CString(u"c"));

  table = Load("41=\n42=x\n");  // no empty text: the next token is the text
  ASSERT_EQ(table.size(), 1u);
  EXPECT_EQ(table[0].replacement, CString(u"42=x"));
}

TEST_F(BrailleGaijiTest, LongTextsAreCutWithinTheBuffer) {
  GaijiMappingArray table = Load("41=" + std::string(1500, 'a') + "\n42=x\n");
  ASSERT_EQ(table.size(), 2u);
  EXPECT_EQ(table[0].replacement, CString(u'a', 1023));
  EXPECT_EQ(table[1].codeText, CString(u"[0042]"));  // the cut rest is passed over

  std::string kana;
  for (int i = 0; i < 600; ++i) kana += "\x82\xa0";
  table = Load("41=" + kana + "\n42=" + std::string(1023, 'b') + "\n43=z");
  ASSERT_EQ(table.size(), 3u);
  EXPECT_EQ(table[0].replacement, CString(u'あ', 511));  // not split in two
  EXPECT_EQ(table[1].replacement, CString(u'b', 1023));  // exactly full, nothing passed over
  EXPECT_EQ(table[2].replacement, CString(u"z"));
}

}  // namespace
