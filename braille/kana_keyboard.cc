#include "braille/kana_keyboard.h"

#include <map>
#include <set>
#include <string_view>

#include "reading/braille_cells.h"
#include "reading/kana_text.h"

namespace {

// What the keyboard reads, read off the translation the display is written
// with (reading/braille_cells.h), so that a cell types what it shows.
struct KeyboardTable {
  std::map<char16_t, std::u16string> one;        // a cell alone: its kana or punctuation
  std::map<std::u16string, std::u16string> two;  // a sign and a cell: the kana they write
  std::set<char16_t> signs;                      // the cells that wait for another
  std::u16string digits;                         // the cells of 0 to 9 behind the number sign
  char16_t numberSign = 0;                       // ⠼
  char16_t point = 0;                            // the decimal point inside a number
  char16_t comma = 0;                            // the comma inside a number
  char16_t joining = 0;                          // ends a number before a kana
};

// The hiragana of a katakana that has one; others stay.
char16_t Hiragana(char16_t kana) { return kana >= u'ァ' && kana <= u'ヶ' ? kana - 0x60 : kana; }

KeyboardTable Build() {
  KeyboardTable table;
  // Punctuation first (as the translation knows it, and as it is typed):
  // ⠖ is ！ rather than the old ヱ.
  constexpr std::u16string_view kMarks = u"。。、、?？!！";
  for (size_t at = 0; at < kMarks.size(); at += 2)
    table.one.emplace(KanaToCells(kMarks.substr(at, 1))[0], std::u16string(1, kMarks[at + 1]));
  // The kana that count as a sound of their own: a small kana alone shares
  // the cell of its full-size one, which is what the cell types.
  std::u16string kana;
  for (char16_t ch = u'ァ'; ch <= u'ヶ'; ++ch)
    if (CountMorae(std::u16string(1, ch)) == 1) kana += ch;
  kana += u'ー';
  for (char16_t ch : kana) {
    const std::u16string cells = KanaToCells(std::u16string(1, ch));
    const std::u16string text(1, Hiragana(ch));
    if (cells.size() == 1) table.one.emplace(cells[0], text);
  }
  // Two cells whose first one is no kana: a sign and the kana it changes,
  // voiced, semi-voiced or contracted (キャ ⠈⠡).
  for (char16_t ch : kana) {
    for (const std::u16string& text : {std::u16string(1, ch), std::u16string{ch, u'ャ'},
                                       std::u16string{ch, u'ュ'}, std::u16string{ch, u'ョ'}}) {
      const std::u16string cells = KanaToCells(text);
      if (cells.size() != 2 || table.one.count(cells[0]) != 0) continue;
      std::u16string typed;
      for (char16_t unit : text) typed += Hiragana(unit);
      table.two.emplace(cells, typed);
      table.signs.insert(cells[0]);
    }
  }
  const std::u16string number = KanaToCells(u"0123456789");
  table.numberSign = number[0];
  table.digits = number.substr(1);
  table.point = KanaToCells(u"0.0")[2];
  table.comma = KanaToCells(u"0,0")[2];
  table.joining = KanaToCells(u"0ア")[2];
  return table;
}

const KeyboardTable& Table() {
  static const KeyboardTable table = Build();
  return table;
}

}  // namespace

void KanaKeyboard::Reset() {
  sign_ = 0;
  number_ = false;
}

std::u16string KanaKeyboard::Type(uint8_t dots) {
  const KeyboardTable& table = Table();
  const char16_t cell = static_cast<char16_t>(0x2800 + dots);
  if (number_) {
    const size_t digit = table.digits.find(cell);
    if (digit != std::u16string::npos) return std::u16string(1, static_cast<char16_t>(u'0' + digit));
    if (cell == table.point) return u".";
    if (cell == table.comma) return u",";
    number_ = false;
    if (cell == table.joining) return u"";
  }
  const char16_t sign = sign_;
  sign_ = 0;
  if (sign == 0) {
    if (dots == 0) return u" ";
    if (cell == table.numberSign) {
      number_ = true;
      return u"";
    }
    if (table.signs.count(cell) != 0) {
      sign_ = cell;
      return u"";
    }
  }
  const auto alone = table.one.find(cell);
  if (alone == table.one.end()) return dots == 0 ? u" " : u"";
  if (sign != 0) {
    const auto changed = table.two.find(std::u16string{sign, cell});
    if (changed != table.two.end()) return changed->second;
  }
  return alone->second;
}

bool ParseDots(const std::string& digits, uint8_t& dots) {
  dots = 0;
  if (digits == "0") return true;
  if (digits.empty()) return false;
  for (char digit : digits) {
    if (digit < '1' || digit > '8') return false;
    const uint8_t bit = static_cast<uint8_t>(1u << (digit - '1'));
    if ((dots & bit) != 0) return false;
    dots |= bit;
  }
  return true;
}
