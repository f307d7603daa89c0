#include "platform/wide_string.h"

#include <gtest/gtest.h>

TEST(WideString, IndexesOutOfRangeClamp) {
  CString text(u"abc");
  EXPECT_EQ(text.GetAt(-1), 0);
  EXPECT_EQ(text.GetAt(3), 0);
  text.SetAt(3, u'x');
  EXPECT_EQ(text, CString(u"abc"));
  EXPECT_EQ(text.Left(-2), CString());
  EXPECT_EQ(text.Left(10), text);
  EXPECT_EQ(text.Right(2), CString(u"bc"));
  EXPECT_EQ(text.Right(10), text);
  EXPECT_EQ(text.Mid(2), CString(u"c"));
  EXPECT_EQ(text.Mid(-1, 2), CString(u"ab"));
  EXPECT_EQ(text.Mid(5), CString());
  EXPECT_EQ(CString(u"abcdef").Delete(4, 10), 4);
  EXPECT_EQ(CString(u"abc").Delete(5, 1), 3);
  CString empty;
  EXPECT_EQ(empty.Delete(0, 1), 0);
  EXPECT_EQ(empty.Find(u'a'), -1);
}

TEST(WideString, FindFromIndex) {
  CString text(u"<→12>x<→3>");
  EXPECT_EQ(text.Find(u"<→", 1), 6);
  EXPECT_EQ(text.Find(u'x', -4), 5);
  EXPECT_EQ(text.Find(u">", 10), -1);
  EXPECT_EQ(text.Find(u"", 10), 10);  // an empty text is found at the end, not past it
  EXPECT_EQ(text.Find(u"", 11), -1);
}

TEST(WideString, ReplaceRemoveAndTrim) {
  CString text(u"aaa");
  EXPECT_EQ(text.Replace(u"a", u"aa"), 3);  // a replacement is not searched again
  EXPECT_EQ(text, CString(u"aaaaaa"));
  EXPECT_EQ(text.Replace(u"", u"x"), 0);
  CString name(u"[A121] 見出し");
  EXPECT_EQ(name.Replace(u"[A121]", u"⠿"), 1);
  EXPECT_EQ(name, CString(u"⠿ 見出し"));
  CString line(u"a b\nc ");
  EXPECT_EQ(line.Remove(u' '), 2);
  EXPECT_EQ(line, CString(u"ab\nc"));

  const CString trimSet(u"\u3000 \r\n");
  CString padded(u"\u3000 \tword\t \r\n");
  EXPECT_EQ(padded.TrimRight(trimSet), CString(u"\u3000 \tword\t"));
  EXPECT_EQ(padded.TrimLeft(trimSet), CString(u"\tword\t"));
  CString blank(u" \r\n");
  EXPECT_TRUE(blank.Trim(trimSet).IsEmpty());
}

TEST(WideString, FormatAndCompare) {
  CString text;
  text.Format(u"%s_%04d", u"TITLE", 7);
  EXPECT_EQ(text, CString(u"TITLE_0007"));
  text.Format(u"[%04X]%d|%-3s|%3d|%05d|%%|%c|%ld|%q", 0xA121u, -12, u"ab", 5, -42, u'あ', 123456789L);
  EXPECT_EQ(text, CString(u"[A121]-12|ab |  5|-0042|%|あ|123456789|%q"));
  text.Format(u"%s%", nullptr);
  EXPECT_EQ(text, CString(u"(null)%"));

  EXPECT_LT(CString(u"A").Compare(u"a"), 0);
  EXPECT_NE(CString(u"abc"), CString(u"ABC"));
  EXPECT_EQ(CString(u"ab") + u"c" + CString(u'!', 2), CString(u"abc!!"));
}

TEST(WideString, NumbersAsTheRuntimeReadsThem) {
  EXPECT_EQ(WideToLong(u"42"), 42);
  EXPECT_EQ(WideToLong(u" \t-7x"), -7);
  EXPECT_EQ(WideToLong(u""), 0);
  EXPECT_EQ(WideToLong(u"abc"), 0);
  EXPECT_EQ(WideToLong(u"99999999999"), INT32_MAX);
  EXPECT_EQ(WideToLong(u"-2147483648"), INT32_MIN);
}
