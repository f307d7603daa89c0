// The words of a line as MeCab and its dictionary (IPADIC in UTF-8) split
// them, with their readings and parts of speech. MeCab is loaded once per
// process, on first use; when it or its dictionary cannot be loaded, the
// reason is said once on standard error and every call answers false.
#ifndef READING_MECAB_WORDS_H_
#define READING_MECAB_WORDS_H_

#include <string>
#include <string_view>
#include <vector>

struct Word {
  std::u16string surface;        // the word as written
  std::u16string reading;        // katakana as spelled (ガッコウ); empty when unknown
  std::u16string pronunciation;  // katakana as spoken (ガッコー); empty when unknown
  std::u16string partOfSpeech;   // 名詞, 助詞, 動詞...; empty when unknown
  std::u16string subclass;       // 係助詞, 接尾, 非自立, 数...; "*" for none
  std::u16string form;           // the conjugated form (連用形...); "*" for none
  std::u16string base;           // the dictionary form (する for し); "*" when unknown
  bool blankBefore = false;      // whitespace stood in front of it
  size_t start = 0;              // where it starts in the line, in UTF-16 units
};

// Appends the words of `line` (which holds no line break) to `words`.
// False, with nothing appended, when MeCab is not available or cannot
// parse the line.
bool SplitWords(std::u16string_view line, std::vector<Word>& words);

#endif  // READING_MECAB_WORDS_H_
