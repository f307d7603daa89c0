#include "platform/char_class.h"

#include <gtest/gtest.h>

#include <string_view>

TEST(CharClass, HalfWidthVerdict) {
  for (char16_t ch : std::u16string_view(u"aZ0 ~\u00e9ｱﾝﾞ･｡\uFFE8")) EXPECT_TRUE(IsHalfWidth(ch)) << int(ch);
  for (char16_t ch : std::u16string_view(u"あア漢ＡＺ０\u3000・ー￥")) EXPECT_FALSE(IsHalfWidth(ch)) << int(ch);

  uint16_t types[3] = {};
  ASSERT_TRUE(GetStringTypeExW(LOCALE_SYSTEM_DEFAULT, CT_CTYPE3, u"aあｱ", 3, types));
  EXPECT_EQ(types[0] & C3_HALFWIDTH, C3_HALFWIDTH);
  EXPECT_EQ(types[1] & C3_HALFWIDTH, 0);
  EXPECT_EQ(types[1] & C3_FULLWIDTH, C3_FULLWIDTH);
  EXPECT_EQ(types[2] & C3_HALFWIDTH, C3_HALFWIDTH);
  EXPECT_FALSE(GetStringTypeExW(LOCALE_SYSTEM_DEFAULT, 1, u"a", 1, types));
}

TEST(CharClass, DigitsAndLetters) {
  for (char16_t ch : std::u16string_view(u"09０９")) EXPECT_TRUE(IsWideCharClass(ch, WCLASS_DIGIT)) << int(ch);
  for (char16_t ch : std::u16string_view(u"a|①¹")) EXPECT_FALSE(IsWideCharClass(ch, WCLASS_DIGIT)) << int(ch);
  for (char16_t ch : std::u16string_view(u"aZéßɔαЖあアーｱ漢Ｑ")) EXPECT_TRUE(IsWideCharClass(ch, WCLASS_ALPHA)) << int(ch);
  for (char16_t ch : std::u16string_view(u"1 -･・|、")) EXPECT_FALSE(IsWideCharClass(ch, WCLASS_ALPHA)) << int(ch);
  EXPECT_TRUE(IsWideCharClass(u'Q', WCLASS_UPPER));
  EXPECT_FALSE(IsWideCharClass(u'q', WCLASS_UPPER));
}
