#include "results/braille_gaiji.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "platform/device_path.h"
#include "testing/temp_tree.h"

namespace {

// The table read from a BrailleGaiji.txt of `bytes` in "\SD\dict".
GaijiMappingArray Load(const std::string& bytes) {
  std::filesystem::path card = fresh_directory("braille_gaiji_card");
  std::filesystem::create_directories(card / "dict");
  std::ofstream(card / "dict" / "BrailleGaiji.txt", std::ios::binary) << bytes;
  SetDeviceFolder(DeviceFolder::kCard, card.string());
  GaijiMappingArray table = {{u"[0000]", u"stale"}};
  LoadBrailleGaiji(u"\\SD\\dict", table);
  SetDeviceFolder(DeviceFolder::kCard, "");
  return table;
}

TEST(BrailleGaiji, RecordsUntilOneDoesNotFit) {
  GaijiMappingArray none = {{u"[0000]", u"stale"}};
  LoadBrailleGaiji(u"\\SD\\nothing", none);
  EXPECT_TRUE(none.empty());
  EXPECT_TRUE(Load("").empty());
  EXPECT_TRUE(Load("# comment\n41=a\n").empty());

  GaijiMappingArray table = Load("41=abc\r\n  a121=\x82\xa0\n12345=z\nA121=x y=1\n42=q\n");
  ASSERT_EQ(table.size(), 4u);  // "y=1" is no record, and ends the reading
  EXPECT_EQ(table[0].codeText, CString(u"[0041]"));
  EXPECT_EQ(table[0].replacement, CString(u"abc"));  // the carriage return is white space
  EXPECT_EQ(table[1].codeText, CString(u"[A121]"));
  EXPECT_EQ(table[1].replacement, CString(u"あ"));
  EXPECT_EQ(table[2].codeText, CString(u"[12345]"));
  EXPECT_EQ(table[3].replacement, CString(u"x"));

  table = Load("41=\n42=x\n");  // no empty text: the next token is the text
  ASSERT_EQ(table.size(), 1u);
  EXPECT_EQ(table[0].replacement, CString(u"42=x"));

  // Long texts are cut within the buffer.
  std::string kana;
  for (int i = 0; i < 600; ++i) kana += "\x82\xa0";
  table = Load("41=" + kana + "\n42=" + std::string(1023, 'b') + "\n43=" + std::string(1500, 'c') + " 44=z");
  ASSERT_EQ(table.size(), 4u);
  EXPECT_EQ(table[0].replacement, CString(u'あ', 511));  // not split in two
  EXPECT_EQ(table[1].replacement, CString(u'b', 1023));  // exactly full, nothing passed over
  EXPECT_EQ(table[2].replacement, CString(u'c', 1023));
  EXPECT_EQ(table[3].codeText, CString(u"[0044]"));  // the cut rest is passed over
}

}  // namespace
