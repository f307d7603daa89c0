#include "app/frame_window.h"

#include "app/reader_app.h"

namespace {

HWND HandleOf(const CWnd* window) { return window != nullptr ? window->GetSafeHwnd() : 0; }

}  // namespace

CVekFrameWnd::CVekFrameWnd() : mainTarget(this) {}

void CVekFrameWnd::RouteBrailleKey(WPARAM wParam, LPARAM lParam) {
  if (modalTarget != nullptr) {
    PostMessage(HandleOf(modalTarget), WM_VEK_KEY_MODAL, wParam, lParam);
  } else if (popupTarget != nullptr) {
    PostMessage(HandleOf(popupTarget), WM_VEK_KEY_POPUP, wParam, lParam);
  } else {
    PostMessage(HandleOf(mainTarget), WM_VEK_KEY_MAIN, wParam, lParam);
  }
}

void CVekFrameWnd::RouteCursorKey(WPARAM wParam, LPARAM lParam) {
  if (modalTarget != nullptr) {
    PostMessage(HandleOf(modalTarget), WM_VEK_CURSOR_MODAL, wParam, lParam);
  } else {
    PostMessage(HandleOf(mainTarget), WM_VEK_CURSOR_MAIN, wParam, lParam);
  }
}

int CVekFrameWnd::OnCreate() {
  CVekWinApp* app = GetApp();
  taskWnd = app != nullptr ? app->taskWnd : 0;
  SendMessage(taskWnd, WM_VEK_APP_STARTED, GetSafeHwnd(), 0);
  return 0;
}

void CVekFrameWnd::OnDestroy() {
  PostMessage(taskWnd, WM_VEK_APP_ENDED, GetSafeHwnd(), 0);
  CVekWinApp* app = GetApp();
  if (app != nullptr && app->mainWnd == this) {
    app->mainWnd = nullptr;
    PostQuitMessage(0);
  }
}

LRESULT CVekFrameWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      return OnCreate();
    case WM_DESTROY:
      OnDestroy();
      return 0;
    case WM_VEK_KEY_IN:
      RouteBrailleKey(wParam, lParam);
      return 0;
    case WM_VEK_CURSOR_IN:
      RouteCursorKey(wParam, lParam);
      return 0;
    case WM_VEK_SET_MODAL:
      modalTarget = reinterpret_cast<CWnd*>(wParam);
      return 0;
    case WM_VEK_CLEAR_MODAL:
      modalTarget = nullptr;
      return 0;
    case WM_VEK_SET_POPUP:
      popupTarget = reinterpret_cast<CWnd*>(wParam);
      return 0;
    case WM_VEK_CLEAR_POPUP:
      popupTarget = nullptr;
      if (modalTarget != nullptr)
        PostMessage(HandleOf(modalTarget), WM_VEK_POPUP_CLEARED, static_cast<WPARAM>(lParam), 0);
      PostMessage(HandleOf(mainTarget), WM_VEK_POPUP_CLEARED, static_cast<WPARAM>(lParam), 0);
      return 0;
    default:
      return CWnd::WindowProc(message, wParam, lParam);
  }
}
