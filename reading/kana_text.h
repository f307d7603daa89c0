// Character helpers shared by the reading and the Braille translation:
// kana classes, hiragana to katakana, and the width normalisation that puts
// full-width ASCII and half-width katakana in the forms the dictionary and
// the Braille tables know.
#ifndef READING_KANA_TEXT_H_
#define READING_KANA_TEXT_H_

#include <string>
#include <string_view>
#include <vector>

bool IsHiragana(char16_t ch);
// Katakana U+30A1..U+30FA and the prolonged sound mark ー.
bool IsKatakana(char16_t ch);
// CJK ideographs (the unified block and extension A, compatibility
// ideographs), the iteration mark 々 and 〆: what needs a reading to be
// spoken.
bool IsKanji(char16_t ch);
// Blank, tab, line break, ideographic space and other C0 controls.
bool IsBlank(char16_t ch);

// Hiragana become the katakana of the same sound; everything else stays.
std::u16string ToKatakana(std::u16string_view text);

// Full-width ASCII (Ａ, １, ！...) becomes ASCII, half-width katakana
// becomes full-width (with its voiced marks joined), the ideographic space
// and control characters become a blank, a lone surrogate becomes U+FFFD.
// With `sources`, the unit of `text` that each unit of the result comes
// from (a voiced mark joined to its kana adds none).
std::u16string NormalizeWidth(std::u16string_view text, std::vector<int>* sources = nullptr);

// Morae of a katakana reading: every kana except the small ャュョァィゥェォヮ.
int CountMorae(std::u16string_view katakana);

#endif  // READING_KANA_TEXT_H_
