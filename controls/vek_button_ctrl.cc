#include "controls/vek_button_ctrl.h"

#include "controls/presenter.h"

int CVekButtonCtrl::SetLabel(const char16_t* label) {
  label_ = CString(label);
  return 0;
}

void CVekButtonCtrl::DisplayItem(int) {
  CurrentPresenter().ShowBraille(label_);
  CurrentPresenter().Speak(label_ + u" ボタン", false);
}

void CVekButtonCtrl::OnBrailleKeyProc(uint32_t, long) {}

void CVekButtonCtrl::OnCursorKeyProc(uint32_t, long) { DisplayItem(1); }
