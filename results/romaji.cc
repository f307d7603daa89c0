#include "results/romaji.h"

#include <cstring>

namespace {

struct Syllable {
  const char* latin;     // lower-case spelling, 1 to 4 letters
  const char16_t* kana;  // its hiragana
};

// Every spelling of a syllable, Hepburn and kunrei side by side. The
// syllabic n, the doubled consonants and the hyphen are rules of the walk.
constexpr Syllable kSyllables[] = {
    {"a", u"あ"},     {"i", u"い"},     {"u", u"う"},     {"e", u"え"},     {"o", u"お"},
    {"ka", u"か"},    {"ki", u"き"},    {"ku", u"く"},    {"ke", u"け"},    {"ko", u"こ"},
    {"kya", u"きゃ"}, {"kyu", u"きゅ"}, {"kyo", u"きょ"}, {"ga", u"が"},    {"gi", u"ぎ"},
    {"gu", u"ぐ"},    {"ge", u"げ"},    {"go", u"ご"},    {"gya", u"ぎゃ"}, {"gyu", u"ぎゅ"},
    {"gyo", u"ぎょ"}, {"sa", u"さ"},    {"shi", u"し"},   {"si", u"し"},    {"su", u"す"},
    {"se", u"せ"},    {"so", u"そ"},    {"sha", u"しゃ"}, {"sya", u"しゃ"}, {"shu", u"しゅ"},
    {"syu", u"しゅ"}, {"sho", u"しょ"}, {"syo", u"しょ"}, {"she", u"しぇ"}, {"sye", u"しぇ"},
    {"za", u"ざ"},    {"ji", u"じ"},    {"zi", u"じ"},    {"zu", u"ず"},    {"ze", u"ぜ"},
    {"zo", u"ぞ"},    {"ja", u"じゃ"},  {"jya", u"じゃ"}, {"zya", u"じゃ"}, {"ju", u"じゅ"},
    {"jyu", u"じゅ"}, {"zyu", u"じゅ"}, {"jo", u"じょ"},  {"jyo", u"じょ"}, {"zyo", u"じょ"},
    {"je", u"じぇ"},  {"jye", u"じぇ"}, {"zye", u"じぇ"}, {"ta", u"た"},    {"chi", u"ち"},
    {"ti", u"ち"},    {"tsu", u"つ"},   {"tu", u"つ"},    {"te", u"て"},    {"to", u"と"},
    {"cha", u"ちゃ"}, {"tya", u"ちゃ"}, {"cya", u"ちゃ"}, {"chu", u"ちゅ"}, {"tyu", u"ちゅ"},
    {"cyu", u"ちゅ"}, {"cho", u"ちょ"}, {"tyo", u"ちょ"}, {"cyo", u"ちょ"}, {"che", u"ちぇ"},
    {"tye", u"ちぇ"}, {"da", u"だ"},    {"di", u"ぢ"},    {"du", u"づ"},    {"de", u"で"},
    {"do", u"ど"},    {"dya", u"ぢゃ"}, {"dyu", u"ぢゅ"}, {"dyo", u"ぢょ"}, {"na", u"な"},
    {"ni", u"に"},    {"nu", u"ぬ"},    {"ne", u"ね"},    {"no", u"の"},    {"nya", u"にゃ"},
    {"nyu", u"にゅ"}, {"nyo", u"にょ"}, {"ha", u"は"},    {"hi", u"ひ"},    {"fu", u"ふ"},
    {"hu", u"ふ"},    {"he", u"へ"},    {"ho", u"ほ"},    {"hya", u"ひゃ"}, {"hyu", u"ひゅ"},
    {"hyo", u"ひょ"}, {"fa", u"ふぁ"},  {"fi", u"ふぃ"},  {"fe", u"ふぇ"},  {"fo", u"ふぉ"},
    {"ba", u"ば"},    {"bi", u"び"},    {"bu", u"ぶ"},    {"be", u"べ"},    {"bo", u"ぼ"},
    {"bya", u"びゃ"}, {"byu", u"びゅ"}, {"byo", u"びょ"}, {"pa", u"ぱ"},    {"pi", u"ぴ"},
    {"pu", u"ぷ"},    {"pe", u"ぺ"},    {"po", u"ぽ"},    {"pya", u"ぴゃ"}, {"pyu", u"ぴゅ"},
    {"pyo", u"ぴょ"}, {"ma", u"ま"},    {"mi", u"み"},    {"mu", u"む"},    {"me", u"め"},
    {"mo", u"も"},    {"mya", u"みゃ"}, {"myu", u"みゅ"}, {"myo", u"みょ"}, {"ya", u"や"},
    {"yu", u"ゆ"},    {"yo", u"よ"},    {"ra", u"ら"},    {"ri", u"り"},    {"ru", u"る"},
    {"re", u"れ"},    {"ro", u"ろ"},    {"rya", u"りゃ"}, {"ryu", u"りゅ"}, {"ryo", u"りょ"},
    {"wa", u"わ"},    {"wi", u"うぃ"},  {"we", u"うぇ"},  {"wo", u"を"},    {"va", u"ゔぁ"},
    {"vi", u"ゔぃ"},  {"vu", u"ゔ"},    {"ve", u"ゔぇ"},  {"vo", u"ゔぉ"},  {"xa", u"ぁ"},
    {"xi", u"ぃ"},    {"xu", u"ぅ"},    {"xe", u"ぇ"},    {"xo", u"ぉ"},    {"xya", u"ゃ"},
    {"xyu", u"ゅ"},   {"xyo", u"ょ"},   {"xtu", u"っ"},   {"xtsu", u"っ"},  {"xwa", u"ゎ"},
};

constexpr size_t kLongestSpelling = 4;

bool IsVowel(char c) { return std::strchr("aiueo", c) != nullptr && c != '\0'; }

// The letter at `at`, or 0 past the end.
char At(const std::string& word, size_t at) { return at < word.size() ? word[at] : '\0'; }

// The longest spelling of the table that `word` holds at `at`: its kana,
// with `length` set; null when none does.
const char16_t* MatchSyllable(const std::string& word, size_t at, size_t& length) {
  for (length = kLongestSpelling; length > 0; --length) {
    if (at + length > word.size()) continue;
    for (const Syllable& syllable : kSyllables) {
      if (std::strlen(syllable.latin) == length && word.compare(at, length, syllable.latin) == 0)
        return syllable.kana;
    }
  }
  return nullptr;
}

// How many letters from `at` make the syllabic n (0 when they don't):
// n' , nn before a consonant or the end, n before a consonant other than
// y or the end, m before b, m or p.
size_t SyllabicN(const std::string& word, size_t at) {
  const char c = word[at];
  const char next = At(word, at + 1);
  if (c == 'm') return (next == 'b' || next == 'm' || next == 'p') ? 1 : 0;
  if (c != 'n') return 0;
  if (next == '\'') return 2;
  if (next == 'n') {
    const char after = At(word, at + 2);
    return (after == '\0' || (!IsVowel(after) && after != 'y')) ? 2 : 1;
  }
  if (next == '\0') return 1;
  return (IsVowel(next) || next == 'y') ? 0 : 1;
}

// True when the letter at `at` is the first of a doubled consonant, or the
// t of tch: both are っ.
bool IsSokuon(const std::string& word, size_t at) {
  const char c = word[at];
  if (IsVowel(c) || c == 'n' || c == '\'' || c == '-') return false;
  const char next = At(word, at + 1);
  return next == c || (c == 't' && next == 'c' && At(word, at + 2) == 'h');
}

}  // namespace

bool RomajiToHiragana(const std::u16string& latin, std::u16string& kana) {
  kana.clear();
  std::string word;
  for (const char16_t unit : latin) {
    if (unit >= u'A' && unit <= u'Z') {
      word += static_cast<char>(unit - u'A' + 'a');
    } else if ((unit >= u'a' && unit <= u'z') || unit == u'\'' || unit == u'-') {
      word += static_cast<char>(unit);
    } else {
      return false;
    }
  }
  std::u16string out;
  bool hasLetter = false;
  for (size_t at = 0; at < word.size();) {
    size_t length = 0;
    const char16_t* syllable = nullptr;
    if (word[at] == '-') {
      syllable = u"ー";
      length = 1;
    } else if ((length = SyllabicN(word, at)) > 0) {
      syllable = u"ん";
    } else if (IsSokuon(word, at)) {
      syllable = u"っ";
      length = 1;
    } else {
      syllable = MatchSyllable(word, at, length);
    }
    if (syllable == nullptr) return false;
    hasLetter = hasLetter || word[at] != '-';
    out += syllable;
    at += length;
  }
  if (!hasLetter) return false;
  kana = out;
  return true;
}
