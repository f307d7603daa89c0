#include "reading/kana_text.h"

#include "platform/utf16_units.h"

namespace {

// Half-width katakana U+FF61..U+FF9D in full width.
constexpr std::u16string_view kHalfWidthKana =
    u"。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテトナニヌネノ"
    u"ハヒフヘホマミムメモヤユヨラリルレロワン";

// The voiced (mark 1) or semi-voiced (mark 2) form of `kana`, or 0.
char16_t Voiced(char16_t kana, int mark) {
  if (mark == 1 && kana == u'ウ') return u'ヴ';
  const bool kToTo = kana >= u'カ' && kana <= u'ト' && kana != u'ッ';
  const bool hToHo = kana >= u'ハ' && kana <= u'ホ';
  if (mark == 1 && kToTo) {
    // カ..ト alternate plain and voiced, with ッ shifting the order at ツ.
    const bool plain = kana < u'ッ' ? (kana - u'カ') % 2 == 0 : (kana - u'ツ') % 2 == 0;
    return plain ? static_cast<char16_t>(kana + 1) : 0;
  }
  if (hToHo && (kana - u'ハ') % 3 == 0) return static_cast<char16_t>(kana + mark);
  return 0;
}

}  // namespace

bool IsHiragana(char16_t ch) { return ch >= 0x3041 && ch <= 0x3096; }

bool IsKatakana(char16_t ch) { return (ch >= 0x30A1 && ch <= 0x30FA) || ch == u'ー'; }

bool IsKanji(char16_t ch) {
  return (ch >= 0x4E00 && ch <= 0x9FFF) || (ch >= 0x3400 && ch <= 0x4DBF) ||
         (ch >= 0xF900 && ch <= 0xFAFF) || ch == u'々' || ch == u'〆';
}

bool IsBlank(char16_t ch) { return ch <= 0x20 || ch == 0x7F || ch == 0x3000; }

std::u16string ToKatakana(std::u16string_view text) {
  std::u16string out(text);
  for (char16_t& ch : out)
    if (IsHiragana(ch)) ch = static_cast<char16_t>(ch + 0x60);
  return out;
}

std::u16string NormalizeWidth(std::u16string_view text, std::vector<int>* sources) {
  std::u16string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    const int first = static_cast<int>(i);
    char16_t ch = text[i];
    if (CharacterUnits(text, i) == 2) {
      out += ch;
      out += text[++i];
    } else if (IsSurrogate(ch)) {
      out += u'\uFFFD';
    } else if (IsBlank(ch)) {
      out += ch == u'\n' || ch == u'\r' ? ch : u' ';
    } else if (ch >= 0xFF01 && ch <= 0xFF5E) {
      out += static_cast<char16_t>(ch - 0xFEE0);
    } else if (ch >= 0xFF61 && ch <= 0xFF9D) {
      out += kHalfWidthKana[ch - 0xFF61];
    } else if ((ch == 0xFF9E || ch == 0xFF9F) && !out.empty() && Voiced(out.back(), ch - 0xFF9D)) {
      out.back() = Voiced(out.back(), ch - 0xFF9D);
    } else if (ch == 0xFF9E || ch == 0xFF9F) {
      out += ch == 0xFF9E ? u'゛' : u'゜';
    } else {
      out += ch;
    }
    if (sources != nullptr) sources->resize(out.size(), first);
  }
  return out;
}

int CountMorae(std::u16string_view katakana) {
  int morae = 0;
  for (char16_t ch : katakana)
    if (std::u16string_view(u"ャュョァィゥェォヮ").find(ch) == std::u16string_view::npos) ++morae;
  return morae;
}
