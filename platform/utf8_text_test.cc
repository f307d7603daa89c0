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

}  // namespace
