#include "reading/braille_cells.h"

#include <algorithm>

#include "platform/utf16_units.h"
#include "reading/kana_text.h"

namespace {

// One cell for each kana; the small kana standing alone take the cell of
// the full-size one.
constexpr std::u16string_view kKana =
    u"アイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨ"
    u"ラリルレロワヲンッーヰヱァィゥェォャュョヮヵヶ";
constexpr std::u16string_view kKanaCells =
    u"⠁⠃⠉⠋⠊⠡⠣⠩⠫⠪⠱⠳⠹⠻⠺⠕⠗⠝⠟⠞⠅⠇⠍⠏⠎⠥⠧⠭⠯⠮⠵⠷⠽⠿⠾⠌⠬⠜"
    u"⠑⠓⠙⠛⠚⠄⠔⠴⠂⠒⠆⠖⠁⠃⠉⠋⠊⠌⠬⠜⠄⠡⠫";
static_assert(kKana.size() == kKanaCells.size());

// Voiced and semi-voiced kana, and the plain kana they are written with.
constexpr std::u16string_view kVoiced = u"ガギグゲゴザジズゼゾダヂヅデドバビブベボヴ";
constexpr std::u16string_view kVoicedBase = u"カキクケコサシスセソタチツテトハヒフヘホウ";
constexpr std::u16string_view kSemiVoiced = u"パピプペポ";
constexpr std::u16string_view kSemiVoicedBase = u"ハヒフヘホ";

// The i-column kana that take the contracted sounds with ャ ュ ョ.
constexpr std::u16string_view kContractible = u"キシチニヒミリ";

// Two kana written as two cells of their own: the sounds of loanwords and
// the rarer sounds, each with its sign in front of a kana cell.
struct SpecialSound {
  std::u16string_view kana;   // two katakana
  std::u16string_view cells;  // two cells
};
constexpr SpecialSound kSpecialSounds[] = {
    {u"イェ", u"⠈⠋"}, {u"キェ", u"⠈⠫"}, {u"シェ", u"⠈⠻"}, {u"チェ", u"⠈⠟"},
    {u"ニェ", u"⠈⠏"}, {u"ヒェ", u"⠈⠯"}, {u"ギェ", u"⠘⠫"}, {u"ジェ", u"⠘⠻"},
    {u"ビェ", u"⠘⠯"}, {u"ピェ", u"⠨⠯"}, {u"スィ", u"⠈⠳"}, {u"ズィ", u"⠘⠳"},
    {u"ティ", u"⠈⠗"}, {u"ディ", u"⠘⠗"}, {u"テュ", u"⠨⠝"}, {u"デュ", u"⠸⠝"},
    {u"トゥ", u"⠢⠝"}, {u"ドゥ", u"⠲⠝"}, {u"ウィ", u"⠢⠃"}, {u"ウェ", u"⠢⠋"},
    {u"ウォ", u"⠢⠊"}, {u"クァ", u"⠢⠡"}, {u"クヮ", u"⠢⠡"}, {u"クィ", u"⠢⠣"},
    {u"クェ", u"⠢⠫"}, {u"クォ", u"⠢⠪"}, {u"グァ", u"⠲⠡"}, {u"グヮ", u"⠲⠡"},
    {u"グィ", u"⠲⠣"}, {u"グェ", u"⠲⠫"}, {u"グォ", u"⠲⠪"}, {u"ツァ", u"⠢⠕"},
    {u"ツィ", u"⠢⠗"}, {u"ツェ", u"⠢⠟"}, {u"ツォ", u"⠢⠞"}, {u"ファ", u"⠢⠥"},
    {u"フィ", u"⠢⠧"}, {u"フェ", u"⠢⠯"}, {u"フォ", u"⠢⠮"}, {u"ヴァ", u"⠲⠥"},
    {u"ヴィ", u"⠲⠧"}, {u"ヴェ", u"⠲⠯"}, {u"ヴォ", u"⠲⠮"}, {u"フュ", u"⠨⠬"},
    {u"フョ", u"⠨⠜"}, {u"ヴュ", u"⠸⠬"}, {u"ヴョ", u"⠸⠜"},
};

// Punctuation and symbols, full-width forms first normalised to ASCII.
struct Symbol {
  char16_t ch;                // the character
  std::u16string_view cells;  // its cells
  int blanksAfter;            // blanks it wants behind it when text follows
};
constexpr Symbol kSymbols[] = {
    {u'。', u"⠲", 2}, {u'.', u"⠲", 2}, {u'、', u"⠰", 1}, {u',', u"⠰", 1},
    {u'?', u"⠢", 1},  {u'!', u"⠖", 1}, {u'・', u"⠐", 0}, {u':', u"⠐⠂", 0},
    {u';', u"⠆", 0},  {u'「', u"⠤", 0}, {u'」', u"⠤", 0}, {u'『', u"⠰⠤", 0},
    {u'』', u"⠤⠆", 0}, {u'(', u"⠶", 0}, {u')', u"⠶", 0}, {u'[', u"⠶", 0},
    {u']', u"⠶", 0},  {u'【', u"⠶", 0}, {u'】', u"⠶", 0}, {u'〔', u"⠶", 0},
    {u'〕', u"⠶", 0}, {u'-', u"⠤", 0},  {u'‐', u"⠤", 0}, {u'－', u"⠤", 0},
    {u'~', u"⠤⠤", 0}, {u'〜', u"⠤⠤", 0}, {u'/', u"⠌", 0}, {u'…', u"⠂⠂⠂", 0},
};

// Symbols that close: blanks a punctuation mark asked for are not put
// in front of them.
constexpr std::u16string_view kClosing = u"」』)]】〕。、.,?!";

constexpr std::u16string_view kDigitCells = u"⠚⠁⠃⠉⠙⠑⠋⠛⠓⠊";
constexpr std::u16string_view kLetterCells = u"⠁⠃⠉⠙⠑⠋⠛⠓⠊⠚⠅⠇⠍⠝⠕⠏⠟⠗⠎⠞⠥⠧⠺⠭⠽⠵";
constexpr char16_t kBlank = u'\u2800';
constexpr char16_t kUnknown = u'⠿';
constexpr char16_t kJoining = u'⠤';

bool IsDigit(char16_t ch) { return ch >= u'0' && ch <= u'9'; }
bool IsUpper(char16_t ch) { return ch >= u'A' && ch <= u'Z'; }
bool IsLetter(char16_t ch) { return IsUpper(ch) || (ch >= u'a' && ch <= u'z'); }
bool IsCell(char16_t ch) { return ch >= 0x2800 && ch <= 0x28FF; }

char16_t KanaCell(char16_t kana) {
  size_t at = kKana.find(kana);
  return at == std::u16string_view::npos ? kUnknown : kKanaCells[at];
}

class CellWriter {
 public:
  CellWriter(std::u16string_view text, std::vector<int>* sources) : text_(text), sources_(sources) {}

