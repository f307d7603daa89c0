// CVekFrameWnd: the frame of a device application. It tells the task
// manager when it starts and ends, and routes the keys the task manager
// delivers: a Braille key to the modal control, else to a popup, else to
// the frame's own handling; a cursor-routing key to the modal control or
// the frame, never to a popup. Every routed key is posted, so it waits in
// the queue behind what is already there.
#ifndef APP_FRAME_WINDOW_H_
#define APP_FRAME_WINDOW_H_

#include "platform/window.h"

class CVekFrameWnd : public CWnd {
 public:
  // mainTarget is the frame itself.
  CVekFrameWnd();

  // WM_VEK_KEY_IN: WM_VEK_KEY_MODAL to modalTarget, else WM_VEK_KEY_POPUP to
  // popupTarget, else WM_VEK_KEY_MAIN to mainTarget, wParam and lParam kept.
  virtual void RouteBrailleKey(WPARAM wParam, LPARAM lParam);
  // WM_VEK_CURSOR_IN: WM_VEK_CURSOR_MODAL to modalTarget, else
  // WM_VEK_CURSOR_MAIN to mainTarget.
  virtual void RouteCursorKey(WPARAM wParam, LPARAM lParam);

  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

  HWND taskWnd = 0;              // copied from the application object at creation
  CWnd* mainTarget;              // default target of routed keys
  CWnd* popupTarget = nullptr;   // second target of Braille keys, set by message
  CWnd* modalTarget = nullptr;   // first target of all keys while a modal control runs

 protected:
  // The frame's part of window creation: takes taskWnd from the
  // application and sends it WM_VEK_APP_STARTED. 0, or -1 to refuse.
  virtual int OnCreate();
  // Posts WM_VEK_APP_ENDED to the task manager and, for the main window,
  // ends the message loop behind it.
  virtual void OnDestroy();
};

#endif  // APP_FRAME_WINDOW_H_
