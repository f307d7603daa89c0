#include "controls/vek_button_ctrl.h"

#include "controls/beep_request.h"
#include "controls/control_keys.h"
#include "controls/key_help.h"
#include "controls/presenter.h"

int CVekButtonCtrl::SetLabel(const char16_t* label) {
  label_ = CString(label);
  return 0;
}

void CVekButtonCtrl::DisplayItem(int) {
  TakeFocus();
  CurrentPresenter().ShowBraille(label_);
  CurrentPresenter().Speak(label_ + u" ボタン", false);
}

std::vector<KeyHelp> CVekButtonCtrl::HelpKeys() const { return {{CK_ENTER, u"押す"}}; }

// A button has nothing to move through: a move beeps.
void CVekButtonCtrl::OnBrailleKeyProc(uint32_t key, long) {
  if (key == CK_HELP) {
    PresentHelp();
  } else if (IsPrevKey(key) || IsNextKey(key)) {
    RequestBeep(taskWnd_, localWnd_, CONTROL_BEEP_CODE);
  } else if (key == CK_POSITION) {
    DisplayItem(1);
  }
}

void CVekButtonCtrl::OnCursorKeyProc(uint32_t, long) { DisplayItem(1); }
