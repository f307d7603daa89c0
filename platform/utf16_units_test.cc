#include "platform/utf16_units.h"

#include <gtest/gtest.h>

namespace {

TEST(Utf16Units, PairsCodeWhatLiesAboveTheBasicPlane) {
  std::u16string units;
  for (char32_t value : {U'a', U'\uFFFF', U'\U00010000', U'\U00020B9F', U'\U0010FFFF'})
    AppendCodePoint(units, value);
  EXPECT_EQ(units, u"a\uFFFF\U00010000\U00020B9F\U0010FFFF");
  EXPECT_EQ(CodePointOfPair(units[4], units[5]), U'\U00020B9F');
  EXPECT_EQ(CodePointOfPair(units[6], units[7]), U'\U0010FFFF');

  // A pair is one character; a lone half, or two halves the wrong way
  // round, are one unit each.
  const std::u16string mixed = u"\U00020B9F" u"\xD800" u"a" u"\xDC00\xD800";
  EXPECT_EQ(CharacterUnits(mixed, 0), 2u);
  EXPECT_EQ(CharacterUnits(mixed, 2), 1u);
  EXPECT_EQ(CharacterUnits(mixed, 4), 1u);
  EXPECT_EQ(CharacterUnits(mixed, 5), 1u) << "a high half at the very end";
  EXPECT_TRUE(IsSurrogate(mixed[2]));
  EXPECT_FALSE(IsSurrogate(U'\uE000'));
}

}  // namespace
