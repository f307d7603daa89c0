// Walks through the built epwingdict on the demo card, as its user meets
// them: a lookup from word to article to candidate and back, and what the
// controls tell on the way.
#include <fstream>
#include <string>

#include "testing/epwingdict_runner.h"

namespace {

using DemoCardRunTest = EpwingdictRunner;

}  // namespace

TEST_F(DemoCardRunTest, LookupWalkFromWordToArticleToCandidateAndBack) {
  EXPECT_TRUE(HasLinesInOrder(
      RunScript("48\n24\nKEY_NEXT_CTRL\ntext はな\nKEY_ENTER\n"
                "48\nKEY_ENTER\n48\nKEY_BACK\n"                   // the second article
                "KEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_ENTER\n"       // the first candidate
                "KEY_MENU\n48\nKEY_ENTER\nKEY_ENTER\n"            // MENU_TO_SEARCH
                "KEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_ENTER\n"       // the word again, by the button
                "KEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_ENTER\n"  // candidate by button
                "KEY_ENTER\nKEY_ENTER\nKEY_EXIT\nKEY_EXIT\nKEY_EXIT\n"),
      {"STARTED", "BRL 辞書選択:プラス辞典/ことわざ小辞典", "BRL 検索ワード:はな",
       "TTS 検索開始", "BRL 検索結果:はな【花】", "BRL 検索結果:はな【鼻】",
       // The article of 鼻, its second line, and back on its head line.
       "BRL 検索結果:はな【鼻】", "BRL 顔の中央にあって、においをかぐ器官。",
       "BRL 検索結果:はな【鼻】", "TTS 開く ボタン", "BRL 前方一致検索候補:ばなな【バナナ】",
       "TTS 検索開始", "BRL 検索結果:ばなな【バナナ】",
       // The menu over the results: MENU_TO_SEARCH lands on the list.
       "TTS メニュー 終了", "BRL 移動", "BRL 検索画面へ", "BRL 辞書選択:プラス辞典/ことわざ小辞典",
       // The field keeps the word; a new lookup puts both selections at 0.
       "BRL 検索ワード:はな", "TTS 検索開始 ボタン", "TTS 検索開始", "BRL 検索結果:はな【花】",
       "BRL 前方一致検索候補:ばなな【バナナ】", "TTS 検索開始 ボタン", "TTS 検索開始",
       "BRL 検索結果:ばなな【バナナ】",
       // KEY_ENTER on the article beeps; the exits go back screen by
       // screen, to the focus each had, and the last one closes.
       "BRL 検索結果:ばなな【バナナ】", "BEEP 32", "BRL 検索結果:ばなな【バナナ】",
       "TTS 検索開始 ボタン", "ENDED"}));
}

// Beyond the screens' own messages: beeps at the ends of lists and texts,
// the position key, the article read on opening and read again on
// request, and the help. (Where typing goes: the edit control's tests.)
TEST_F(DemoCardRunTest, ListsAndArticlesBeepAtTheirEndsAndTellThePosition) {
  EXPECT_TRUE(HasLinesInOrder(
      RunScript("24\nKEY_POSITION\n"                        // the first of one dictionary
                "KEY_NEXT_CTRL\ntext はな\nKEY_ENTER\n"
                "48\n48\nKEY_POSITION\n"                   // the last of the articles
                "24\nKEY_ENTER\n"                          // the first article
                "24\n48\nKEY_POSITION\n48\n48\n"           // its first, second and last line
                "KEY_EXIT\nKEY_EXIT\nKEY_EXIT\n"),
      {"BEEP 32", "BRL 辞書選択:プラス辞典/ことわざ小辞典", "TTS 1/1",
       "BRL 検索結果:はな【鼻】", "BEEP 32", "BRL 検索結果:はな【鼻】", "TTS 2/2",
       // Opening the article reads it out whole, its first line on Braille.
       "BRL 検索結果:はな【花】",
       "TTS 検索結果:はな【花】 植物が咲かせるもの。桜など。 英語 flower 文末", "BEEP 32",
       "BRL はな【花】", "BRL 植物が咲かせるもの。桜など。", "TTS 2/3", "BRL 英語 flower ",
       "BEEP 32", "BRL 英語 flower ", "ENDED"}));
}

TEST_F(DemoCardRunTest, ReadingGoesOnFromTheCursorAndStopsWhereItGot) {
  EXPECT_TRUE(HasLinesInOrder(
      RunScript("KEY_NEXT_CTRL\ntext はな\nKEY_ENTER\nKEY_ENTER\n"
                "readstop 8\n"               // stopped early in the second line
                "readall\nreadstop 99\n"     // read from there to the end
                "KEY_NEXT_CTRL\nreadall\n"   // no text in view: a beep
                "KEY_EXIT\nKEY_EXIT\nKEY_EXIT\n"),
      {"TTS 検索結果:はな【花】 植物が咲かせるもの。桜など。 英語 flower 文末",
       "BRL 植物が咲かせるもの。桜など。", "TTS 植物が咲かせるもの。桜など。",
       "TTS 植物が咲かせるもの。桜など。 英語 flower 文末", "BRL 英語 flower ", "TTS 閉じる ボタン",
       "BEEP 32", "ENDED"}));
}

TEST_F(DemoCardRunTest, HelpTellsTheKeysOfTheControlInViewInJapanese) {
  const std::string list =
      "TTS ヘルプ。リストのキー。上矢印、前の項目。下矢印、次の項目。共通のキー。"
      "タブ、次のコントロール。";
  const std::string transcript = RunScript("KEY_HELP\ntext ?\nKEY_NEXT_CTRL\nKEY_HELP\nKEY_EXIT\n");
  // F1 and "?" on the list alike; the list's keys, then the common ones.
  const size_t first = transcript.find(list);
  ASSERT_NE(first, std::string::npos) << transcript;
  EXPECT_NE(transcript.find(list, first + 1), std::string::npos) << transcript;
  EXPECT_NE(transcript.find("TTS ヘルプ。入力欄のキー。左矢印、一文字戻る。"), std::string::npos);
  EXPECT_NE(transcript.find("F1、ヘルプ。F3、位置。"), std::string::npos);
  EXPECT_EQ(transcript.find("BEEP"), std::string::npos);
}

// Signs and links, hidden by default, show when the settings file asks.
TEST_F(DemoCardRunTest, DisplayOptionsOfTheSettingsFileChangeWhatIsShown) {
  std::ofstream(work / "epwingdict.ini")
      << "[OPTION_SETTING]\nPH_SIGNS_VISIBLE=1\nLINK_VISIBLE=1\n";
  const std::string shown =
      RunScript("KEY_NEXT_CTRL\ntext はな\nKEY_ENTER\nKEY_ENTER\n48\n48\nKEY_EXIT\nKEY_EXIT\nKEY_EXIT\n");
  EXPECT_NE(shown.find("BRL 植物が咲かせるもの。<→桜|"), std::string::npos) << shown;
  EXPECT_TRUE(HasLinesInOrder(shown, {"BRL 英語 flower /flau-@r/"}));
}
