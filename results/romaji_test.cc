#include "results/romaji.h"

#include <gtest/gtest.h>

#include "platform/utf8_text.h"

namespace {

struct Row {
  const char16_t* typed;
  const char16_t* kana;  // null: not romaji
};

// Hepburn and kunrei side by side, the syllabic n and the small tsu in all
// their spellings, and words that are no romaji.
constexpr Row kRows[] = {
    // the three words users try first
    {u"hana", u"はな"}, {u"gakkou", u"がっこう"}, {u"kyouto", u"きょうと"},
    // shi/si, chi/ti, tsu/tu, fu/hu, ji/zi
    {u"sushi", u"すし"}, {u"susi", u"すし"}, {u"chikara", u"ちから"}, {u"tikara", u"ちから"},
    {u"tsuki", u"つき"}, {u"tuki", u"つき"}, {u"fuji", u"ふじ"}, {u"huzi", u"ふじ"}, {u"jikan", u"じかん"},
    {u"zikan", u"じかん"},
    // contracted syllables
    {u"shashin", u"しゃしん"}, {u"syasin", u"しゃしん"}, {u"chawan", u"ちゃわん"}, {u"tyawan", u"ちゃわん"},
    {u"cyawan", u"ちゃわん"}, {u"jouzu", u"じょうず"}, {u"zyouzu", u"じょうず"}, {u"jyouzu", u"じょうず"},
    {u"ryokou", u"りょこう"}, {u"kyuuri", u"きゅうり"}, {u"hyaku", u"ひゃく"}, {u"myou", u"みょう"},
    {u"nyuuin", u"にゅういん"}, {u"byouin", u"びょういん"}, {u"pyon", u"ぴょん"}, {u"gyuunyuu", u"ぎゅうにゅう"},
    // nihon-shiki and を
    {u"hanadi", u"はなぢ"}, {u"tuduku", u"つづく"}, {u"wo", u"を"},
    // the syllabic n
    {u"hon", u"ほん"}, {u"kon'ya", u"こんや"}, {u"konya", u"こにゃ"}, {u"kin'en", u"きんえん"},
    {u"kinen", u"きねん"}, {u"konnichiha", u"こんにちは"}, {u"konnnichiha", u"こんにちは"}, {u"onna", u"おんな"},
    {u"hann", u"はん"}, {u"shinbun", u"しんぶん"}, {u"shimbun", u"しんぶん"}, {u"tempura", u"てんぷら"},
    {u"sanpo", u"さんぽ"}, {u"nihon", u"にほん"},
    // the small tsu
    {u"kitte", u"きって"}, {u"zasshi", u"ざっし"}, {u"matcha", u"まっちゃ"}, {u"maccha", u"まっちゃ"},
    {u"mittsu", u"みっつ"}, {u"kippu", u"きっぷ"}, {u"xtu", u"っ"},
    // long vowels as typed
    {u"toukyou", u"とうきょう"}, {u"tookyoo", u"とおきょお"}, {u"oosaka", u"おおさか"}, {u"sensei", u"せんせい"},
    {u"ra-men", u"らーめん"},
    // foreign sounds, capitals
    {u"fairu", u"ふぁいる"}, {u"vaiorin", u"ゔぁいおりん"}, {u"chekku", u"ちぇっく"}, {u"Kyouto", u"きょうと"},
    {u"HANA", u"はな"},
    // no romaji
    {u"", nullptr}, {u"apple", nullptr}, {u"ice", nullptr}, {u"test", nullptr},
    {u"tokyo2", nullptr}, {u"-", nullptr}, {u"'n", nullptr}, {u"はな", nullptr}, {u"ｈａｎａ", nullptr},
    {u"ha na", nullptr}, {u"q", nullptr}, {u"kk", nullptr},
};

TEST(Romaji, Table) {
  for (const Row& row : kRows) {
    std::u16string kana = u"stale";
    const bool read = RomajiToHiragana(row.typed, kana);
    const std::string typed = ToUtf8(CString(row.typed));
    if (row.kana == nullptr) {
      EXPECT_FALSE(read) << typed;
      EXPECT_TRUE(kana.empty()) << typed;
    } else {
      EXPECT_TRUE(read) << typed;
      EXPECT_EQ(kana, std::u16string(row.kana)) << typed;
    }
  }
}

}  // namespace
