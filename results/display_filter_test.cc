#include "results/display_filter.h"

#include <gtest/gtest.h>

namespace {

CString Filtered(void (*filter)(CString&), const char16_t* text) {
  CString copy(text);
  filter(copy);
  return copy;
}

TEST(DisplayFilter, StripLinks) {
  EXPECT_EQ(Filtered(StripLinks, u"見よ<→語|1234>。"), CString(u"見よ語。"));
  EXPECT_EQ(Filtered(StripLinks, u"a<→1234>b"), CString(u"ab"));
  EXPECT_EQ(Filtered(StripLinks, u"<→>"), CString());
  EXPECT_EQ(Filtered(StripLinks, u"<→語>"), CString(u"<→語>"));
  EXPECT_EQ(Filtered(StripLinks, u"<→語|12"), CString(u"<→語|12"));
  EXPECT_EQ(Filtered(StripLinks, u"<→語|1A>"), CString(u"<→語|1A>"));
  EXPECT_EQ(Filtered(StripLinks, u"<→a|1|2>"), CString(u"a|1"));  // the last "|" cuts
  EXPECT_EQ(Filtered(StripLinks, u"<b><→<→x|1>|2>"), CString(u"<b>x"));  // the text is seen again
  EXPECT_EQ(Filtered(StripLinks, u"<→x> <→y|9>"), CString(u"<→x> y"));
}

TEST(DisplayFilter, StripPhoneticSigns) {
  EXPECT_EQ(Filtered(StripPhoneticSigns, u"a//b"), CString(u"ab"));
  EXPECT_EQ(Filtered(StripPhoneticSigns, u"x /abc/ y"), CString(u"x  y"));
  EXPECT_EQ(Filtered(StripPhoneticSigns, u"/abc語/"), CString(u"/abc語/"));
  EXPECT_EQ(Filtered(StripPhoneticSigns, u"a/b"), CString(u"a/b"));
  EXPECT_EQ(Filtered(StripPhoneticSigns, u"/abc語/def/"), CString(u"/abc語"));
  EXPECT_EQ(Filtered(StripPhoneticSigns, u"/ab\r\ncd/"), CString(u"/ab\r\ncd/"));
  EXPECT_EQ(Filtered(StripPhoneticSigns, u"/\u00e6/"), CString());  // below U+0100
}

TEST(DisplayFilter, SyllableMarks) {
  EXPECT_EQ(Filtered(ShowSyllableMarks, u"a･b･c"), CString(u"a-b-c"));
  EXPECT_EQ(Filtered(HideSyllableMarks, u"a･b･c"), CString(u"abc"));
  EXPECT_EQ(Filtered(ShowSyllableMarks, u"a･･b"), CString(u"a･･b"));
  EXPECT_EQ(Filtered(HideSyllableMarks, u"a･･b"), CString(u"a･･b"));
  EXPECT_EQ(Filtered(ShowSyllableMarks, u"･a･"), CString(u"･a･"));  // index 0 and the end
  EXPECT_EQ(Filtered(HideSyllableMarks, u"1･2 ア･イ"), CString(u"1･2 アイ"));
}

TEST(DisplayFilter, GaijiCodes) {
  EXPECT_TRUE(IsGaijiCode(u"[A121]"));
  EXPECT_FALSE(IsGaijiCode(u"[a121]"));
  EXPECT_FALSE(IsGaijiCode(u"[A12]"));
  EXPECT_FALSE(IsGaijiCode(u"[A1211]"));
  EXPECT_EQ(Filtered(StripGaijiCodes, u"[a121][A12]x[A121]"), CString(u"[a121][A12]x"));
  EXPECT_EQ(Filtered(StripGaijiCodes, u"[[A121]"), CString(u"["));
  EXPECT_EQ(Filtered(StripGaijiCodes, u"[B001][B002]"), CString());

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
  options.gaijiVisible = 0;
  EXPECT_EQ(FilterDisplayText(text, options, table), CString(u"ab"));
  options.syllableVisible = 1;
  options.phSignsVisible = 1;
  options.linkVisible = 1;
  EXPECT_EQ(FilterDisplayText(text, options, table), CString(u"<→a-b|12>/ph/"));
  EXPECT_EQ(FilterDisplayText(CString(), options, table), CString());
}

}  // namespace
