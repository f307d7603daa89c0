#include "reading/reading.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/utf8_text.h"
#include "reading/kana_text.h"

namespace {

std::string Utf8(const std::u16string& text) { return ToUtf8(CString(text)); }
std::u16string Utf16(const char* utf8) { return FromUtf8(utf8).Units(); }

struct Case {
  const char* text;   // what the reader presents
  const char* cells;  // its Braille
};

// Japanese Braille written out by hand from the kana tables, one case a
// line: what MeCab reads, and how the cells spell it.
const Case kCases[] = {
    // plain kana, from kana and from kanji
    {"いぬ", "⠃⠍"}, {"ねこ", "⠏⠪"}, {"さくら", "⠱⠩⠑"}, {"はな", "⠥⠅"},
    {"花", "⠥⠅"}, {"山", "⠌⠵"}, {"川", "⠡⠄"}, {"空", "⠺⠑"}, {"森", "⠾⠓"},
    // voiced and semi-voiced
    {"水", "⠷⠐⠹"}, {"風", "⠡⠐⠻"}, {"電話", "⠐⠟⠴⠄"}, {"地図", "⠗⠐⠹"},
    {"ペン", "⠠⠯⠴"}, {"パン", "⠠⠥⠴"}, {"ポスト", "⠠⠮⠹⠞"}, {"ピアノ", "⠠⠧⠁⠎"},
    // contracted sounds, plain, voiced and semi-voiced
    {"写真", "⠈⠱⠳⠴"}, {"茶", "⠈⠕"}, {"百", "⠈⠥⠩"}, {"旅行", "⠈⠚⠪⠒"},
    {"辞書", "⠐⠳⠈⠺"}, {"病院", "⠘⠮⠒⠃⠴"}, {"牛乳", "⠘⠩⠒⠈⠍⠒"},
    {"発表", "⠥⠂⠨⠮⠒"}, {"ぎゅうにゅう", "⠘⠩⠒⠈⠍⠒"},
    // the small つ
    {"切手", "⠣⠂⠟"}, {"ロケット", "⠚⠫⠂⠞"}, {"学校", "⠐⠡⠂⠪⠒"}, {"がっこう", "⠐⠡⠂⠪⠒"},
    // a long vowel or small kana that MeCab splits off stays in its word
    {"すごーい", "⠹⠐⠪⠒⠃"}, {"きゃりー", "⠈⠡⠓⠒"},
    // long vowels: ー for the u and o rows, イ kept for えい
    {"空気", "⠩⠒⠣"}, {"東京", "⠞⠒⠈⠪⠒"}, {"コーヒー", "⠪⠒⠧⠒"}, {"先生", "⠻⠴⠻⠃"},
    {"丁寧", "⠟⠃⠏⠃"}, {"映画", "⠋⠃⠐⠡"},
    // the particles は へ を, joined to their word
    {"私は学生です", "⠄⠕⠳⠄⠀⠐⠡⠩⠻⠃⠐⠟⠹"}, {"東京へ行く", "⠞⠒⠈⠪⠒⠋⠀⠃⠩"},
    {"辞書を引く", "⠐⠳⠈⠺⠔⠀⠧⠩"}, {"犬が好き", "⠃⠍⠐⠡⠀⠹⠣"}, {"NHKは", "⠰⠠⠠⠝⠓⠅⠤⠄"},
    // numbers: the number sign, the decimal point and the thousands
    // mark, the joining sign before a kana of the ア and ラ rows
    {"123", "⠼⠁⠃⠉"}, {"2024年", "⠼⠃⠚⠃⠙⠏⠴"}, {"3月", "⠼⠉⠐⠡⠝"}, {"3.14", "⠼⠉⠂⠁⠙"},
    {"1,000", "⠼⠁⠄⠚⠚⠚"}, {"5円", "⠼⠑⠤⠋⠴"}, {"１０人", "⠼⠁⠚⠇⠴"},
    // Latin letters, capitals, a word of capitals
    {"abc", "⠰⠁⠃⠉"}, {"Tokyo", "⠰⠠⠞⠕⠅⠽⠕"}, {"NHK", "⠰⠠⠠⠝⠓⠅"},
    {"ＣＤ", "⠰⠠⠠⠉⠙"}, {"Tシャツ", "⠰⠠⠞⠤⠈⠱⠝"}, {"[A121]", "⠶⠰⠠⠁⠼⠁⠃⠁⠶"},
    // punctuation, with the blanks behind it
    {"はい。", "⠥⠃⠲"}, {"はい、いいえ", "⠥⠃⠰⠀⠃⠃⠋"}, {"本当？", "⠮⠴⠞⠒⠢"},
    {"すごい！", "⠹⠐⠪⠃⠖"}, {"雨。雪", "⠁⠿⠲⠀⠀⠬⠣"}, {"「花」", "⠤⠥⠅⠤"},
    // the sounds of loanwords
    {"パーティー", "⠠⠥⠒⠈⠗⠒"}, {"ファイル", "⠢⠥⠃⠙"}, {"ヴァイオリン", "⠲⠥⠃⠊⠓⠴"},
    {"ウェブ", "⠢⠋⠐⠭"}, {"フォーク", "⠢⠮⠒⠩"}, {"ディスク", "⠘⠗⠹⠩"},
    {"チェック", "⠈⠟⠂⠩"}, {"シェア", "⠈⠻⠁"}, {"ジェット", "⠘⠻⠂⠞"},
    {"デュエット", "⠸⠝⠋⠂⠞"}, {"ヴ", "⠐⠉"},
    // word spacing
    {"勉強する", "⠐⠯⠴⠈⠪⠒⠹⠙"}, {"見ている", "⠷⠟⠀⠃⠙"},
    {"国際連合", "⠪⠩⠱⠃⠀⠛⠴⠐⠪⠒"}, {"東京駅", "⠞⠒⠈⠪⠒⠋⠣"},
    {"読み始める", "⠜⠷⠥⠐⠳⠿⠙"}, {"本を読む", "⠮⠴⠔⠀⠜⠽"},
    {"検索結果:はな【花】", "⠫⠴⠱⠩⠀⠫⠂⠡⠐⠂⠥⠅⠀⠶⠥⠅⠶"},
};

TEST(BrailleCellsTest, WordsAndPhrasesOfTheTable) {
  for (const Case& c : kCases)
    EXPECT_EQ(Utf8(BrailleCells(Utf16(c.text))), c.cells) << c.text;
}

// The character each cell comes from, for cursor routing: from one
// translation of the whole line, which MeCab may read otherwise than its
// beginning alone (小豆 アズキ, 小豆島 ショードシマ; 一人 イチニン,
// 一人暮らし ヒトリグラシ; 日本 ニッポン, 日本橋 ニホンバシ).
TEST(BrailleCellsTest, EachCellKnowsTheCharacterItComesFrom) {
  const struct {
    const char16_t* text;
    std::vector<int> sources;  // one a cell
  } cases[] = {
      {u"小豆島", {0, 0, 0, 0, 0, 0, 0}},
      {u"一人暮らし", {0, 0, 0, 0, 0, 3, 4}},
      {u"日本橋に", {0, 0, 0, 0, 0, 0, 3}},
      {u"今日は 晴れ", {0, 0, 0, 2, 3, 4, 5}},
      {u"ｶﾞｽ 12。A", {0, 0, 2, 3, 4, 4, 5, 6, 7, 7, 7, 7, 7}},
      {u"Tシャツ", {0, 0, 0, 1, 1, 1, 3}},
  };
  for (const auto& c : cases) {
    std::vector<int> sources;
    EXPECT_EQ(BrailleCellsWithSources(c.text, sources), BrailleCells(c.text));
    EXPECT_EQ(sources, c.sources) << Utf8(c.text);
  }
  // Every line of the table: a source for each cell, never falling.
  for (const Case& c : kCases) {
    const std::u16string text = Utf16(c.text);
    std::vector<int> sources;
    const std::u16string cells = BrailleCellsWithSources(text, sources);
    EXPECT_EQ(cells.size(), sources.size());
    EXPECT_TRUE(std::is_sorted(sources.begin(), sources.end())) << c.text;
    EXPECT_TRUE(sources.empty() || (sources[0] >= 0 && sources.back() < int(text.size()))) << c.text;
  }
}

TEST(SpeechReadingTest, KanjiReadAsSpokenWithParticlesAsSaid) {
  EXPECT_EQ(Utf8(SpeechReading(u"私は学校へ行きます")), "ワタシワガッコーエイキマス");
  EXPECT_EQ(Utf8(SpeechReading(u"先生を見た")), "センセイヲミタ");
  // A は opening the text is no particle: the head word はな.
  EXPECT_EQ(Utf8(SpeechReading(u"はな")), "ハナ");
  EXPECT_EQ(Utf8(SpeechReading(u"3月1日")), "3ガツ1ニチ");
  EXPECT_EQ(Utf8(SpeechReading(u"検索結果:はな【花】")), "ケンサクケッカ:ハナ【ハナ】");
  // Marks the dictionary lists as reading themselves are read by name.
  EXPECT_EQ(Utf8(SpeechReading(u"どうじょう【仝】 のま【々】 人々")), "ドージョー【ドー】 ノマ【ノマ】 ヒトビト");
  EXPECT_EQ(Utf8(BrailleCells(u"〆")), "⠳⠿");
}

TEST(SpeechReadingTest, DigitsLettersAndSymbolsPassThrough) {
  EXPECT_EQ(Utf8(SpeechReading(u"ABC 123 [A121]")), "ABC 123 [A121]");
  EXPECT_EQ(Utf8(SpeechReading(u"ＡＢ１２")), "AB12");
  EXPECT_EQ(Utf8(SpeechReading(u"いぬ\n動物")), "イヌ\nドーブツ");
}

// Empty and blank texts give nothing; what has no kana (a snowman, an
// emoji's surrogate pair) speech keeps and Braille marks with one full cell
// each; lone surrogates and controls are read around.
TEST(ReadingTest, TextsWithoutReadings) {
  EXPECT_EQ(SpeechReading(u""), u"");
  EXPECT_EQ(BrailleKana(u""), u"");
  EXPECT_EQ(BrailleCells(u" \t\n "), u"");
  EXPECT_EQ(Utf8(SpeechReading(u"☃")), "☃");
  EXPECT_EQ(Utf8(BrailleCells(u"☃😀はな")), "⠿⠿⠥⠅");
  const std::u16string broken{u'\xD800', u'あ', u'\xDC00', u'\0', u'い'};
  EXPECT_EQ(Utf8(SpeechReading(broken)), "\xEF\xBF\xBD" "ア\xEF\xBF\xBD イ");
  EXPECT_EQ(Utf8(BrailleCells(broken)), "⠿⠁⠿⠀⠃");
}

TEST(ReadingTest, LongTextIsReadWhole) {
  std::u16string text;
  while (text.size() < 100000) text += u"私は学校へ行きます。";
  const std::u16string speech = SpeechReading(text);
  EXPECT_EQ(std::count_if(speech.begin(), speech.end(), IsKanji), 0);
  EXPECT_NE(speech.find(u"ワタシワガッコーエイキマス。"), std::u16string::npos);
  const std::u16string cells = BrailleCells(text);
  EXPECT_GT(cells.size(), text.size());
  EXPECT_TRUE(std::all_of(cells.begin(), cells.end(),
                          [](char16_t ch) { return ch >= 0x2800 && ch <= 0x28FF; }));
}

}  // namespace
