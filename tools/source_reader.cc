#include "tools/source_reader.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include <strings.h>

#include "tools/jis_text.h"
#include "tools/markup.h"

namespace {

constexpr int kGaijiRows = 16;
constexpr size_t kTitleBytes = 80;  // 40 JIS characters in an EPWING catalog

enum class Section { kNone, kEntry, kMenu, kNotice, kBitmap };

class SourceReader {
 public:
  explicit SourceReader(std::string path) : path_(std::move(path)) {}

  std::vector<BookContent> run() {
    std::ifstream in(path_, std::ios::binary);
    if (!in) throw SourceError(path_, 0, "cannot be read");
    std::string line;
    while (std::getline(in, line)) {
      ++line_;
      if (!line.empty() && line.back() == '\r') line.pop_back();
      try {
        take(line);
      } catch (const std::invalid_argument& fault) {
        throw SourceError(path_, line_, fault.what());
      }
    }
    end_section();
    if (books_.empty()) throw SourceError(path_, line_, "no @book in the file");
    return std::move(books_);
  }

 private:
  void take(const std::string& line) {
    if (section_ == Section::kBitmap && is_bitmap_row(line)) return bitmap_row(line);
    if (!line.empty() && line[0] == ';') return;
    if (!line.empty() && line[0] == '@') return directive(line);
    text_line(line);
  }

  void directive(const std::string& line) {
    const size_t blank = line.find(' ');
    const std::string name = line.substr(0, blank);
    std::string rest = blank == std::string::npos ? "" : line.substr(blank + 1);
    rest.erase(0, rest.find_first_not_of(' '));
    rest.erase(rest.find_last_not_of(' ') + 1);
    if (name == "@book") return start_book(rest);
    if (books_.empty()) throw std::invalid_argument(name + " before the first @book");
    BookContent& book = books_.back();
    if (name == "@entry") {
      end_section();
      if (rest.empty()) throw std::invalid_argument("@entry needs a head word");
      book.entries.push_back({});
      book.entries.back().head = source_sjis(rest);
      book.entries.back().line = line_;
      section_ = Section::kEntry;
      margin_ = 0;
    } else if (name == "@kana" || name == "@alpha") {
      if (section_ != Section::kEntry) throw std::invalid_argument(name + " outside an entry");
      EntryContent& entry = book.entries.back();
      if (rest.empty()) throw std::invalid_argument(name + " needs a key");
      if (name == "@alpha") {
        entry.alpha.push_back(source_sjis(rest));
      } else {
        std::istringstream words(rest);
        for (std::string word; words >> word;) entry.kana.push_back(source_sjis(word));
      }
    } else if (name == "@menu" || name == "@notice") {
      end_section();
      section_ = name == "@menu" ? Section::kMenu : Section::kNotice;
      margin_ = 0;
      if (!page().bytes.empty()) throw std::invalid_argument(name + " a second time in one book");
    } else if (name == "@gaiji") {
      end_section();
      start_gaiji(rest);
    } else {
      throw std::invalid_argument("unknown directive " + name);
    }
  }

  void start_book(const std::string& rest) {
    end_section();
    const size_t blank = rest.find(' ');
    const std::string directory = rest.substr(0, blank);
    const std::string title = blank == std::string::npos ? "" : rest.substr(blank + 1);
    if (directory.empty() || directory.size() > 8 ||
        !std::all_of(directory.begin(), directory.end(),
                     [](char c) { return isalnum(static_cast<unsigned char>(c)) || c == '_'; })) {
      throw std::invalid_argument("@book DIRECTORY TITLE: a directory of 1 to 8 letters, digits or _");
    }
    if (title.empty()) throw std::invalid_argument("@book needs a title");
    for (const BookContent& book : books_) {
      if (strcasecmp(book.directory.c_str(), directory.c_str()) == 0) {
        throw std::invalid_argument("a second book in directory " + directory);
      }
    }
    std::string jis;
    try {
      jis = utf8_to_jis(title);
    } catch (const std::invalid_argument&) {
      throw std::invalid_argument("a title character with no JIS X 0208 form");
    }
    if (jis.size() > kTitleBytes) throw std::invalid_argument("a title of more than 40 characters");
    books_.push_back({});
    books_.back().title = title;
    books_.back().directory = directory;
    books_.back().source = path_;
    books_.back().line = line_;
  }

