#include "controls/vek_listbox_ctrl.h"

#include <gtest/gtest.h>

#include "controls/beep_window_for_test.h"
#include "controls/control_keys.h"
#include "testing/recording_presenter.h"

namespace {

void Fill(CVekListboxCtrl& list) {
  list.ResetContent();
  list.SetLabel(u"辞書選択:");
  list.AddString(u"プラス辞典");
  list.AddString(u"英和");
  list.AddString(u"漢字");
}

TEST(ListboxTest, MovesFollowKeysAndStopAtTheEndsWithABeep) {
  ScopedRecordingPresenter out;
  BeepWindow task;
  CVekListboxCtrl list;
  list.SetCtrlTaskWnd(task.GetSafeHwnd());
  Fill(list);
  list.SetCurSel(0);
  list.DisplayItem(1);
  EXPECT_EQ(out.LastBraille(), "辞書選択:プラス辞典");
  EXPECT_EQ(out.LastSpeech(), "辞書選択:プラス辞典");

  list.OnBrailleKeyProc(48, 0);
  EXPECT_EQ(list.GetCurSel(), 1);
  EXPECT_EQ(out.LastBraille(), "辞書選択:英和");
  list.OnBrailleKeyProc(16384, 0);
  EXPECT_EQ(task.beeps, 0);
  list.OnBrailleKeyProc(48, 0);  // at the last item: stays, beeps, told again
  EXPECT_EQ(list.GetCurSel(), 2);
  EXPECT_EQ(task.beeps, 1);
  EXPECT_EQ(out.LastSpeech(), "辞書選択:漢字");
  list.OnBrailleKeyProc(CK_POSITION, 0);
  EXPECT_EQ(out.LastSpeech(), "3/3");
  list.OnBrailleKeyProc(8192, 0);
  list.OnBrailleKeyProc(24, 0);
  list.OnBrailleKeyProc(24, 0);
  EXPECT_EQ(list.GetCurSel(), 0);
  EXPECT_EQ(task.beeps, 2);

  // Keys that are no moves change nothing and present nothing.
  out.Clear();
  list.OnBrailleKeyProc(256, 0);
  EXPECT_EQ(list.GetCurSel(), 0);
  EXPECT_TRUE(out.Events().empty());
  CString text;
  list.GetText(7, text);  // beyond the list: nothing
  EXPECT_TRUE(text.IsEmpty());
}

TEST(ListboxTest, SelectionOutsideTheListIsToldSafely) {
  ScopedRecordingPresenter out;
  CVekListboxCtrl list;
  Fill(list);
  EXPECT_EQ(list.SetCurSel(5), -1);
  EXPECT_EQ(list.GetCurSel(), -1);
  list.DisplayItem(1);
  EXPECT_EQ(out.LastBraille(), "辞書選択:項目なし");
  list.OnBrailleKeyProc(24, 0);  // from nothing, back goes to the last
  EXPECT_EQ(list.GetCurSel(), 2);
  list.SetCurSel(-3);
  list.OnBrailleKeyProc(48, 0);  // and on goes to the first
  EXPECT_EQ(list.GetCurSel(), 0);

  list.ResetContent();
  list.SetCurSel(0);
  list.OnBrailleKeyProc(48, 0);
  EXPECT_EQ(list.GetCurSel(), -1);
  EXPECT_EQ(list.GetCount(), 0);
  EXPECT_EQ(out.LastSpeech(), "辞書選択:項目なし");
  list.OnBrailleKeyProc(CK_POSITION, 0);
  EXPECT_EQ(out.LastSpeech(), "0/0");
}

}  // namespace