  std::u16string Write() {
    while (at_ < text_.size()) Next();
    return std::move(out_);
  }

 private:
  enum class After { kOther, kNumber, kLatin };

  void Next() {
    const char16_t ch = text_[at_];
    if (IsBlank(ch) || ch == kBlank) {
      blanks_ = std::max(blanks_, 1);
      if (blankSource_ < 0) blankSource_ = static_cast<int>(at_);
      fromPunctuation_ = false;
      after_ = After::kOther;
      ++at_;
    } else if (IsDigit(ch)) {
      Number();
    } else if (IsLetter(ch)) {
      Latin();
    } else if (IsKatakana(ch) || IsHiragana(ch)) {
      Kana();
    } else {
      Symbol(ch);
    }
  }

  // A number runs to its last digit (a comma or point between digits
  // belongs to it), so every number opens with the number sign.
  void Number() {
    Put(u"⠼");
    while (at_ < text_.size()) {
      const char16_t ch = text_[at_];
      const bool digitNext = at_ + 1 < text_.size() && IsDigit(text_[at_ + 1]);
      if (IsDigit(ch)) {
        Add(std::u16string_view(&kDigitCells[ch - u'0'], 1), at_);
      } else if ((ch == u',' || ch == u'.') && digitNext) {
        Add(ch == u',' ? u"⠄" : u"⠂", at_);
      } else {
        break;
      }
      ++at_;
    }
    after_ = After::kNumber;
  }

  void Latin() {
    size_t end = at_;
    bool allCapitals = true;
    while (end < text_.size() && IsLetter(text_[end])) allCapitals &= IsUpper(text_[end++]);
    Put(u"⠰");
    const bool capitalWord = allCapitals && end - at_ > 1;
    if (capitalWord) Add(u"⠠⠠", at_);
    for (; at_ < end; ++at_) {
      const char16_t ch = text_[at_];
      if (IsUpper(ch) && !capitalWord) Add(u"⠠", at_);
      Add(std::u16string_view(&kLetterCells[IsUpper(ch) ? ch - u'A' : ch - u'a'], 1), at_);
    }
    after_ = After::kLatin;
  }

