#include "results/typed_word_forms.h"

#include <gtest/gtest.h>

namespace {

std::vector<CString> Forms(const char16_t* word) { return TypedWordForms(CString(word)); }

TEST(TypedWordForms, BlanksSymbolsFullWidthAndRomajiInOrder) {
  EXPECT_EQ(WithoutBlanksAndSymbols(u"ア・ラ・カルト"), CString(u"アラカルト"));
  EXPECT_EQ(WithoutBlanksAndSymbols(u" a\u3000b\tc･d‐e－f-g "), CString(u"abcdefg"));
  EXPECT_EQ(WithoutBlanksAndSymbols(u"―ー〜"), CString(u"―ー〜"));  // dashes and long marks stay
  EXPECT_EQ(WithAsciiLettersAndDigits(u"ＡＺａｚ０９ア＠"), CString(u"AZaz09ア＠"));

  // each step builds on the one before (the single steps: the typed words' run)
  EXPECT_EQ(Forms(u"ｇａｋ ｋｏｕ"),
            std::vector<CString>({u"ｇａｋｋｏｕ", u"gakkou", u"がっこう"}));
  EXPECT_EQ(Forms(u"kon'ya"), std::vector<CString>({u"こんや"}));
  // Nothing new is tried again.
  EXPECT_TRUE(Forms(u"はな").empty());
  EXPECT_TRUE(Forms(u"apple").empty());
  EXPECT_TRUE(Forms(u"・ ").empty());                           // nothing is left to look up
  EXPECT_EQ(Forms(u"ｉｃｅ"), std::vector<CString>({u"ice"}));  // no romaji
}

}  // namespace
