#include "store/ini_value_escape.h"

#include <gtest/gtest.h>

TEST(IniValueEscape, WhatItCannotCarryBecomesReferencesAndComesBack) {
  const std::pair<std::u16string, const char16_t*> cases[] = {
      {u"a\nb\rc\td", u"a&#xA;b&#xD;c&#x9;d"},
      {std::u16string(u"nul\0", 4) + u"\x7F", u"nul&#x0;&#x7F;"},
      {u"caf\u00e9 \U0001F600", u"caf&#xE9; &#x1F600;"},
      {u"&#x41;&#", u"&#x26;#x41;&#x26;#"},
      {u"\xD800 lone", u"&#xD800; lone"},
      {u" My Dict & 広辞苑\u3000#x41; ", u" My Dict & 広辞苑\u3000#x41; "},  // as it is
  };
  for (const auto& [value, written] : cases) {
    EXPECT_EQ(EscapeIniValue(value), CString(written));
    EXPECT_EQ(UnescapeIniValue(written), CString(value));
  }
}

TEST(IniValueEscape, MalformedReferencesStayText) {
  for (const char16_t* text : {u"&#x;", u"&#x41", u"&#xG;", u"&#x1234567;", u"&#x110000;",
                               u"&#41;", u"&#X41;", u"&amp;"}) {
    EXPECT_EQ(UnescapeIniValue(text), CString(text));
  }
  EXPECT_EQ(UnescapeIniValue(u"&&#x26;#x"), CString(u"&&#x"));
  EXPECT_EQ(UnescapeIniValue(u"&#x10FFFF;&#x3042;"), CString(u"\U0010FFFFあ"));
}
