#include "reading/reading.h"

#include <algorithm>
#include <vector>

#include "reading/braille_cells.h"
#include "reading/kana_text.h"
#include "reading/mecab_words.h"

namespace {

bool HasKanji(std::u16string_view text) { return std::any_of(text.begin(), text.end(), IsKanji); }

bool IsJapanese(std::u16string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char16_t ch) { return IsKanji(ch) || IsHiragana(ch) || IsKatakana(ch); });
}

// The words of one line; without MeCab, its blank-separated pieces with
// no part of speech.
std::vector<Word> LineWords(std::u16string_view line) {
  std::vector<Word> words;
  if (SplitWords(line, words)) return words;
  size_t start = 0;
  while (start < line.size()) {
    size_t end = start;
    while (end < line.size() && !IsBlank(line[end])) ++end;
    if (end > start) {
      Word word;
      word.surface = line.substr(start, end - start);
      word.blankBefore = start > 0;
      word.start = start;
      words.push_back(std::move(word));
    }
    start = end + 1;
  }
  return words;
}

// Whether the dictionary gave the word a reading: some marks (仝, 々) are
// listed as symbols that read as themselves.
bool Known(const Word& word) {
  return !word.pronunciation.empty() && !HasKanji(word.pronunciation);
}

// A u- or o-row kana followed by ウ is said as a long vowel: ギュウ ギュー.
std::u16string LongVowels(std::u16string kana) {
  constexpr std::u16string_view kUOColumn =
      u"ウクスツヌフムユルグズヅブプヴオコソトノホモヨロヲゴゾドボポュョゥォ";
  for (size_t i = 1; i < kana.size(); ++i)
    if (kana[i] == u'ウ' && kUOColumn.find(kana[i - 1]) != std::u16string_view::npos) kana[i] = u'ー';
  return kana;
}

// Marks the dictionary has no reading for when they stand alone, read by
// their names.
struct MarkName {
  char16_t mark;          // the character
  std::u16string_view name;  // its reading
};
constexpr MarkName kMarkNames[] = {{u'々', u"ノマ"}, {u'仝', u"ドー"}, {u'〆', u"シメ"}, {u'〃', u"オナジ"}};

// The pronunciation of a word MeCab does not know: its kanji read one by
// one where the dictionary knows them alone, 々 repeating the kanji before
// it, its kana in katakana.
std::u16string UnknownWordReading(const std::u16string& surface) {
  if (!HasKanji(surface)) return LongVowels(ToKatakana(surface));
  std::u16string reading, last;
  for (size_t i = 0; i < surface.size(); ++i) {
    const char16_t ch = surface[i];
    std::vector<Word> alone;
    std::u16string said = ToKatakana(std::u16string_view(&ch, 1));
    if (ch == u'々' && !last.empty()) {
      said = last;
    } else if (IsKanji(ch) && SplitWords(std::u16string_view(&ch, 1), alone) && alone.size() == 1 &&
               Known(alone[0])) {
      said = alone[0].pronunciation;
    } else {
      for (const MarkName& mark : kMarkNames)
        if (mark.mark == ch) said = mark.name;
    }
    last = IsKanji(ch) ? said : u"";
    reading += said;
  }
  return LongVowels(std::move(reading));
}

bool IsParticle(const Word& word) { return word.partOfSpeech == u"助詞"; }
bool IsSymbol(const Word& word) { return word.partOfSpeech == u"記号"; }
bool IsOpening(const Word& word) { return IsSymbol(word) && word.subclass == u"括弧開"; }
bool IsNoun(const Word& word) {
  return word.partOfSpeech == u"名詞" && word.subclass != u"非自立" && word.subclass != u"接尾";
}

