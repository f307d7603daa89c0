// Half-width forms: JIS X 0201 katakana for the kana of JIS X 0208, a
// voiced kana as its plain kana and 0xDE, a semi-voiced one with 0xDF.
// Three kana without a half-width form keep their full-width Shift-JIS code.
#include "text/halfwidth_tables.h"

// clang-format off
const uint32_t halfwidth_kana[kHalfwidthKanaCount] = {
    //   ァ      ア      ィ      イ      ゥ      ウ      ェ      エ
    0xA7,   0xB1,   0xA8,   0xB2,   0xA9,   0xB3,   0xAA,   0xB4,
    //   ォ      オ      カ      ガ      キ      ギ      ク      グ
    0xAB,   0xB5,   0xB6,   0xB6DE, 0xB7,   0xB7DE, 0xB8,   0xB8DE,
    //   ケ      ゲ      コ      ゴ      サ      ザ      シ      ジ
    0xB9,   0xB9DE, 0xBA,   0xBADE, 0xBB,   0xBBDE, 0xBC,   0xBCDE,
    //   ス      ズ      セ      ゼ      ソ      ゾ      タ      ダ
    0xBD,   0xBDDE, 0xBE,   0xBEDE, 0xBF,   0xBFDE, 0xC0,   0xC0DE,
    //   チ      ヂ      ッ      ツ      ヅ      テ      デ      ト
    0xC1,   0xC1DE, 0xAF,   0xC2,   0xC2DE, 0xC3,   0xC3DE, 0xC4,
    //   ド      ナ      ニ      ヌ      ネ      ノ      ハ      バ
    0xC4DE, 0xC5,   0xC6,   0xC7,   0xC8,   0xC9,   0xCA,   0xCADE,
    //   パ      ヒ      ビ      ピ      フ      ブ      プ      ヘ
    0xCADF, 0xCB,   0xCBDE, 0xCBDF, 0xCC,   0xCCDE, 0xCCDF, 0xCD,
    //   ベ      ペ      ホ      ボ      ポ      マ      ミ      ム
    0xCDDE, 0xCDDF, 0xCE,   0xCEDE, 0xCEDF, 0xCF,   0xD0,   0xD1,
    //   メ      モ      ャ      ヤ      ュ      ユ      ョ      ヨ
    0xD2,   0xD3,   0xAC,   0xD4,   0xAD,   0xD5,   0xAE,   0xD6,
    //   ラ      リ      ル      レ      ロ      ヮ      ワ      ヰ
    0xD7,   0xD8,   0xD9,   0xDA,   0xDB,   0x838E, 0xDC,   0x8390,
    //   ヱ      ヲ      ン      ヴ
    0x8391, 0xA6,   0xDD,   0xB3DE,
};
// clang-format on

namespace {

struct HalfwidthMark {
  int32_t code;     // JIS X 0208 code of the mark
  uint32_t result;  // its half-width byte
};

constexpr HalfwidthMark kHalfwidthMarks[] = {
    {0x2122, 0xA4},  // 、
    {0x2123, 0xA1},  // 。
    {0x2126, 0xA5},  // ・
    {0x212B, 0xDE},  // ゛
    {0x212C, 0xDF},  // ゜
    {0x213C, 0xB0},  // ー
    {0x213E, 0x2D},  // ‐
    {0x2156, 0xA2},  // 「
    {0x2157, 0xA3},  // 」
};

}  // namespace

uint32_t halfwidth_punctuation(int32_t code) {
  for (const HalfwidthMark& mark : kHalfwidthMarks) {
    if (mark.code == code) return mark.result;
  }
  return 0;
}
