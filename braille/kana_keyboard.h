// Typing on a Braille keyboard in Japanese Braille (six dots): each cell
// typed becomes kana text, in hiragana, as a Japanese user writes it.
//
//   kana          one cell each: ⠁ あ … ⠴ ん, ⠂ っ, ⠒ ー, ⠄ わ, ⠔ を
//   ⠐ (5)         voiced sign: ⠐⠡ が, ⠐⠳ じ, ⠐⠉ ゔ
//   ⠠ (6)         semi-voiced sign: ⠠⠥ ぱ
//   ⠈ (4)         contracted sign before the a/u/o kana of a row: ⠈⠡ きゃ
//   ⠘ (45)        voiced contracted: ⠘⠡ ぎゃ;   ⠨ (46) semi-voiced: ⠨⠥ ぴゃ
//   ⠼ (3456)      number sign: the cells of a-j are digits 1-9, 0 until a
//                 blank, the joining sign ⠤ (36) or a cell that is no digit;
//                 inside a number ⠂ is the decimal point and ⠄ the comma
//   punctuation   ⠲ 。 ⠰ 、 ⠢ ？ ⠖ ！
//   the blank     a space
//
// A sign waits for the cell behind it; a sign with a cell it cannot go
// with is dropped and the cell typed as it stands. The cells are those of
// the translation the display is written with (reading/braille_cells.h),
// read backwards: a cell types what it shows. Cells that mean nothing
// (dots 7 and 8 among them) type nothing and drop a waiting sign.
#ifndef BRAILLE_KANA_KEYBOARD_H_
#define BRAILLE_KANA_KEYBOARD_H_

#include <cstdint>
#include <string>

class KanaKeyboard {
 public:
  // The text that the cell `dots` (bit 0 dot 1 … bit 7 dot 8) completes;
  // empty while a sign waits for its kana.
  std::u16string Type(uint8_t dots);
  // Drops a waiting sign and ends a number: another key came between.
  void Reset();

 private:
  char16_t sign_ = 0;    // the cell of the sign waiting for its kana, 0 none
  bool number_ = false;  // behind the number sign
};

// The dots of a cell written as digits ("136"); "0" the blank. False when
// `digits` holds anything else or a dot twice.
bool ParseDots(const std::string& digits, uint8_t& dots);

#endif  // BRAILLE_KANA_KEYBOARD_H_
