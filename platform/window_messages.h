// Message numbers: the platform's own, and the private ones that the
// device's task manager and its controls exchange with the application.
#ifndef PLATFORM_WINDOW_MESSAGES_H_
#define PLATFORM_WINDOW_MESSAGES_H_

#include <cstdint>

using UINT = uint32_t;      // a message number
using WPARAM = uintptr_t;   // first message parameter; may carry a pointer
using LPARAM = intptr_t;    // second message parameter; may carry a pointer
using LRESULT = intptr_t;   // what a handler returns to SendMessage

constexpr UINT WM_CREATE = 0x0001;
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_QUIT = 0x0012;
constexpr UINT WM_COPYDATA = 0x004A;

constexpr UINT WM_VEK_KEY_IN = 3024;
constexpr UINT WM_VEK_KEY_MAIN = 3034;
constexpr UINT WM_VEK_KEY_MODAL = 3035;
constexpr UINT WM_VEK_KEY_POPUP = 3036;
constexpr UINT WM_VEK_APP_STARTED = 3044;
constexpr UINT WM_VEK_APP_ENDED = 3064;
constexpr UINT WM_VEK_READ_ALL = 3074;
constexpr UINT WM_VEK_CURSOR_IN = 3124;
constexpr UINT WM_VEK_CURSOR_MAIN = 3134;
constexpr UINT WM_VEK_CURSOR_MODAL = 3135;
constexpr UINT WM_VEK_SET_MODAL = 3144;
constexpr UINT WM_VEK_CLEAR_MODAL = 3164;
constexpr UINT WM_VEK_SET_POPUP = 3174;
constexpr UINT WM_VEK_CLEAR_POPUP = 3184;
constexpr UINT WM_VEK_POPUP_CLEARED = 3324;
constexpr UINT WM_VEK_SETTING = 3524;
constexpr UINT WM_VEK_READ_STOP = 3824;
constexpr UINT WM_VEK_MUTE = 3934;

// The record of WM_COPYDATA, passed by pointer in lParam. The receiver may
// read lpData only while it handles the message.
struct tagCOPYDATASTRUCT {
  uintptr_t dwData;  // what kind of data the sender means
  uint32_t cbData;   // bytes at lpData
  void* lpData;      // the data, owned by the sender
};
using COPYDATASTRUCT = tagCOPYDATASTRUCT;

#endif  // PLATFORM_WINDOW_MESSAGES_H_
