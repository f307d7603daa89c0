#include "platform/code_page.h"

#include <gtest/gtest.h>

TEST(CodePage, RoundTripsThroughCp932) {
  const std::u16string text = u"abc\\~ 半角ｶﾅ 全角ＡＢ 辞書①\u2015";
  std::string bytes = EncodeMultiByte(text);
  EXPECT_EQ(bytes.substr(0, 6), "abc\\~ ");
  EXPECT_EQ(DecodeMultiByte(bytes), text);
}

TEST(CodePage, SizeQueryThenConversion) {
  const char* bytes = "\x82\xa0" "a";  // あa
  EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, bytes, -1, nullptr, 0), 3);  // with the NUL
  EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, bytes, 3, nullptr, 0), 2);
  char16_t wide[3];
  EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, bytes, -1, wide, 2), 0);  // too small
  EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, bytes, -1, wide, 3), 3);
  EXPECT_EQ(std::u16string(wide), u"あa");
  EXPECT_EQ(MultiByteToWideChar(65001, 0, bytes, -1, wide, 3), 0);  // not CP932

  int length = WideCharToMultiByte(CP_ACP, 0, u"辞書", -1, nullptr, 0, nullptr, nullptr);
  ASSERT_EQ(length, 5);
  char narrow[5];
  EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, u"辞書", -1, narrow, 4, nullptr, nullptr), 0);
  EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, u"辞書", -1, narrow, length, nullptr, nullptr), 5);
  EXPECT_STREQ(narrow, "\x8e\xab\x8f\x91");
}

TEST(CodePage, InvalidBytesAndLoneLeadByteDecodeSafely) {
  EXPECT_EQ(DecodeMultiByte("a\x82"), u"a\u30FB");       // lead byte at the end
  EXPECT_EQ(DecodeMultiByte("\x82\n"), u"\u30FB\n");  // lead byte, then no trail
  EXPECT_EQ(DecodeMultiByte("\xfd" "b"), u"\u30FB" u"b");
  EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "\x82", 1, nullptr, 0), 1);
  // A reader that shows bad bytes otherwise names its own replacement.
  EXPECT_EQ(DecodeMultiByte("\xfd" "b\x82", u'\uFFFD'), u"\uFFFD" u"b\uFFFD");
}

TEST(CodePage, DefaultCharacterForWhatCp932Lacks) {
  int usedDefault = 0;
  char narrow[8] = {};
  // U+00E9 and U+1F600 (a surrogate pair) are not in CP932.
  const char16_t text[] = u"\u00e9x\U0001F600\xD800";
  EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, text, 5, narrow, 8, "*", &usedDefault), 4);
  EXPECT_EQ(std::string(narrow), "*x**");
  EXPECT_EQ(usedDefault, 1);
  EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, u"ok", 2, narrow, 8, nullptr, &usedDefault), 2);
  EXPECT_EQ(usedDefault, 0);
  EXPECT_EQ(EncodeMultiByte(u"\u00e9"), "?");
  // Text that must arrive unchanged gets nothing rather than a "?".
  EXPECT_EQ(EncodeMultiByteExactly(u"辞書a"), std::optional<std::string>("\x8e\xab\x8f\x91" "a"));
  EXPECT_EQ(EncodeMultiByteExactly(u"a\u00e9"), std::nullopt);
  EXPECT_EQ(EncodeMultiByteExactly(u"a\xD800"), std::nullopt) << "a lone surrogate";
  EXPECT_EQ(EncodeMultiByteExactly(u""), std::optional<std::string>(""));
}

TEST(CodePage, CutNeverSplitsACharacter) {
  const std::string bytes = "a\x82\xa0\x82\xa2";  // aあい
  EXPECT_EQ(CutAtCharBoundary(bytes, 2), 1u);
  EXPECT_EQ(CutAtCharBoundary(bytes, 3), 3u);
  EXPECT_EQ(CutAtCharBoundary(bytes, 99), 5u);
  EXPECT_EQ(CutAtCharBoundary("ab\x82", 3), 2u);  // a lead byte without its trail
}
