// CVekButtonCtrl: a button. DisplayItem takes the focus, shows its label
// on Braille and speaks the label and "ボタン". The screens take Enter; of
// the other Braille keys a move (24, 48) beeps, CK_HELP tells the keys and
// CK_POSITION presents the button again, as a cursor-routing key does.
#ifndef CONTROLS_VEK_BUTTON_CTRL_H_
#define CONTROLS_VEK_BUTTON_CTRL_H_

#include <cstdint>
#include <vector>

#include "controls/control_focus.h"
#include "platform/wide_string.h"
#include "platform/window.h"

class CVekButtonCtrl : public FocusTaker {
 public:
  CVekButtonCtrl() = default;
  virtual ~CVekButtonCtrl() = default;
  virtual void SetMask(unsigned long mask) { mask_ = mask; }

  virtual void SetCtrlLocalWnd(HWND wnd) { localWnd_ = wnd; }
  virtual void SetCtrlTaskWnd(HWND wnd) { taskWnd_ = wnd; }
  // Null counts as the empty label. Result 0.
  virtual int SetLabel(const char16_t* label);
  virtual void DisplayItem(int unused);
  virtual void OnBrailleKeyProc(uint32_t key, long lParam);
  virtual void OnCursorKeyProc(uint32_t cell, long lParam);

  CString HelpTitle() const override { return u"ボタン"; }
  std::vector<KeyHelp> HelpKeys() const override;

  const CString& Label() const { return label_; }

 private:
  HWND localWnd_ = 0;      // the frame's window
  HWND taskWnd_ = 0;       // the task manager's window
  unsigned long mask_ = 0; // set-up constant, kept
  CString label_;          // what the button says
};

#endif  // CONTROLS_VEK_BUTTON_CTRL_H_
