#include "controls/vek_edit.h"

#include <gtest/gtest.h>

#include "controls/beep_window_for_test.h"
#include "controls/control_keys.h"
#include "controls/vek_button_ctrl.h"
#include "testing/recording_presenter.h"

namespace {

void Type(CVekEdit& edit, const CString& text) {
  std::vector<uint32_t> record = MakeJpnData(text);
  edit.OnReadJPNEditTXT(reinterpret_cast<_JPNDATA*>(record.data()));
}

// A field set up as the screens set up a writable line or a reading text.
void SetUpField(CVekEdit& edit, bool article, const CString& text) {
  edit.Empty();
  edit.SetMultiLine(article ? 1 : 0);
  edit.SetControl(article ? 7 : 4);
  edit.SetReadOnlyMode(0);
  edit.SetLabel(u"検索ワード:");
  edit.SetText(text, 0);
  if (article) edit.SetReadOnlyMode(1);
}

// One key pressed or text typed, and what the user then hears.
struct Step {
  uint32_t key;           // 0 for typed text
  const char16_t* typed;  // the text when key is 0
  const char* said;       // the last utterance behind it
};

// Takes the steps one by one, checking what each says.
void Walk(CVekEdit& edit, const RecordingPresenter& out, std::initializer_list<Step> steps) {
  int n = 0;
  for (const Step& step : steps) {
    SCOPED_TRACE(testing::Message() << "step " << n++);
    if (step.key != 0)
      edit.OnBrailleKey(step.key, 0);
    else
      Type(edit, step.typed);
    EXPECT_EQ(out.LastSpeech(), step.said);
  }
}

TEST(EditTest, TypingMovingAndDeletingInALine) {
  ScopedRecordingPresenter out;
  CVekEdit edit;
  SetUpField(edit, false, u"");
  edit.SetFocus(u"検索ワード:", 1);
  EXPECT_EQ(out.Events(), (std::vector<std::string>{"BRL 検索ワード:", "TTS 検索ワード:空欄"}));
  Walk(edit, out, {{0, u"いぬ", "いぬ"},
                   {CK_CHAR_LEFT, nullptr, "ぬ"},
                   {0, u"あ\nか", "あか"},  // line breaks don't enter a one-line field
                   {CK_BACKSPACE, nullptr, "か"},
                   {CK_DELETE, nullptr, "ぬ"},
                   {CK_CHAR_RIGHT, nullptr, "行末"},
                   {CK_DELETE, nullptr, "削除する文字がありません"},  // nothing at the end
                   {CK_LINE_START, nullptr, "い"},
                   {CK_BACKSPACE, nullptr, "削除する文字がありません"}});  // nor before the start
  EXPECT_EQ(out.LastBraille(), "検索ワード:いあ");
  EXPECT_EQ(edit.GetText(0), CString(u"いあ"));
  edit.OnBrailleCursor(7, 0);  // cells 0-5 hold the label
  EXPECT_EQ(edit.Cursor(), 1);

  // A character beyond the BMP is one step and one deletion.
  SetUpField(edit, false, u"a\U00020B9Fb");
  for (uint32_t key : {CK_LINE_START, CK_CHAR_RIGHT, CK_CHAR_RIGHT}) edit.OnBrailleKey(key, 0);
  EXPECT_EQ(edit.Cursor(), 3);
  edit.OnBrailleKey(CK_BACKSPACE, 0);
  EXPECT_EQ(edit.GetText(0), CString(u"ab"));
  EXPECT_EQ(edit.Cursor(), 1);
}

TEST(EditTest, ReadOnlyTextReadsByLineAndAll) {
  ScopedRecordingPresenter out;
  CVekEdit edit;
  SetUpField(edit, true, u"いぬ【犬】\r\n\n動物。");
  edit.SetFocus(u"検索結果:", 1);
  // Opening reads the whole text out, its first line on Braille.
  EXPECT_EQ(out.LastBraille(), "検索結果:いぬ【犬】");
  EXPECT_EQ(out.LastSpeech(), "検索結果:いぬ【犬】 動物。 文末");
  EXPECT_EQ(edit.Cursor(), 0);
  Walk(edit, out, {{CK_NEXT, nullptr, "空行"},
                   {CK_NEXT_ALT, nullptr, "動物。"},
                   {CK_NEXT, nullptr, "動物。"},  // last line: told again
                   {CK_PREV, nullptr, "空行"},
                   {CK_PREV_ALT, nullptr, "いぬ【犬】"},
                   {0, u"猫", "読み取り専用"},
                   {CK_BACKSPACE, nullptr, "読み取り専用"}});
  EXPECT_EQ(out.LastBraille(), "いぬ【犬】");
  EXPECT_EQ(edit.GetText(0), CString(u"いぬ【犬】\r\n\n動物。"));

  edit.OnBrailleKey(CK_NEXT, 0);
  edit.OnReadAll();  // from the start of the cursor's line
  EXPECT_EQ(out.LastSpeech(), "動物。 文末");
  edit.PositionAtReadStop(3, 0);
  EXPECT_EQ(edit.Cursor(), 10);
  EXPECT_EQ(out.LastBraille(), "動物。");
  edit.PositionAtReadStop(4000000000u, 0);
  EXPECT_EQ(edit.Cursor(), 11);
  out.Clear();
  edit.OnReadAllEnd(1);
  EXPECT_EQ(out.Events().front(), "STOP");
}

TEST(EditTest, FocusDecidesWhereTypingGoesAndEndsBeep) {
  ScopedRecordingPresenter out;
  BeepWindow task;
  CVekEdit edit;
  edit.SetTaskWnd(task.GetSafeHwnd());
  CVekButtonCtrl button;
  button.SetLabel(u"開く");

  // Back on the word field, the cursor stands behind the word.
  SetUpField(edit, false, u"はな");
  edit.SetFocus(u"検索ワード:", 1);
  EXPECT_EQ(edit.Cursor(), 2);
  Walk(edit, out, {{0, u"び", "び"}, {CK_POSITION, nullptr, "行末"}, {CK_CHAR_LEFT, nullptr, "び"},
                   {CK_POSITION, nullptr, "3/3"}});
  EXPECT_EQ(edit.GetText(0), CString(u"はなび"));

  // With the button in focus, typing is refused with a beep and the text
  // stays; "?" there tells the button's keys.
  button.DisplayItem(1);
  out.Clear();
  Type(edit, u"x");
  EXPECT_EQ(edit.GetText(0), CString(u"はなび"));
  EXPECT_EQ(task.beeps, 1);
  EXPECT_TRUE(out.Events().empty());
  Type(edit, u"?");
  EXPECT_EQ(task.beeps, 1);
  EXPECT_EQ(out.LastSpeech().rfind("ヘルプ。ボタンのキー。キー256、押す。", 0), 0u)
      << out.LastSpeech();

  // A read-only text refuses it too (its lines and "読み取り専用":
  // ReadOnlyTextReadsByLineAndAll); the end of its last line ends the text.
  SetUpField(edit, true, u"一行目\n二行目");
  edit.SetFocus(u"検索結果:", 1);
  Type(edit, u"x");
  EXPECT_EQ(task.beeps, 2);
  edit.OnBrailleKey(48, 0);
  edit.OnBrailleKey(CK_LINE_END, 0);
  EXPECT_EQ(out.LastSpeech(), "文末");

  // So does an open editing menu.
  SetUpField(edit, false, u"");
  edit.SetFocus(u"検索ワード:", 1);
  edit.OnBrailleKey(41, 0);
  Type(edit, u"x");
  EXPECT_EQ(task.beeps, 3);
  EXPECT_TRUE(edit.GetText(0).IsEmpty());
}

TEST(EditTest, KeyFortyOneSubStateEndsOnTheClosingKeys) {
  ScopedRecordingPresenter out;
  CVekEdit edit;
  for (uint32_t closing : {256u, 234u, 106u, 88u}) {
    SetUpField(edit, false, u"かな");
    EXPECT_EQ(edit.OnBrailleKey(41, 0), 1);
    EXPECT_TRUE(edit.InEditMenu());
    edit.OnBrailleKey(112, 0);  // other keys stay in the menu
    edit.OnBrailleKey(2048, 0);
    EXPECT_TRUE(edit.InEditMenu());
    EXPECT_EQ(edit.Cursor(), 0);
    edit.OnBrailleKey(closing, 0);
    EXPECT_FALSE(edit.InEditMenu()) << closing;
  }

  // 48 twice reaches "末尾へ"; Enter carries it out.
  SetUpField(edit, false, u"かな");
  edit.OnBrailleKey(41, 0);
  edit.OnBrailleKey(48, 0);
  edit.OnBrailleKey(48, 0);
  EXPECT_EQ(out.LastBraille(), "末尾へ");
  edit.OnBrailleKey(256, 0);
  EXPECT_EQ(edit.Cursor(), 2);

  // Back from the last entry wraps to "全文削除" in a writable field; 88
  // closes without doing it, 234 does it.
  edit.OnBrailleKey(41, 0);
  edit.OnBrailleKey(24, 0);
  EXPECT_EQ(out.LastBraille(), "全文削除");
  edit.OnBrailleKey(88, 0);
  EXPECT_EQ(edit.GetText(0), CString(u"かな"));
  edit.OnBrailleKey(41, 0);
  edit.OnBrailleKey(24, 0);
  edit.OnBrailleKey(234, 0);
  EXPECT_TRUE(edit.GetText(0).IsEmpty());

  // A read-only text offers no deletion.
  SetUpField(edit, true, u"本文");
  edit.OnBrailleKey(41, 0);
  edit.OnBrailleKey(24, 0);
  EXPECT_EQ(out.LastBraille(), "末尾へ");
}

TEST(EditTest, AnnouncementsGoToThePresenter) {
  ScopedRecordingPresenter out;
  CVekEdit edit;
  edit.PlayBrl(0, u"", 0);  // clears; nothing shown yet
  edit.PlayBrl(-1, u"検索開始", -1);
  edit.PlayTts(u"検索開始");
  edit.SetSync(1);
  edit.PlayTts(u"");
  edit.PlayTts(u"登録しました");
  EXPECT_EQ(out.Events(), (std::vector<std::string>{"BRL 検索開始", "TTS 検索開始", "STOP",
                                                     "TTS! 登録しました"}));
}

TEST(JpnDataTest, RecordCarriesTextAndIsBoundedByItsSize) {
  std::vector<uint32_t> record = MakeJpnData(u"辞書");
  EXPECT_EQ(record[0], 20u);  // header and two units
  EXPECT_EQ(record[1], 2u);
  EXPECT_EQ(record[3], 1u);  // the word the frame reads
  auto* data = reinterpret_cast<_JPNDATA*>(record.data());
  EXPECT_EQ(JpnDataText(data), CString(u"辞書"));
  data->textUnits = 1000;  // a length beyond the record is cut to it
  EXPECT_EQ(JpnDataText(data), CString(u"辞書"));
  data->recordSize = 8;
  EXPECT_TRUE(JpnDataText(data).IsEmpty());
  EXPECT_TRUE(JpnDataText(nullptr).IsEmpty());
}

}  // namespace
