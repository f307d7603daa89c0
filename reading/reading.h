// The reading of a Japanese text: how it is spoken and how it is written
// in Braille. Kanji are read through MeCab's dictionary (mecab_words.h),
// word by word; kana, digits, Latin letters and symbols pass through.
// Without MeCab (its dictionary missing) kana still pass through and kanji
// stay as they are; the reason is said once on standard error.
//
// Any text is accepted: an empty one gives an empty result; lone
// surrogates read as U+FFFD; line breaks are kept in speech and become a
// blank in Braille.
#ifndef READING_READING_H_
#define READING_READING_H_

#include <string>
#include <string_view>
#include <vector>

// The katakana pronunciation for speech: 私は学校へ → ワタシワガッコーエ.
// Digits, Latin letters and symbols stay as written (full-width ones in
// ASCII); whitespace in the text stays a blank.
std::u16string SpeechReading(std::u16string_view text);

// The text as Braille writes it, in katakana with a blank between words:
// pronounced long vowels of the u and o rows as ー, but えい as エイ
// (先生 センセイ), the particles は へ を as ワ エ ヲ, particles and
// auxiliaries joined to the word before them.
std::u16string BrailleKana(std::u16string_view text);

// BrailleKana in six-dot Japanese Braille, as Unicode Braille patterns
// U+2800..U+28FF, U+2800 the blank (see braille_cells.h).
std::u16string BrailleCells(std::u16string_view text);

// BrailleCells with, in `sources`, the unit of `text` that each cell comes
// from, from a single translation of the whole text: the cells of a word
// from its characters (a kanji word's reading, which does not split by
// character, from its first; kana written beside it from themselves), a
// blank between words from the blank before the word, or the word where
// none stood. The sources never fall from one cell to the next.
std::u16string BrailleCellsWithSources(std::u16string_view text, std::vector<int>& sources);

#endif  // READING_READING_H_
