#include "reading/braille_cells.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/utf8_text.h"

namespace {

std::string Cells(const char16_t* text) { return ToUtf8(CString(KanaToCells(text))); }

TEST(KanaToCellsTest, ContractedSoundsOfEveryRow) {
  EXPECT_EQ(Cells(u"キャキュキョ シャシュショ チャチュチョ ニャニュニョ"),
            "⠈⠡⠈⠩⠈⠪⠀⠈⠱⠈⠹⠈⠺⠀⠈⠕⠈⠝⠈⠞⠀⠈⠅⠈⠍⠈⠎");
  EXPECT_EQ(Cells(u"ヒャヒュヒョ ミャミュミョ リャリュリョ"), "⠈⠥⠈⠭⠈⠮⠀⠈⠵⠈⠽⠈⠾⠀⠈⠑⠈⠙⠈⠚");
  EXPECT_EQ(Cells(u"ギャ ジュ ヂョ ビャ ピュ"), "⠘⠡⠀⠘⠹⠀⠘⠞⠀⠘⠥⠀⠨⠭");
  // Hiragana are read as katakana; a small kana with no pair is full size.
  EXPECT_EQ(Cells(u"きゃ ァ ヵ"), "⠈⠡⠀⠁⠀⠡");
}

TEST(KanaToCellsTest, BlanksAreOneCellAndNoneAtTheEnds) {
  EXPECT_EQ(Cells(u"  イヌ \t\u3000 ネコ  "), "⠃⠍⠀⠏⠪");
  // 。 asks for two blanks, 、 for one, but not before a closing mark.
  EXPECT_EQ(Cells(u"ハイ。イイエ、ソー"), "⠥⠃⠲⠀⠀⠃⠃⠋⠰⠀⠺⠒");
  EXPECT_EQ(Cells(u"「ハイ。」ト"), "⠤⠥⠃⠲⠤⠞");
  EXPECT_EQ(Cells(u"。"), "⠲");
}

TEST(KanaToCellsTest, NumbersAndLettersEndWhereTheyEnd) {
  // A blank ends a number: the next one takes the number sign again.
  EXPECT_EQ(Cells(u"12 34"), "⠼⠁⠃⠀⠼⠉⠙");
  // A comma not followed by a digit is punctuation.
  EXPECT_EQ(Cells(u"1, 2"), "⠼⠁⠰⠀⠼⠃");
  // Only a kana that reads as a digit takes the joining sign.
  EXPECT_EQ(Cells(u"3ラ 3カ"), "⠼⠉⠤⠑⠀⠼⠉⠡");
  EXPECT_EQ(Cells(u"Ab CD e"), "⠰⠠⠁⠃⠀⠰⠠⠠⠉⠙⠀⠰⠑");
}

TEST(KanaToCellsTest, CellsStayAndOtherCharactersAreTheFullCell) {
  EXPECT_EQ(Cells(u"⠁⠀⠃"), "⠁⠀⠃");
  EXPECT_EQ(Cells(u"☃\xD83D\xDE00@"), "⠿⠿⠿");
}

}  // namespace
