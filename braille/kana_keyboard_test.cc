// Japanese Braille typed cell by cell: a table of words and the signs that
// wait for their kana.
#include "braille/kana_keyboard.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "reading/braille_cells.h"
#include "reading/kana_text.h"

namespace {

// Types the cells of `cells`, written as dot numbers between blanks
// ("136 13"), on a fresh keyboard.
std::u16string TypeCells(const std::string& cells) {
  KanaKeyboard keyboard;
  std::u16string typed;
  std::istringstream words(cells);
  for (std::string word; words >> word;) {
    uint8_t dots = 0;
    EXPECT_TRUE(ParseDots(word, dots)) << word;
    typed += keyboard.Type(dots);
  }
  return typed;
}

struct Typed {
  const char* cells;        // dot numbers of each cell
  const char16_t* text;     // what they type
};

}  // namespace

// What the display's own cells (the next test) do not show: the long
// vowel, what ends a number, punctuation and blanks.
TEST(KanaKeyboardTest, WordsInJapaneseBraille) {
  const Typed kWords[] = {
      {"136 13", u"はな"},
      {"16 2 246 25", u"かっこー"},
      {"2345 25 4 246 25", u"とーきょー"},
      {"3456 1 3 245 245 245", u"1,000"},
      {"3456 12 36 1", u"2あ"},
      {"3456 14 0 1", u"3 あ"},
      {"3456 1 136", u"1は"},
      {"136 13 256", u"はな。"},
      {"1 56 12 26 235", u"あ、い？！"},
      {"136 0 13", u"は な"},
  };
  for (const Typed& word : kWords) EXPECT_EQ(TypeCells(word.cells), word.text) << word.cells;
}

// Whatever the display shows of a kana, typed cell by cell, types that
// kana: the keyboard reads the display's own translation backwards.
TEST(KanaKeyboardTest, TheCellsOfEveryKanaOnTheDisplayTypeItBack) {
  std::vector<std::u16string> words;
  for (char16_t kana = u'あ'; kana <= u'ゔ'; ++kana) {
    const std::u16string word(1, kana);
    // Small kana share the cells of their full-size ones; ゑ shares ⠖ with ！.
    if (CountMorae(ToKatakana(word)) == 1 && kana != u'ゑ') words.push_back(word);
  }
  for (char16_t kana : std::u16string_view(u"きしちにひみりぎじぢびぴ"))
    for (char16_t small : std::u16string_view(u"ゃゅょ")) words.push_back({kana, small});
  words.push_back(u"1234567890");
  words.push_back(u"3.14");
  for (const std::u16string& word : words) {
    KanaKeyboard keyboard;
    std::u16string typed;
    for (char16_t cell : KanaToCells(ToKatakana(word)))
      typed += keyboard.Type(static_cast<uint8_t>(cell - 0x2800));
    EXPECT_EQ(typed, word);
  }
  EXPECT_GT(words.size(), 100u);
}

TEST(KanaKeyboardTest, SignsWaitForTheirKanaAndGoWhenTheyCannotBeUsed) {
  KanaKeyboard keyboard;
  EXPECT_EQ(keyboard.Type(0x10), u"");     // ⠐ waits
  EXPECT_EQ(keyboard.Type(0x25), u"ば");   // ⠥ は
  EXPECT_EQ(keyboard.Type(0x10), u"");
  keyboard.Reset();                         // another key came between
  EXPECT_EQ(keyboard.Type(0x25), u"は");
  // A sign with a kana it does not go with is dropped.
  EXPECT_EQ(TypeCells("5 13"), u"な");
  EXPECT_EQ(TypeCells("6 16"), u"か");
  EXPECT_EQ(TypeCells("4 1"), u"あ");
  EXPECT_EQ(TypeCells("45 13"), u"な");
  // Cells that mean nothing type nothing; dots 7 and 8 are no kana.
  EXPECT_EQ(TypeCells("1236 7 8 1"), u"ひあ");
  EXPECT_EQ(TypeCells("3456 7 1"), u"あ");
}

TEST(KanaKeyboardTest, DotNumbersAreParsedStrictly) {
  uint8_t dots = 0;
  EXPECT_TRUE(ParseDots("136", dots));
  EXPECT_EQ(dots, 0x25);
  EXPECT_TRUE(ParseDots("0", dots));
  EXPECT_EQ(dots, 0);
  EXPECT_TRUE(ParseDots("87654321", dots));
  EXPECT_EQ(dots, 0xFF);
  for (const char* bad : {"", "9", "11", "1a", "01", "-1"}) EXPECT_FALSE(ParseDots(bad, dots)) << bad;
}
