#include "tools/markup.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

#include "tools/jis_text.h"

namespace {

constexpr int kMarginCode = 0x1F09;
constexpr char kDash[] = "\u2015";  // ―: a line that opens with it keeps its article going

struct Style {
  const char* tag;
  int open;
  int close;
};

constexpr Style kStyles[] = {
    {"b", 0x1F12, 0x1F13},   {"i", 0x1F10, 0x1F11},   {"sub", 0x1F06, 0x1F07},
    {"sup", 0x1F0E, 0x1F0F}, {"h", 0x1F04, 0x1F05},
};

class LineCompiler {
 public:
  LineCompiler(std::string_view line, int line_number, int& margin, BodyWords& out)
      : line_(line), line_number_(line_number), margin_(margin), out_(out) {}

  void run() {
    if (line_.substr(0, 3) == "{m:") margin_code();
    sequence(false);
    if (at_ < line_.size()) throw std::invalid_argument("a '}' that closes nothing");
  }

 private:
  // Text and markup up to the end of the line, or up to the '}' that ends
  // the markup `inside` is in.
  void sequence(bool inside) {
    std::string plain;
    while (at_ < line_.size()) {
      const char c = line_[at_];
      if (c == '}') break;
      if (c == '\\' && at_ + 1 < line_.size()) {
        plain += line_[at_ + 1];
        at_ += 2;
      } else if (c == '{') {
        flush(plain);
        markup();
      } else {
        plain += c;
        ++at_;
      }
    }
    flush(plain);
    if (inside) {
      if (at_ >= line_.size()) throw std::invalid_argument("a '{' that is never closed");
      ++at_;
    }
  }

  void flush(std::string& plain) {
    if (!plain.empty()) out_.text(source_sjis(plain));
    plain.clear();
  }

  std::string tag() {
    const size_t colon = line_.find(':', at_ + 1);
    if (colon == std::string_view::npos) throw std::invalid_argument("markup without ':'");
    std::string name(line_.substr(at_ + 1, colon - at_ - 1));
    at_ = colon + 1;
    return name;
  }

  // The raw text up to the closing '}'.
  std::string argument() {
    const size_t close = line_.find('}', at_);
    if (close == std::string_view::npos) throw std::invalid_argument("a '{' that is never closed");
    std::string text(line_.substr(at_, close - at_));
    at_ = close + 1;
    return text;
  }

  void markup() {
    const std::string name = tag();
    for (const Style& style : kStyles) {
      if (name != style.tag) continue;
      const bool half = style.open == 0x1F04;
      out_.word(style.open);
      out_.half_depth += half;
      sequence(true);
      out_.half_depth -= half;
      out_.word(style.close);
      return;
    }
    if (name == "g") {
      out_.word(gaiji_code(argument()));
    } else if (name == "see") {
      std::string target = argument();
      std::string shown = target;
      const size_t bar = target.find('|');
      if (bar != std::string::npos) {
        shown = target.substr(bar + 1);
        target.resize(bar);
      }
      if (target.empty()) throw std::invalid_argument("a link without a head word");
      out_.link(source_sjis(shown), source_sjis(target), line_number_);
    } else if (name == "m") {
      throw std::invalid_argument("{m:N} stands only at the start of a line");
    } else {
      throw std::invalid_argument("unknown markup {" + name + ":");
    }
  }

  void margin_code() {
    tag();
    const std::string value = argument();
    char* end = nullptr;
    const long columns = strtol(value.c_str(), &end, 10);
    if (value.empty() || *end != '\0' || columns < 0 || columns > 40) {
      throw std::invalid_argument("a margin must be 0 to 40 columns");
    }
    // The reader takes a fall back to the left edge for the next article,
    // unless the line opens with a dash.
    if (columns == 0 && margin_ > 0 && line_.substr(at_, 3) != kDash) {
      throw std::invalid_argument("a margin back to 0 inside an entry would end its article");
    }
    margin_ = static_cast<int>(columns);
    out_.word(kMarginCode);
    out_.word(margin_ + 1);
  }

  static int gaiji_code(const std::string& hex) {
    char* end = nullptr;
    const long code = strtol(hex.c_str(), &end, 16);
    if (hex.size() != 4 || *end != '\0' || !is_gaiji_code(code)) {
      throw std::invalid_argument("an external character is four hexadecimal digits, A121 to FE7E");
    }
    return static_cast<int>(code);
  }

  std::string_view line_;
  int line_number_;
  int& margin_;
  BodyWords& out_;
  size_t at_ = 0;
};

}  // namespace

bool is_gaiji_code(long code) {
  return code >= 0xA121 && code <= 0xFE7E && (code & 0xFF) >= 0x21 && (code & 0xFF) <= 0x7E;
}

std::string source_sjis(std::string_view utf8) {
  try {
    return utf8_to_sjis(utf8);
  } catch (const std::invalid_argument&) {
    throw std::invalid_argument("a character with no JIS X 0208 form in \"" + std::string(utf8) + "\"");
  }
}

void compile_markup(std::string_view line, int line_number, int& margin, BodyWords& out) {
  LineCompiler(line, line_number, margin, out).run();
}
