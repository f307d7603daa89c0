#include "platform/utf8_text.h"

#include <gtest/gtest.h>

namespace {

TEST(Utf8Test, RoundTripsAndReplacesBadInput) {
  const CString text(u"かな\U00020B9F abc");
  EXPECT_EQ(FromUtf8(ToUtf8(text)), text);
  EXPECT_EQ(ToUtf8(CString(u"\xD800x")), "\xEF\xBF\xBDx");  // lone surrogate
  EXPECT_EQ(FromUtf8("a\xFF\xC3"), CString(u"a\xFFFD\xFFFD"));
  EXPECT_EQ(FromUtf8("\xC0\xAF"), CString(u"\xFFFD\xFFFD"));  // overlong
}

TEST(Utf8Test, TellsWholeTextAndACharacterCutAtTheEnd) {
  EXPECT_TRUE(IsUtf8(""));
  EXPECT_TRUE(IsUtf8("a\xE3\x81\x82\xF0\xA0\xAE\x9F"));  // aあ𠮟
  EXPECT_FALSE(IsUtf8("\xE3\x81")) << "cut short";
  EXPECT_FALSE(IsUtf8("\x82\xA0")) << "Shift-JIS あ";
  EXPECT_FALSE(IsUtf8("\xC0\xAF")) << "overlong";
  EXPECT_FALSE(IsUtf8("\xED\xA0\x80")) << "a surrogate";
  EXPECT_FALSE(IsUtf8("\xF4\x90\x80\x80")) << "past U+10FFFF";

  // Only a lead byte with too few of its continuation bytes, at the very
  // end, is held back; a whole text or a broken one is all there is.
  EXPECT_EQ(Utf8WholeLength("ab"), 2u);
  EXPECT_EQ(Utf8WholeLength("a\xE3"), 1u);
  EXPECT_EQ(Utf8WholeLength("a\xE3\x81"), 1u);
  EXPECT_EQ(Utf8WholeLength("a\xE3\x81\x82"), 4u);
  EXPECT_EQ(Utf8WholeLength("\xF0\xA0\xAE"), 0u);
  EXPECT_EQ(Utf8WholeLength("\xF0\xA0\xAE\x9F"), 4u);
  EXPECT_EQ(Utf8WholeLength("a\x81\x82"), 3u) << "continuation bytes with no lead";
  EXPECT_EQ(Utf8WholeLength("\xE3\x81\x82\x80"), 4u) << "one too many: bad, not cut";
}

}  // namespace
