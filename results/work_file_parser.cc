// The work file, in the system code page (CP932), lines ended by "\n":
//
//   section      lines                                  meaning
//   articles     article lines, each article closed     each marker closes one
//                by a marker line beginning "<次項目:"   article; its number is
//                (the engine writes "\n<次項目:%ld>\n\n") never read
//   section      exactly "<項目一覧>"                    ends the articles; absent
//   line                                                when no candidate follows
//   candidates   one candidate a line, then a marker    the first marker ends the
//                line beginning "<次項目:"               file for the reader
//
// Every line is trimmed of U+3000, blanks, carriage returns and line feeds
// at both ends; lines that leave nothing have no meaning anywhere.
// Lines gathered behind the last marker of the articles are thrown away.
#include "results/work_file_parser.h"

#include <cstring>

#include "platform/char_class.h"
#include "platform/code_page.h"

namespace {

constexpr size_t kLineBuffer = 1024;  // one read and its NUL
const CString kTrimSet(u"\u3000 \r\n");
// The markers the engine writes (text/emit.cc, search/index_walk.cc), in
// the engine's own character set there; results/engine_books_test.cc runs
// the engine into this parser, so a marker changed at one end fails it.
const CString kSectionLine(u"<項目一覧>");
const CString kMarker(u"<次項目:");

struct BracketPair {
  char16_t open;   // the opening bracket
  char16_t close;  // the bracket that closes it
};

// In this order: each pair is finished before the next is begun, so an
// inner pair can go together with an outer pair of an earlier kind.
constexpr BracketPair kBracketPairTable[] = {
    {u'〔', u'〕'}, {u'(', u')'},   {u'<', u'>'},   {u'《', u'》'}, {u'[', u']'},
    {u'{', u'}'},   {u'（', u'）'}, {u'［', u'］'}, {u'｛', u'｝'}, {u'〈', u'〉'},
    {u'【', u'】'}, {u'「', u'」'}, {u'『', u'』'}, {u'＜', u'＞'}, {u'≪', u'≫'},
};
// The pair 【 】 cuts from its opening to the end: what follows a head's
// reading in 【 】 is no part of the key.
constexpr char16_t kTailOpen = u'【';

// Removed from a key in this order.
constexpr char16_t kSeparatorSet[] = {u'-', u'\uFF65', u'\u2015', u'\uFF0D', u'\u2010', u'\u30FB'};

constexpr char16_t kCircle = u'\u25CB';  // ○: the rest of the line is the key as it stands

enum class Width { kUnknown, kHalf, kOther };

// The platform's half-width verdict on one character.
Width Classify(char16_t ch) {
  uint16_t type = 0;
  if (!GetStringTypeExW(LOCALE_SYSTEM_DEFAULT, CT_CTYPE3, &ch, 1, &type)) return Width::kUnknown;
  return (type & C3_HALFWIDTH) != 0 ? Width::kHalf : Width::kOther;
}

// Reads the work file line by line as a 1024-byte line buffer would.
class LineReader {
 public:
  explicit LineReader(std::string_view bytes) : rest(bytes) {}

  // The next line, decoded and trimmed at both ends; false at the end.
  bool Next(CString& line) {
    if (rest.empty()) return false;
    size_t length = rest.size() < kLineBuffer - 1 ? rest.size() : kLineBuffer - 1;
    size_t lineFeed = rest.substr(0, length).find('\n');
    if (lineFeed != std::string_view::npos) {
      length = lineFeed + 1;
    } else if (length < rest.size()) {
      // A full read: the lead byte of a character it would split goes to
      // the next read with its trail.
      length = CutAtCharBoundary(rest, length);
    }
    char buffer[kLineBuffer];
    std::memcpy(buffer, rest.data(), length);
    buffer[length] = '\0';
    rest.remove_prefix(length);
    line = CString(buffer);  // a NUL in the line ends it, as for any multibyte string
    line.TrimRight(kTrimSet).TrimLeft(kTrimSet);
    return true;
  }

