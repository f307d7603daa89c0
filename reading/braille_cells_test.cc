#include "reading/braille_cells.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/utf8_text.h"

namespace {

TEST(KanaToCellsTest, Table) {
  const struct {
    const char16_t* kana;
    const char* cells;
  } cases[] = {
      // contracted sounds of every row
      {u"キャキュキョ シャシュショ チャチュチョ ニャニュニョ", "⠈⠡⠈⠩⠈⠪⠀⠈⠱⠈⠹⠈⠺⠀⠈⠕⠈⠝⠈⠞⠀⠈⠅⠈⠍⠈⠎"},
      {u"ヒャヒュヒョ ミャミュミョ リャリュリョ", "⠈⠥⠈⠭⠈⠮⠀⠈⠵⠈⠽⠈⠾⠀⠈⠑⠈⠙⠈⠚"},
      {u"ギャ ジュ ヂョ ビャ ピュ", "⠘⠡⠀⠘⠹⠀⠘⠞⠀⠘⠥⠀⠨⠭"},
      // hiragana read as katakana; a small kana with no pair is full size
      {u"きゃ ァ ヵ", "⠈⠡⠀⠁⠀⠡"},
      // blanks are one cell and none at the ends
      {u"  イヌ \t\u3000 ネコ  ", "⠃⠍⠀⠏⠪"},
      // 。 asks for two blanks, 、 for one, but not before a closing mark
      {u"ハイ。イイエ、ソー", "⠥⠃⠲⠀⠀⠃⠃⠋⠰⠀⠺⠒"},
      {u"「ハイ。」ト", "⠤⠥⠃⠲⠤⠞"}, {u"。", "⠲"},
      // a blank ends a number: the next one takes the number sign again
      {u"12 34", "⠼⠁⠃⠀⠼⠉⠙"},
      // a comma not followed by a digit is punctuation
      {u"1, 2", "⠼⠁⠰⠀⠼⠃"},
      // only a kana that reads as a digit takes the joining sign
      {u"3ラ 3カ", "⠼⠉⠤⠑⠀⠼⠉⠡"},
      {u"Ab CD e", "⠰⠠⠁⠃⠀⠰⠠⠠⠉⠙⠀⠰⠑"},
      // cells stay; other characters are the full cell
      {u"⠁⠀⠃", "⠁⠀⠃"}, {u"☃\xD83D\xDE00@", "⠿⠿⠿"},
  };
  for (const auto& c : cases) EXPECT_EQ(ToUtf8(CString(KanaToCells(c.kana))), c.cells) << c.cells;
}

}  // namespace
