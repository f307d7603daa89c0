// The walk of a lookup through the built epwingdict on the demo card.
#include <fstream>
#include <string>

#include "testing/epwingdict_runner.h"

namespace {

class LookupWalkTest : public EpwingdictRunner {};

}  // namespace

TEST_F(LookupWalkTest, LookupWalkFromWordToArticleToCandidateAndBack) {
  ASSERT_EQ(Run("48\n24\nKEY_NEXT_CTRL\ntext はな\nKEY_ENTER\n"
                "48\nKEY_ENTER\n48\nKEY_BACK\n"                   // the second article
                "KEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_ENTER\n"       // the first candidate
                "KEY_MENU\n48\nKEY_ENTER\nKEY_ENTER\n"            // MENU_TO_SEARCH
                "KEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_ENTER\n"       // the word again, by the button
                "KEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_ENTER\n"  // candidate by button
                "KEY_ENTER\nKEY_ENTER\nKEY_EXIT\nKEY_EXIT\nKEY_EXIT\n"),
            0)
      << ReadWholeFile(work / "stderr.txt");
  EXPECT_TRUE(HasLinesInOrder(
      Transcript(),
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

// Signs and links hidden by default (user_feedback_run_test.cc) show when
// the settings file asks.
TEST_F(LookupWalkTest, DisplayOptionsOfTheSettingsFileChangeWhatIsShown) {
  std::ofstream(work / "epwingdict.ini")
      << "[OPTION_SETTING]\nPH_SIGNS_VISIBLE=1\nLINK_VISIBLE=1\n";
  ASSERT_EQ(Run("KEY_NEXT_CTRL\ntext はな\nKEY_ENTER\nKEY_ENTER\n48\n48\nKEY_EXIT\nKEY_EXIT\nKEY_EXIT\n"), 0);
  const std::string shown = Transcript();
  EXPECT_NE(shown.find("BRL 植物が咲かせるもの。<→桜|"), std::string::npos) << shown;
  EXPECT_TRUE(HasLinesInOrder(shown, {"BRL 英語 flower /flau-@r/"}));
}
