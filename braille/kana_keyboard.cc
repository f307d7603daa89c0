#include "braille/kana_keyboard.h"

namespace {

// A cell from its dot numbers.
constexpr uint8_t Dots(const char* numbers) {
  uint8_t dots = 0;
  for (; *numbers != '\0'; ++numbers) dots |= static_cast<uint8_t>(1u << (*numbers - '1'));
  return dots;
}

struct CellText {
  uint8_t dots;      // the cell
  char16_t text;     // what it types on its own
};

// The kana and punctuation, one cell each.
constexpr CellText kCells[] = {
    {Dots("1"), u'あ'},     {Dots("12"), u'い'},    {Dots("14"), u'う'},     {Dots("124"), u'え'},
    {Dots("24"), u'お'},    {Dots("16"), u'か'},    {Dots("126"), u'き'},    {Dots("146"), u'く'},
    {Dots("1246"), u'け'},  {Dots("246"), u'こ'},   {Dots("156"), u'さ'},    {Dots("1256"), u'し'},
    {Dots("1456"), u'す'},  {Dots("12456"), u'せ'}, {Dots("2456"), u'そ'},   {Dots("135"), u'た'},
    {Dots("1235"), u'ち'},  {Dots("1345"), u'つ'},  {Dots("12345"), u'て'},  {Dots("2345"), u'と'},
    {Dots("13"), u'な'},    {Dots("123"), u'に'},   {Dots("134"), u'ぬ'},    {Dots("1234"), u'ね'},
    {Dots("234"), u'の'},   {Dots("136"), u'は'},   {Dots("1236"), u'ひ'},   {Dots("1346"), u'ふ'},
    {Dots("12346"), u'へ'}, {Dots("2346"), u'ほ'},  {Dots("1356"), u'ま'},   {Dots("12356"), u'み'},
    {Dots("13456"), u'む'}, {Dots("123456"), u'め'}, {Dots("23456"), u'も'}, {Dots("34"), u'や'},
    {Dots("346"), u'ゆ'},   {Dots("345"), u'よ'},   {Dots("15"), u'ら'},     {Dots("125"), u'り'},
    {Dots("145"), u'る'},   {Dots("1245"), u'れ'},  {Dots("245"), u'ろ'},    {Dots("3"), u'わ'},
    {Dots("35"), u'を'},    {Dots("356"), u'ん'},   {Dots("2"), u'っ'},      {Dots("25"), u'ー'},
    {Dots("256"), u'。'},   {Dots("56"), u'、'},    {Dots("26"), u'？'},     {Dots("235"), u'！'},
};

// The digits behind the number sign: the cells of a to j.
constexpr uint8_t kDigitCells[] = {Dots("245"), Dots("1"),  Dots("12"),  Dots("14"), Dots("145"),
                                   Dots("15"),  Dots("124"), Dots("1245"), Dots("125"), Dots("24")};

constexpr uint8_t kVoicedSign = Dots("5");
constexpr uint8_t kSemiVoicedSign = Dots("6");
constexpr uint8_t kContractedSign = Dots("4");
constexpr uint8_t kVoicedContractedSign = Dots("45");
constexpr uint8_t kSemiVoicedContractedSign = Dots("46");
constexpr uint8_t kNumberSign = Dots("3456");
constexpr uint8_t kJoiningSign = Dots("36");

char16_t Plain(uint8_t dots) {
  for (const CellText& cell : kCells)
    if (cell.dots == dots) return cell.text;
  return 0;
}

bool InRange(char16_t ch, char16_t first, char16_t last) { return ch >= first && ch <= last; }

// The kana of the k, s, t and h rows, which take the voiced sign. In
// Unicode's table each voiced kana follows its plain one, and the
// semi-voiced one of the h row the voiced one; っ stands between ち and つ.
bool TakesVoicing(char16_t kana) {
  if (InRange(kana, u'か', u'ち')) return (kana - u'か') % 2 == 0;
  if (InRange(kana, u'つ', u'と')) return (kana - u'つ') % 2 == 0;
  if (InRange(kana, u'は', u'ほ')) return (kana - u'は') % 3 == 0;
  return false;
}

// The i kana of the row of `kana`, for a contracted sound: か く こ give き.
char16_t RowI(char16_t kana) {
  static constexpr char16_t kRows[][4] = {
      {u'か', u'く', u'こ', u'き'}, {u'さ', u'す', u'そ', u'し'}, {u'た', u'つ', u'と', u'ち'},
      {u'な', u'ぬ', u'の', u'に'}, {u'は', u'ふ', u'ほ', u'ひ'}, {u'ま', u'む', u'も', u'み'},
      {u'ら', u'る', u'ろ', u'り'}};
  for (const auto& row : kRows)
    if (kana == row[0] || kana == row[1] || kana == row[2]) return row[3];
  return 0;
}

// The small ya, yu or yo behind the i kana: the a, u or o of the row.
char16_t SmallY(char16_t kana) {
  static constexpr char16_t kA[] = u"かさたなはまら";
  static constexpr char16_t kU[] = u"くすつぬふむる";
  for (int i = 0; kA[i] != 0; ++i) {
    if (kana == kA[i]) return u'ゃ';
    if (kana == kU[i]) return u'ゅ';
  }
  return u'ょ';
}

}  // namespace

void KanaKeyboard::Reset() {
  sign_ = Sign::kNone;
  number_ = false;
}

std::u16string KanaKeyboard::Type(uint8_t dots) {
  if (number_) {
    for (int digit = 0; digit < 10; ++digit)
      if (kDigitCells[digit] == dots) return std::u16string(1, static_cast<char16_t>(u'0' + digit));
    if (dots == Dots("2")) return u".";
    if (dots == Dots("3")) return u",";
    number_ = false;
    if (dots == kJoiningSign) return u"";
  }
  const Sign sign = sign_;
  sign_ = Sign::kNone;
  if (sign == Sign::kNone) {
    if (dots == 0) return u" ";
    if (dots == kNumberSign) {
      number_ = true;
      return u"";
    }
    const Sign next = dots == kVoicedSign               ? Sign::kVoiced
                      : dots == kSemiVoicedSign          ? Sign::kSemiVoiced
                      : dots == kContractedSign          ? Sign::kContracted
                      : dots == kVoicedContractedSign     ? Sign::kVoicedContracted
                      : dots == kSemiVoicedContractedSign ? Sign::kSemiVoicedContracted
                                                          : Sign::kNone;
    if (next != Sign::kNone) {
      sign_ = next;
      return u"";
    }
  }
  const char16_t kana = Plain(dots);
  if (kana == 0) return dots == 0 ? u" " : u"";
  switch (sign) {
    case Sign::kNone:
      break;
    case Sign::kVoiced:
      if (kana == u'う') return u"ゔ";
      if (TakesVoicing(kana)) return std::u16string(1, static_cast<char16_t>(kana + 1));
      break;
    case Sign::kSemiVoiced:
      if (InRange(kana, u'は', u'ほ') && TakesVoicing(kana))
        return std::u16string(1, static_cast<char16_t>(kana + 2));
      break;
    case Sign::kContracted:
      if (RowI(kana) != 0) return {RowI(kana), SmallY(kana)};
      break;
    case Sign::kVoicedContracted:
      if (RowI(kana) != 0 && TakesVoicing(RowI(kana)))
        return {static_cast<char16_t>(RowI(kana) + 1), SmallY(kana)};
      break;
    case Sign::kSemiVoicedContracted:
      if (RowI(kana) == u'ひ') return {u'ぴ', SmallY(kana)};
      break;
  }
  return std::u16string(1, kana);
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