// A particle can't open a phrase: there MeCab has misread a word (はな
// alone), and the kana are read as they are written. A phrase opens behind
// a symbol, one MeCab does not know (a colon) included.
bool OpensPhrase(const std::vector<Word>& words, size_t i) {
  if (i == 0 || words[i].blankBefore || IsSymbol(words[i - 1])) return true;
  const std::u16string& before = words[i - 1].surface;
  return std::none_of(before.begin(), before.end(), [](char16_t ch) {
    return IsKanji(ch) || IsHiragana(ch) || IsKatakana(ch) || (ch >= u'0' && ch <= u'9') ||
           ((ch | 0x20) >= u'a' && (ch | 0x20) <= u'z');
  });
}

// The word as spoken. Behind a number, 月 counts months (3月 サンガツ):
// the dictionary reads it so only behind numerals it knows, and digits
// reach it as ASCII.
std::u16string Spoken(const std::vector<Word>& words, size_t i) {
  const Word& word = words[i];
  if (word.surface == u"月" && i > 0 && words[i - 1].subclass == u"数") return u"ガツ";
  if (!Known(word)) return UnknownWordReading(word.surface);
  if (IsParticle(word) && OpensPhrase(words, i)) return word.reading;
  return word.pronunciation;
}

// The word as Braille writes it: as pronounced, except that a long e-row
// vowel spelled イ keeps its イ; words of katakana, Latin letters and digits
// as they are written (ヴァイオリン, Tシャツ).
std::u16string Written(const std::vector<Word>& words, size_t i) {
  const Word& word = words[i];
  if (std::none_of(word.surface.begin(), word.surface.end(),
                   [](char16_t ch) { return IsKanji(ch) || IsHiragana(ch); }))
    return word.surface;
  std::u16string spoken = Spoken(words, i);
  if (word.reading.size() == spoken.size() && !(IsParticle(word) && !OpensPhrase(words, i))) {
    for (size_t k = 0; k < spoken.size(); ++k)
      if (spoken[k] == u'ー' && word.reading[k] == u'イ') spoken[k] = u'イ';
  }
  return spoken;
}

// Whether Braille puts a blank between words[i - 1] and words[i]: before
// each independent word, not before particles, auxiliaries and suffixes;
// a compound noun is split only between parts of three morae or more.
bool BlankBefore(const std::vector<Word>& words, const std::vector<std::u16string>& written,
                 size_t i) {
  const Word& word = words[i];
  const Word& before = words[i - 1];
  if (word.blankBefore) return true;
  if (word.partOfSpeech.empty()) return false;
  // No word begins with a long vowel or a small kana: MeCab has split a
  // kana word (すご|ーい, きゃり|ー).
  if (!written[i].empty() && std::u16string_view(u"ーァィゥェォャュョッヮ").find(written[i][0]) !=
                                 std::u16string_view::npos)
    return false;
  // No word ends in a geminate: MeCab has split a kana word (がっ|こう).
  if (!written[i - 1].empty() && written[i - 1].back() == u'ッ') return false;
  if (IsOpening(word)) return !IsOpening(before);
  if (IsSymbol(word) || IsSymbol(before)) return false;
  if (!IsJapanese(word.surface) || !IsJapanese(before.surface)) return false;
  if (IsParticle(word) || word.partOfSpeech == u"助動詞" || word.subclass == u"接尾") return false;
  if (before.partOfSpeech == u"接頭詞") return false;
  if (word.subclass == u"非自立" && word.partOfSpeech == u"名詞")
    return word.surface != u"の" && word.surface != u"ん";
  if (IsNoun(word) && IsNoun(before))
    return CountMorae(written[i]) >= 3 && CountMorae(written[i - 1]) >= 3;
  if (word.partOfSpeech == u"動詞" && word.base == u"する" && before.subclass == u"サ変接続")
    return false;
  // A verb behind a verb's continuative form makes one compound verb
  // (読み始める); behind a て-form the helping verb stands apart (見て いる).
  if (word.partOfSpeech == u"動詞" && before.partOfSpeech == u"動詞" && before.form == u"連用形")
    return false;
  return true;
}

