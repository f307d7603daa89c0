// CVekButtonCtrl: a button. DisplayItem shows its label on Braille and
// speaks the label and "ボタン". Braille keys do nothing on a button (the
// screens take Enter); a cursor-routing key presents it again.
#ifndef CONTROLS_VEK_BUTTON_CTRL_H_
#define CONTROLS_VEK_BUTTON_CTRL_H_

#include <cstdint>

#include "platform/wide_string.h"
#include "platform/window.h"

class CVekButtonCtrl {
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

  const CString& Label() const { return label_; }

 private:
  HWND localWnd_ = 0;      // the frame's window
  HWND taskWnd_ = 0;       // the task manager's window
  unsigned long mask_ = 0; // set-up constant, kept
  CString label_;          // what the button says
};

#endif  // CONTROLS_VEK_BUTTON_CTRL_H_
