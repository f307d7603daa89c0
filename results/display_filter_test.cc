#include "results/display_filter.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/utf8_text.h"

namespace {

CString Filtered(void (*filter)(CString&), const char16_t* text) {
  CString copy(text);
  filter(copy);
  return copy;
}

TEST(DisplayFilter, LinksAndPhoneticSigns) {
  EXPECT_EQ(Filtered(StripLinks, u"見よ<→語|1234>。<→1234><→>"), CString(u"見よ語。"));
  EXPECT_EQ(Filtered(StripLinks, u"<→語><→語|1A><→語|12"), CString(u"<→語><→語|1A><→語|12"));
  EXPECT_EQ(Filtered(StripLinks, u"<→a|1|2>"), CString(u"a|1"));  // the last "|" cuts
  EXPECT_EQ(Filtered(StripLinks, u"<→<→x|1>|2>"), CString(u"x"));  // the text is seen again

  EXPECT_EQ(Filtered(StripPhoneticSigns, u"a//b /abc/ c"), CString(u"ab  c"));
  EXPECT_EQ(Filtered(StripPhoneticSigns, u"/abc語/def/"), CString(u"/abc語"));
  EXPECT_EQ(Filtered(StripPhoneticSigns, u"a/b"), CString(u"a/b"));
  EXPECT_EQ(Filtered(StripPhoneticSigns, u"/ab\r\ncd/"), CString(u"/ab\r\ncd/"));
}

TEST(DisplayFilter, SyllableMarksAndGaijiCodes) {
  EXPECT_EQ(Filtered(ShowSyllableMarks, u"a･b･c ･a･"), CString(u"a-b-c ･a･"));
  EXPECT_EQ(Filtered(HideSyllableMarks, u"a･b･c a･･b ア･イ 1･2"), CString(u"abc a･･b アイ 1･2"));

  EXPECT_FALSE(IsGaijiCode(u"[a121]"));
  EXPECT_FALSE(IsGaijiCode(u"[A1211]"));
  EXPECT_EQ(Filtered(StripGaijiCodes, u"[a121][A12]x[[A121]"), CString(u"[a121][A12]x["));

  // Rows act in order, each on what the rows before it made.
  GaijiMappingArray table = {{u"[A121]", u"[B000]"}, {u"[B000]", u"ä"}, {u"[A121]", u"unused"}};
  CString text(u"[A121]-[A121]");
  ApplyGaijiTable(text, table);
  EXPECT_EQ(text, CString(u"ä-ä"));
}

TEST(DisplayFilter, ChainFollowsTheOptions) {
  GaijiMappingArray table = {{u"[A121]", u"é"}};
  const CString text(u"<→a･b|12>/ph/[A121][A122]");
  DisplayOptions options;  // defaults: replace on, all else off
  EXPECT_EQ(FilterDisplayText(text, options, table), CString(u"abé"));
  options.gaijiVisible = 2;  // any nonzero value is on
  EXPECT_EQ(FilterDisplayText(text, options, table), CString(u"abé[A122]"));
  options.gaijiReplace = 0;
  EXPECT_EQ(FilterDisplayText(text, options, table), CString(u"ab[A121][A122]"));
  options = {0, 0, 1, 1, 1};
  EXPECT_EQ(FilterDisplayText(text, options, table), CString(u"<→a-b|12>/ph/"));
  EXPECT_EQ(FilterDisplayText(CString(), options, table), CString());
}

// Texts of megabytes, where deleting in place took minutes, pass at once.
TEST(DisplayFilter, LongTextsPassInOneSweep) {
  const struct {
    void (*filter)(CString&);
    const char16_t* unit;  // repeated 200000 times
    const char16_t* left;  // what is left of each
    const char16_t* tail;  // and behind them
  } cases[] = {{StripGaijiCodes, u"[A121]x", u"x", u""},
               {StripLinks, u"<→a|1>", u"a", u""},
               {StripPhoneticSigns, u"//", u"", u""},
               {HideSyllableMarks, u"a･", u"a", u"･"}};
  for (const auto& c : cases) {
    std::u16string text, left;
    for (int i = 0; i < 200000; ++i) {
      text += c.unit;
      left += c.left;
    }
    CString filtered(text);
    c.filter(filtered);
    EXPECT_EQ(filtered, CString(left + c.tail)) << ToUtf8(CString(c.unit));
  }
}

}  // namespace
