// The task manager's window for the controls' tests: counts the beeps
// that the controls ask it for.
#ifndef CONTROLS_BEEP_WINDOW_FOR_TEST_H_
#define CONTROLS_BEEP_WINDOW_FOR_TEST_H_

#include "controls/beep_request.h"
#include "platform/window.h"

class BeepWindow : public CWnd {
 public:
  BeepWindow() { CreateWindowObject(); }
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    int32_t code = 0;
    if (message == WM_COPYDATA &&
        ReadBeepRecord(reinterpret_cast<const tagCOPYDATASTRUCT*>(lParam), code) &&
        code == CONTROL_BEEP_CODE)
      ++beeps;
    return CWnd::WindowProc(message, wParam, lParam);
  }
  int beeps = 0;  // beep requests so far
};

#endif  // CONTROLS_BEEP_WINDOW_FOR_TEST_H_
