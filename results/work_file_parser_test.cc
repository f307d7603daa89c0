#include "results/work_file_parser.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/code_page.h"

namespace {

struct Parsed {
  ResultItemArray articles;
  ResultItemArray candidates;
};

// The lists of a work file of `text`, in the engine's Shift-JIS, behind
// the raw bytes `front`.
Parsed Parse(const char16_t* text, const std::string& front = "") {
  Parsed parsed;
  ParseWorkFile(front + EncodeMultiByte(text), parsed.articles, parsed.candidates);
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
  EXPECT_EQ(CandidateSearchKey(u"ｱｲ･ｳ　x"), CString(u"ｱｲｳ"));
  EXPECT_EQ(CandidateSearchKey(u"日本　語(にほん)abc"), CString(u"日本語"));
  EXPECT_EQ(CandidateSearchKey(u"(x) 語"), CString());  // a run of blanks is no key
}

TEST(ParseWorkFile, ArticlesAndCandidates) {
  Parsed parsed = Parse(u"\u3000 見出し \n\n本文　一\n  \n<次項目:12>\n<次項目:>\nopen\n"
                        u"<項目一覧>　\nあい【愛】\nあい【藍】\n[A121]\nあい【愛】\nab-c\n"
                        u"<次項目:9>\nlater\n");
  ASSERT_EQ(parsed.articles.size(), 2u);
  EXPECT_EQ(parsed.articles[0].head, CString(u"見出し"));
  EXPECT_EQ(parsed.articles[0].body, CString(u"見出し\r\n本文　一"));
  EXPECT_EQ(parsed.articles[1].body, CString());  // two markers in a row; "open" is dropped
  ASSERT_EQ(parsed.candidates.size(), 3u);
  EXPECT_EQ(parsed.candidates[0].head, CString(u"あい【愛】"));
  EXPECT_EQ(parsed.candidates[1].body, CString(u"あい"));  // same key, other head: listed
  EXPECT_EQ(parsed.candidates[2].body, CString(u"abc"));

  Parsed unclosed = Parse(u"a\n<次項目:1>\n<項目一覧>x\nb\n");  // not the section line
  ASSERT_EQ(unclosed.articles.size(), 1u);
  EXPECT_TRUE(unclosed.candidates.empty());
}

TEST(ParseWorkFile, LongLinesArriveInReadsThatSplitNoCharacter) {
  // The read of 1023 bytes stops before the lead byte of あ, which comes
  // whole with its trail in the next read.
  Parsed parsed = Parse(u"あb\n<次項目:1>\n", std::string(1022, 'a'));
  ASSERT_EQ(parsed.articles.size(), 1u);
  EXPECT_EQ(parsed.articles[0].body, CString(u'a', 1022) + u"\r\nあb");

  EXPECT_TRUE(Parse(u"", std::string(2000, 'z') + "\x82").articles.empty());  // a lone lead byte
}

// An article keeps kArticleLimit characters and the cut mark; the next
// article is whole. A file that ends where the engine was stopped keeps
// its open article, cut.
TEST(ParseWorkFile, ArticlesAreKeptToTheirLimit) {
  std::string lines;
  for (int i = 0; i < 1000; ++i) lines += std::string(500, 'x') + "\n";
  const std::string file = "head\n" + lines + EncodeMultiByte(u"<次項目:1>\nnext\n<次項目:2>\nopen\n") + lines;
  ResultItemArray articles, candidates;
  ParseWorkFile(file, articles, candidates);
  ASSERT_EQ(articles.size(), 2u);
  const CString mark = CString(u"\r\n") + kArticleCutMark;
  EXPECT_LE(articles[0].body.GetLength(), kArticleLimit + mark.GetLength());
  EXPECT_GT(articles[0].body.GetLength(), kArticleLimit - 600);
  EXPECT_EQ(articles[0].body.Right(mark.GetLength()), mark);
  EXPECT_EQ(articles[1].body, CString(u"next"));

  articles.clear();
  ParseWorkFile(EncodeMultiByte(u"a\n<次項目:1>\nopen\nline\n"), articles, candidates, true);
  ASSERT_EQ(articles.size(), 2u);
  EXPECT_EQ(articles[1].body, CString(u"open\r\nline") + mark);
}

}  // namespace
