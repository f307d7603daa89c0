// Japanese six-dot Braille from a text already written as it is to be read:
// katakana in its Braille spelling (ガッコー, センセイ, particles ワ エ ヲ),
// blanks between words, ASCII letters and digits, punctuation.
//
// Kana take one cell, or two with the voiced (⠐), semi-voiced (⠠),
// contracted (⠈ ⠘ ⠨) and the special-sound signs (⠢ ⠲ ⠸); digits follow
// the number sign ⠼, Latin letters the foreign-letter sign ⠰ (a capital
// behind ⠠, a word of capitals behind ⠠⠠); a kana of the ア or ラ rows
// right behind a number, and any kana right behind a Latin word, takes the
// joining sign ⠤ so that it is not read as a digit or a letter. 。 is followed by two blanks and 、 ？ ！
// by one when more text follows. A run of blanks is one blank cell; there is
// no blank at either end. A character with no Braille form is the full cell
// ⠿; Braille cells in the text are kept.
#ifndef READING_BRAILLE_CELLS_H_
#define READING_BRAILLE_CELLS_H_

#include <string>
#include <string_view>
#include <vector>

// Unicode Braille patterns (U+2800..U+28FF), U+2800 being the blank cell.
// With `sources`, for each cell the unit of `text` it comes from: the
// signs of a kana, digit or letter come from it, every cell of a kana
// written with a second one (キャ, ティ) from the first, a blank from the
// blank of the text it stands for, or else (punctuation's) from what
// follows it. The sources never fall from one cell to the next.
std::u16string KanaToCells(std::u16string_view text, std::vector<int>* sources = nullptr);

#endif  // READING_BRAILLE_CELLS_H_