// For each unit of the word as Braille writes it, the unit of its surface
// it comes from: the kana it begins and ends with where they are written
// as they stand (読み ヨミ: ミ from み), what lies between from the first
// unit between (a kanji word's reading does not split by character).
std::vector<int> WrittenSources(const Word& word, std::u16string_view written) {
  const std::u16string surface = ToKatakana(word.surface);
  size_t front = 0, back = 0;
  while (front < written.size() && front < surface.size() && surface[front] == written[front])
    ++front;
  while (back < written.size() - front && back < surface.size() - front &&
         surface[surface.size() - 1 - back] == written[written.size() - 1 - back])
    ++back;
  const int between = static_cast<int>(std::min(front, surface.empty() ? 0 : surface.size() - 1));
  std::vector<int> sources;
  for (size_t k = 0; k < written.size(); ++k) {
    if (k < front) {
      sources.push_back(static_cast<int>(k));
    } else if (k >= written.size() - back) {
      sources.push_back(static_cast<int>(surface.size() - (written.size() - k)));
    } else {
      sources.push_back(between);
    }
  }
  return sources;
}

// Calls `line` for each line of the normalised text, with the unit of the
// normalised text where it starts.
template <typename LineFunction>
void ForEachLine(const std::u16string& normal, LineFunction line) {
  size_t start = 0;
  while (start <= normal.size()) {
    size_t end = normal.find_first_of(u"\r\n", start);
    if (end == std::u16string::npos) end = normal.size();
    line(std::u16string_view(normal).substr(start, end - start), start);
    if (end < normal.size() && normal[end] == u'\r' && end + 1 < normal.size() &&
        normal[end + 1] == u'\n')
      ++end;
    start = end + 1;
  }
}

// BrailleKana, with the unit of `text` that each unit comes from when
// `sources` is given (a blank between words from the blank before the
// word, or from the word where none stood).
std::u16string BrailleKanaFrom(std::u16string_view text, std::vector<int>* sources) {
  std::vector<int> normalSources;
  const std::u16string normal = NormalizeWidth(text, sources != nullptr ? &normalSources : nullptr);
  std::u16string kana;
  const auto addSource = [&](size_t normalUnit) {
    sources->push_back(normalSources[std::min(normalUnit, normalSources.size() - 1)]);
  };
  ForEachLine(normal, [&](std::u16string_view line, size_t lineStart) {
    const std::vector<Word> words = LineWords(line);
    std::vector<std::u16string> written;
    for (size_t i = 0; i < words.size(); ++i) written.push_back(Written(words, i));
    for (size_t i = 0; i < words.size(); ++i) {
      const size_t start = lineStart + words[i].start;
      if (!kana.empty() && (i == 0 || BlankBefore(words, written, i)) && kana.back() != u' ') {
        kana += u' ';
        if (sources != nullptr) addSource(i == 0 || words[i].blankBefore ? start - 1 : start);
      }
      kana += written[i];
      if (sources != nullptr)
        for (const int from : WrittenSources(words[i], written[i]))
          addSource(start + static_cast<size_t>(from));
    }
  });
  return kana;
}

}  // namespace

std::u16string SpeechReading(std::u16string_view text) {
  std::u16string reading;
  ForEachLine(NormalizeWidth(text), [&](std::u16string_view line, size_t start) {
    if (start > 0) reading += u'\n';
    const std::vector<Word> words = LineWords(line);
    for (size_t i = 0; i < words.size(); ++i) {
      if (words[i].blankBefore && i > 0) reading += u' ';
      reading += Spoken(words, i);
    }
  });
  return reading;
}

std::u16string BrailleKana(std::u16string_view text) { return BrailleKanaFrom(text, nullptr); }

std::u16string BrailleCells(std::u16string_view text) { return KanaToCells(BrailleKana(text)); }

std::u16string BrailleCellsWithSources(std::u16string_view text, std::vector<int>& sources) {
  std::vector<int> kanaSources, cellSources;
  const std::u16string cells = KanaToCells(BrailleKanaFrom(text, &kanaSources), &cellSources);
  sources.clear();
  for (const int from : cellSources) sources.push_back(kanaSources[static_cast<size_t>(from)]);
  return cells;
}