  void Kana() {
    const char16_t first = ToKatakana(text_.substr(at_, 1))[0];
    const char16_t second =
        at_ + 1 < text_.size() ? ToKatakana(text_.substr(at_ + 1, 1))[0] : u'\0';
    std::u16string cells;
    size_t used = 1;
    const std::u16string pair{first, second};
    for (const SpecialSound& sound : kSpecialSounds) {
      if (sound.kana == pair) {
        cells = sound.cells;
        used = 2;
      }
    }
    if (cells.empty() && (second == u'ャ' || second == u'ュ' || second == u'ョ')) {
      cells = Contracted(first, second);
      if (!cells.empty()) used = 2;
    }
    if (cells.empty()) cells = Single(first);
    // A kana that reads as a digit or a letter right behind one is kept
    // apart by the joining sign.
    const bool looksLikeDigit = std::u16string_view(u"⠁⠃⠉⠋⠊⠑⠓⠙⠛⠚").find(cells[0]) !=
                                std::u16string_view::npos;
    if ((after_ == After::kNumber && looksLikeDigit) || after_ == After::kLatin)
      cells.insert(cells.begin(), kJoining);
    Put(cells);
    at_ += used;
    after_ = After::kOther;
  }

  // キャ = ⠈⠡: the sign, then the a/u/o kana of the row.
  static std::u16string Contracted(char16_t kana, char16_t small) {
    char16_t sign = u'⠈';
    size_t at;
    if ((at = kVoiced.find(kana)) != std::u16string_view::npos) {
      sign = u'⠘';
      kana = kVoicedBase[at];
    } else if ((at = kSemiVoiced.find(kana)) != std::u16string_view::npos) {
      sign = u'⠨';
      kana = kSemiVoicedBase[at];
    }
    if (kContractible.find(kana) == std::u16string_view::npos) return {};
    const size_t row = kKana.find(kana) - 1;  // the a-column kana of the row
    const size_t column = small == u'ャ' ? 0 : small == u'ュ' ? 2 : 4;
    return {sign, kKanaCells[row + column]};
  }

  static std::u16string Single(char16_t kana) {
    size_t at;
    if ((at = kVoiced.find(kana)) != std::u16string_view::npos)
      return {u'⠐', KanaCell(kVoicedBase[at])};
    if ((at = kSemiVoiced.find(kana)) != std::u16string_view::npos)
      return {u'⠠', KanaCell(kSemiVoicedBase[at])};
    return {KanaCell(kana)};
  }

  void Symbol(char16_t ch) {
    source_ = at_++;
    after_ = After::kOther;
    if (IsCell(ch)) {
      Put(std::u16string(1, ch));
      return;
    }
    if (IsHighSurrogate(ch) && at_ < text_.size()) ++at_;  // one character, one cell
    for (const auto& symbol : kSymbols) {
      if (symbol.ch != ch) continue;
      if (fromPunctuation_ && kClosing.find(ch) != std::u16string_view::npos) blanks_ = 0;
      Put(symbol.cells);
      if (symbol.blanksAfter > 0) {
        blanks_ = symbol.blanksAfter;
        fromPunctuation_ = true;
      }
      return;
    }
    Put(std::u16string(1, kUnknown));
  }

  // Appends cells that come from the unit at `source_` (or at_ when it is
  // unset), behind the blanks asked for, none at the start.
  void Put(std::u16string_view cells) {
    const size_t source = source_ != kUnset ? source_ : at_;
    if (!out_.empty())
      Add(std::u16string(blanks_, kBlank), blankSource_ >= 0 ? blankSource_ : source);
    Add(cells, source);
    blanks_ = 0;
    blankSource_ = -1;
    source_ = kUnset;
    fromPunctuation_ = false;
  }

  void Add(std::u16string_view cells, size_t source) {
    out_ += cells;
    if (sources_ != nullptr) sources_->resize(out_.size(), static_cast<int>(source));
  }

  static constexpr size_t kUnset = ~size_t{0};

  std::u16string_view text_;
  std::vector<int>* sources_;     // the source of each cell, when asked for
  size_t at_ = 0;                 // next unit of text_
  size_t source_ = kUnset;        // where the cells put next come from, when not at_
  std::u16string out_;            // cells so far
  int blanks_ = 0;                // blanks to put before the next cell
  int blankSource_ = -1;          // the text's blank they stand for, -1 none
  bool fromPunctuation_ = false;  // blanks_ was asked for by punctuation
  After after_ = After::kOther;   // what the last cells wrote
};

}  // namespace

std::u16string KanaToCells(std::u16string_view text, std::vector<int>* sources) {
  if (sources != nullptr) sources->clear();
  return CellWriter(text, sources).Write();
}
