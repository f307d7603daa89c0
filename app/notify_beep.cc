#include "app/main_frame.h"
#include "app/reader_app.h"
#include "controls/beep_request.h"

// Sent, so the caller waits until the task manager has handled it. The
// task manager itself, should it run this frame, beeps to its own window.
void CMainFrame::NotifyBeep(int code) {
  CVekWinApp* app = GetApp();
  HWND mainWnd = app != nullptr && app->mainWnd != nullptr ? app->mainWnd->GetSafeHwnd() : GetSafeHwnd();
  HWND to = app != nullptr ? app->taskWnd : taskWnd;
  if (app != nullptr) {
    CString name = app->appName;
    std::u16string lower = name.Units();
    for (char16_t& ch : lower)
      if (ch >= u'A' && ch <= u'Z') ch = static_cast<char16_t>(ch - u'A' + u'a');
    if (lower == u"vektask") to = mainWnd;
  }
  RequestBeep(to, mainWnd, code);
}
