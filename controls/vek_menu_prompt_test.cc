#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "testing/recording_presenter.h"
#include "platform/utf8_text.h"
#include "controls/vek_menu_ctrl.h"
#include "controls/vek_prompt_ctrl.h"
#include "testing/temp_tree.h"

namespace {

// A language file of `text` in a fresh folder; its host path as a wide
// string.
CString LanguageFile(const std::string& text) {
  const std::filesystem::path path = fresh_directory("controls_lang") / "words.lng";
  std::ofstream(path, std::ios::binary) << text;
  return FromUtf8(path.string());
}

// The menu as the frame builds it on the search screen.
void Build(CVekMenuCtrl& menu) {
  menu.InitPrompt();
  HVEKMENUITEM close = menu.AddMenu(nullptr, 1, 44, 1, u"", nullptr, 0);
  menu.AddMenu(close, 2, 202, 0, u"", nullptr, 0);
  HVEKMENUITEM go = menu.AddMenu(nullptr, 4, 72, 1, u"", nullptr, 0);
  menu.AddMenu(go, 5, 104, 0, u"", nullptr, 0);
  HVEKMENUITEM options = menu.AddMenu(nullptr, 6, 74, 1, u"", nullptr, 0);
  menu.AddMenu(options, 7, 74, 0, u"", nullptr, 0);
  menu.SetFocus();
  menu.DoModal();
}

TEST(MenuTest, MovesOpensGroupsAndChooses) {
  ScopedRecordingPresenter out;
  const CString file = LanguageFile("\xEF\xBB\xBF# labels\r\ntitle=メニュー\r\n1=終了\r\n 4 =移動\n5=辞書の追加と削除\nbad line\n");
  CVekMenuCtrl menu;
  menu.OpenRes(file);
  Build(menu);
  EXPECT_EQ(out.Events(), (std::vector<std::string>{"BRL 終了", "TTS メニュー 終了"}));

  // Each key keeps the menu open and shows where it went; 項目6 has no
  // label in the file, the menu goes round its end, and Enter opens a
  // group.
  const std::pair<uint32_t, const char*> moves[] = {
      {48, "移動"}, {16384, "項目6"}, {48, "終了"}, {24, "項目6"}, {8192, "移動"},
      {256, "辞書の追加と削除"}};
  for (const auto& [key, shown] : moves) {
    EXPECT_NE(menu.OnBrailleKey(key, 0), 0u) << key;
    EXPECT_EQ(out.LastBraille(), shown) << key;
  }
  EXPECT_EQ(menu.OnBrailleKey(256, 0), 0u);
  EXPECT_EQ(menu.GetSelectID(), 5);
  EXPECT_FALSE(menu.IsOpen());

  // The key value of an entry chooses it: 74 opens group 6, then picks 7.
  Build(menu);
  EXPECT_NE(menu.OnBrailleKey(74, 0), 0u);
  EXPECT_EQ(menu.OnBrailleKey(74, 0), 0u);
  EXPECT_EQ(menu.GetSelectID(), 7);

  for (uint32_t back : {88u, 218u}) {
    Build(menu);
    menu.OnBrailleKey(256, 0);
    EXPECT_EQ(menu.OnBrailleKey(back, 0), 0u);
    EXPECT_EQ(menu.GetSelectID(), 0);
  }

  // An empty menu is told as such, and Enter closes it with no choice.
  menu.InitPrompt();
  menu.SetFocus();
  EXPECT_EQ(out.LastBraille(), "項目なし");
  EXPECT_EQ(menu.OnBrailleKey(256, 0), 0u);
  EXPECT_EQ(menu.GetSelectID(), 0);
}

TEST(PromptTest, AnswersAndClosingKeys) {
  ScopedRecordingPresenter out;
  const CString file = LanguageFile("yes=する\nno=しない\n");
  CVekPromptCtrl prompt;
  prompt.OpenRes(file);
  prompt.SetPrompt(u"プラス辞典 を削除しますか？", 1, 0);
  prompt.SetFocus();
  EXPECT_EQ(out.LastSpeech(), "プラス辞典 を削除しますか？ しない");
  EXPECT_NE(prompt.OnBrailleKey(48, 0), 0u);
  EXPECT_EQ(out.LastSpeech(), "する");
  EXPECT_EQ(prompt.OnBrailleKey(256, 0), 0u);
  EXPECT_EQ(prompt.GetSelectKey(), 234u);

  // Other keys keep it open; 234 answers yes at once. (No on Enter and
  // the closing keys: the management runs.)
  prompt.SetPrompt(u"q", 1, 0);
  prompt.SetFocus();
  EXPECT_NE(prompt.OnBrailleKey(112, 0), 0u);
  EXPECT_EQ(prompt.OnBrailleKey(234, 0), 0u);
  EXPECT_EQ(prompt.GetSelectKey(), 234u);

  CVekPromptCtrl bare;
  bare.OpenRes(u"\\windows\\no_such_words.lng");
  EXPECT_EQ(bare.YesWord(), CString(u"はい"));
  EXPECT_EQ(bare.NoWord(), CString(u"いいえ"));
}

}  // namespace