  void start_gaiji(const std::string& code_text) {
    char* end = nullptr;
    const long code = strtol(code_text.c_str(), &end, 16);
    if (code_text.size() != 4 || *end != '\0' || !is_gaiji_code(code)) {
      throw std::invalid_argument("@gaiji CODE: four hexadecimal digits, A121 to FE7E");
    }
    for (const GaijiGlyph& glyph : books_.back().glyphs) {
      if (glyph.code == code) throw std::invalid_argument("@gaiji " + code_text + " a second time");
    }
    books_.back().glyphs.push_back({static_cast<int>(code), ""});
    section_ = Section::kBitmap;
    rows_ = 0;
  }

  static bool is_bitmap_row(const std::string& line) {
    return !line.empty() && line.find_first_not_of("#.") == std::string::npos;
  }

  void bitmap_row(const std::string& line) {
    if (line.size() != 16) throw std::invalid_argument("a bitmap row is 16 characters of '#' and '.'");
    if (rows_ == kGaijiRows) throw std::invalid_argument("a bitmap has 16 rows");
    int bits = 0;
    for (char c : line) bits = bits << 1 | (c == '#');
    std::string& bitmap = books_.back().glyphs.back().bitmap;
    bitmap += static_cast<char>(bits >> 8);
    bitmap += static_cast<char>(bits & 0xFF);
    ++rows_;
  }

  void text_line(const std::string& line) {
    if (section_ == Section::kBitmap) end_section();
    if (section_ == Section::kNone) {
      if (line.find_first_not_of(' ') == std::string::npos) return;
      throw std::invalid_argument("text outside an entry, menu or notice");
    }
    BodyWords words;
    compile_markup(line, line_, margin_, words);
    lines_.push_back(std::move(words));
  }

  BodyWords& page() {
    BookContent& book = books_.back();
    if (section_ == Section::kMenu) return book.menu;
    if (section_ == Section::kNotice) return book.notice;
    return book.entries.back().body;
  }

  // Closes what the lines so far belong to: trailing blank lines go, every
  // other line gets its line end.
  void end_section() {
    if (section_ == Section::kBitmap && rows_ != 0 && rows_ != kGaijiRows) {
      throw SourceError(path_, line_, "a bitmap has 16 rows");
    }
    if (section_ == Section::kBitmap && rows_ == 0) books_.back().glyphs.pop_back();
    while (!lines_.empty() && lines_.back().bytes.empty()) lines_.pop_back();
    if (section_ == Section::kEntry || section_ == Section::kMenu || section_ == Section::kNotice) {
      BodyWords& target = page();
      for (BodyWords& words : lines_) {
        words.word(0x1F0A);
        target.append(words);
      }
    }
    if (section_ == Section::kEntry) head_line(books_.back().entries.back());
    lines_.clear();
    section_ = Section::kNone;
  }

  // "reading【head】" for a head word that is not kana alone, else the head.
  void head_line(EntryContent& entry) {
    BodyWords& line = entry.head_line;
    try {
      if (entry.kana.empty() || entry.kana.front() == entry.head) {
        line.text(entry.head);
      } else {
        line.text(entry.kana.front());
        line.word(0x215A);  // 【
        line.text(entry.head);
        line.word(0x215B);  // 】
      }
    } catch (const std::invalid_argument& fault) {
      throw SourceError(path_, entry.line, fault.what());
    }
  }

  std::string path_;
  int line_ = 0;
  std::vector<BookContent> books_;
  Section section_ = Section::kNone;
  std::vector<BodyWords> lines_;  // lines of the open section
  int margin_ = 0;
  int rows_ = 0;
};

}  // namespace

std::vector<BookContent> read_source(const std::string& path) {
  std::vector<BookContent> books = SourceReader(path).run();
  for (BookContent& book : books) {
    std::sort(book.glyphs.begin(), book.glyphs.end(),
              [](const GaijiGlyph& a, const GaijiGlyph& b) { return a.code < b.code; });
  }
  return books;
}
