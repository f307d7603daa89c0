#include "results/work_file_parser.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/code_page.h"

namespace {

// The work file's bytes for a UTF-8 text, as the engine writes them.
std::string Sjis(const char16_t* text) { return EncodeMultiByte(text); }

struct Parsed {
  ResultItemArray articles;
  ResultItemArray candidates;
};

Parsed Parse(const std::string& bytes) {
  Parsed parsed;
  ParseWorkFile(bytes, parsed.articles, parsed.candidates);
  return parsed;
}

TEST(CandidateSearchKey, WorkedCases) {
  EXPECT_EQ(CandidateSearchKey(u"あいさつ【挨拶】"), CString(u"あいさつ"));
  EXPECT_EQ(CandidateSearchKey(u"abandon〔名〕"), CString(u"abandon"));
  EXPECT_EQ(CandidateSearchKey(u"○ことば"), CString(u"ことば"));
  EXPECT_EQ(CandidateSearchKey(u"ab-so-lute あぶ"), CString(u"absolute"));
  EXPECT_EQ(CandidateSearchKey(u"[A121]"), CString());
  EXPECT_EQ(CandidateSearchKey(u"〔a〔b〕c〕"), CString(u"c"));  // cut to "c〕"
  EXPECT_EQ(CandidateSearchKey(u"あい【愛"), CString(u"あい【愛"));
  EXPECT_EQ(CandidateSearchKey(u"あ】い【う"), CString(u"あ】い【う"));  // 】 before 【: no cut
  EXPECT_EQ(CandidateSearchKey(u"○ア・イ-ウ"), CString(u"ア・イ-ウ"));
  EXPECT_EQ(CandidateSearchKey(u"-abc"), CString(u"abc"));
  EXPECT_EQ(CandidateSearchKey(u"ｱｲ･ｳ　x"), CString(u"ｱｲｳ"));  // half-width kana, its dot goes
  EXPECT_EQ(CandidateSearchKey(u"日本　語(にほん)abc"), CString(u"日本語"));
  EXPECT_EQ(CandidateSearchKey(u"(x) 語"), CString());  // a blank run is no key
}

TEST(ParseWorkFile, Articles) {
  Parsed one = Parse(Sjis(u"\u3000 見出し \n\n本文　一\n\n  \n本文 二\n<次項目:12>\n\n"));
  ASSERT_EQ(one.articles.size(), 1u);
  EXPECT_EQ(one.articles[0].head, CString(u"見出し"));
  EXPECT_EQ(one.articles[0].body, CString(u"見出し\r\n本文　一\r\n本文 二"));
  EXPECT_TRUE(one.candidates.empty());

  Parsed two = Parse(Sjis(u"a\n<次項目:>\n<次項目:1>\nb\n<次項目:2>\nopen\nend"));
  ASSERT_EQ(two.articles.size(), 3u);
  EXPECT_EQ(two.articles[0].body, CString(u"a"));
  EXPECT_EQ(two.articles[1].head, CString());  // two markers in a row
  EXPECT_EQ(two.articles[1].body, CString());
  EXPECT_EQ(two.articles[2].head, CString(u"b"));  // the unclosed article is dropped

  EXPECT_TRUE(Parse(Sjis(u"no hit here\n")).articles.empty());
  EXPECT_TRUE(Parse("").articles.empty());
}

TEST(ParseWorkFile, SectionLineAndCandidates) {
  Parsed parsed = Parse(Sjis(u"x\n<次項目:1>\nthrown away\n<項目一覧>　\n"
                             u"あい【愛】\nあい【藍】\n[A121]\nあい【愛】\nab-c\n<次項目:9>\nlater\n"));
  ASSERT_EQ(parsed.articles.size(), 1u);
  ASSERT_EQ(parsed.candidates.size(), 3u);
  EXPECT_EQ(parsed.candidates[0].head, CString(u"あい【愛】"));
  EXPECT_EQ(parsed.candidates[0].body, CString(u"あい"));
  EXPECT_EQ(parsed.candidates[1].body, CString(u"あい"));  // same key, other head: listed
  EXPECT_EQ(parsed.candidates[2].body, CString(u"abc"));

  Parsed other = Parse(Sjis(u"<項目一覧>x\n<次項目:1>\n"));  // not the section line
  ASSERT_EQ(other.articles.size(), 1u);
  EXPECT_EQ(other.articles[0].head, CString(u"<項目一覧>x"));
  EXPECT_TRUE(other.candidates.empty());
}

TEST(ParseWorkFile, LongLinesArriveInReadsThatSplitNoCharacter) {
  // 1022 bytes of "a", then あ: the read of 1023 bytes stops before the
  // lead byte, which arrives whole with its trail in the next read.
  std::string bytes = std::string(1022, 'a') + "\x82\xa0" + "b\n" + Sjis(u"<次項目:1>\n");
  Parsed parsed = Parse(bytes);
  ASSERT_EQ(parsed.articles.size(), 1u);
  EXPECT_EQ(parsed.articles[0].head, CString(u'a', 1022));
  EXPECT_EQ(parsed.articles[0].body, CString(u'a', 1022) + u"\r\nあb");

  Parsed cut = Parse(std::string(2000, 'z') + "\x82");  // a lone lead byte at the end
  EXPECT_TRUE(cut.articles.empty());
  Parsed nul = Parse(std::string("ab\0cd\n", 6) + Sjis(u"<次項目:1>\n"));
  ASSERT_EQ(nul.articles.size(), 1u);
  EXPECT_EQ(nul.articles[0].head, CString(u"ab"));
}

}  // namespace