 private:
  std::string_view rest;  // what no read has taken yet
};

bool IsMarker(const CString& line) { return line.Left(kMarker.GetLength()) == kMarker; }

// An article as its lines come, kept to kArticleLimit characters.
class ArticleBuilder {
 public:
  bool IsEmpty() const { return lineCount_ == 0; }

  void Add(const CString& line) {
    if (lineCount_++ == 0) {
      article_.head = line;
      article_.body = line;
    } else if (article_.body.GetLength() + 2 + line.GetLength() > kArticleLimit) {
      cut_ = true;
    } else if (!cut_) {
      article_.body += u"\r\n" + line;
    }
  }

  // The engine was stopped inside the article: more would have come.
  void MarkCut() { cut_ = true; }

  // The article, with the cut mark when it was cut; the builder starts anew.
  ResultItem Take() {
    if (cut_) article_.body += u"\r\n" + CString(kArticleCutMark);
    ResultItem article = std::move(article_);
    *this = ArticleBuilder();
    return article;
  }

 private:
  ResultItem article_;
  int lineCount_ = 0;
  bool cut_ = false;  // a line did not fit: the rest of the article is left out
};

// Reads articles up to the section line; false when the file ended first.
bool ReadArticles(LineReader& reader, ResultItemArray& articles, bool cutShort) {
  ArticleBuilder article;
  CString line;
  while (reader.Next(line)) {
    if (line.IsEmpty()) continue;
    if (line == kSectionLine) return true;
    if (IsMarker(line)) {
      articles.push_back(article.Take());
    } else {
      article.Add(line);
    }
  }
  if (cutShort && !article.IsEmpty()) {
    article.MarkCut();
    articles.push_back(article.Take());
  }
  return false;
}

void ReadCandidates(LineReader& reader, ResultItemArray& candidates) {
  CString line;
  while (reader.Next(line)) {
    if (line.IsEmpty()) continue;
    if (IsMarker(line)) return;
    CString key = CandidateSearchKey(line);
    if (key.IsEmpty()) continue;
    bool seen = false;
    for (const ResultItem& candidate : candidates) {
      if (candidate.head == line) {
        seen = true;
        break;
      }
    }
    if (!seen) candidates.push_back(ResultItem{line, key});
  }
}

void CutBrackets(CString& copy) {
  for (const BracketPair& pair : kBracketPairTable) {
    for (;;) {
      int open = copy.Find(pair.open, 0);
      int close = open == -1 ? -1 : copy.Find(pair.close, open + 1);
      if (close == -1) break;
      copy.Delete(open, pair.open == kTailOpen ? copy.GetLength() - open : close - open + 1);
    }
  }
}

// The number of characters from the start of `copy` before the first one
// that the platform surely puts on the other side of `firstHalf`.
int RunLength(const CString& copy, bool firstHalf) {
  int count = 0;
  for (; count < copy.GetLength(); ++count) {
    Width width = Classify(copy.GetAt(count));
    if (width == (firstHalf ? Width::kOther : Width::kHalf)) break;
  }
  return count;
}

}  // namespace

const char16_t kArticleCutMark[] = u"（以下省略）";

CString CandidateSearchKey(const CString& line) {
  CString copy = line;
  CutBrackets(copy);
  if (copy.GetAt(0) == kCircle) return copy.Mid(1);
  Width first = Classify(copy.GetAt(0));
  if (first == Width::kUnknown) return CString();
  for (char16_t separator : kSeparatorSet) copy.Remove(separator);
  bool firstHalf = first == Width::kHalf;
  CString key = copy.Left(RunLength(copy, firstHalf));
  key.Remove(firstHalf ? u' ' : u'\u3000');
  return key;
}

void ParseWorkFile(std::string_view bytes, ResultItemArray& articles,
                   ResultItemArray& candidates, bool cutShort) {
  LineReader reader(bytes);
  if (ReadArticles(reader, articles, cutShort)) ReadCandidates(reader, candidates);
}
