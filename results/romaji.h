// Romaji as hiragana, for words typed on a keyboard without a Japanese
// input method (a text console has none). Both Hepburn and kunrei
// spellings read, with the spellings in common use beside them: shi/si,
// chi/ti, tsu/tu, fu/hu, ji/zi, sha/sya, cha/tya/cya, ja/zya/jya, the
// nihon-shiki di/du/dya, wo for を, the foreign-sound syllables fa, she,
// che, je, vu and the small kana of x (xa, xtu, xya...).
//
// The syllabic n is n before a consonant other than y, n at the end, n'
// (kon'ya, kin'en) and nn before a consonant or at the end (as input
// methods type it); m before b, m or p is ん too (shimbun, tempura). A
// doubled consonant is っ (gakkou, kitte), and so is the t of tch
// (matcha). Long vowels stay as typed: kyouto is きょうと, oo is おお; a
// hyphen is the long-vowel mark ー. Capitals read as small letters.
#ifndef RESULTS_ROMAJI_H_
#define RESULTS_ROMAJI_H_

#include <string>

// The hiragana of `latin` when the whole word reads as romaji; false, with
// `kana` empty, when it doesn't (an empty word, a character that is no
// ASCII letter, apostrophe or hyphen, a consonant that starts no syllable:
// "apple", "ice", "tokyo2").
bool RomajiToHiragana(const std::u16string& latin, std::u16string& kana);

#endif  // RESULTS_ROMAJI_H_
