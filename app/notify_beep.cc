#include "app/notify_beep.h"

#include <cstring>

#include "app/main_frame.h"
#include "app/reader_app.h"

namespace {

constexpr char16_t kBeepText[] = u"NullMessageBeepHHCHHC";

}  // namespace

std::vector<uint8_t> MakeBeepRecord(int32_t code) {
  std::vector<uint8_t> record(BEEP_RECORD_SIZE, 0);
  std::memcpy(record.data(), kBeepText, sizeof kBeepText);
  std::memcpy(record.data() + BEEP_CODE_OFFSET, &code, sizeof code);
  return record;
}

bool ReadBeepRecord(const tagCOPYDATASTRUCT* data, int32_t& code) {
  if (data == nullptr || data->dwData != BEEP_COPYDATA_ID || data->lpData == nullptr ||
      data->cbData < BEEP_RECORD_SIZE)
    return false;
  const uint8_t* bytes = static_cast<const uint8_t*>(data->lpData);
  if (std::memcmp(bytes, kBeepText, sizeof kBeepText) != 0) return false;
  std::memcpy(&code, bytes + BEEP_CODE_OFFSET, sizeof code);
  return true;
}

// Sent, so the caller waits until the task manager has handled it. The
// task manager itself, should it run this frame, beeps to its own window.
void CMainFrame::NotifyBeep(int code) {
  CVekWinApp* app = GetApp();
  std::vector<uint8_t> record = MakeBeepRecord(code);
  tagCOPYDATASTRUCT data{BEEP_COPYDATA_ID, BEEP_RECORD_SIZE, record.data()};
  HWND mainWnd = app != nullptr && app->mainWnd != nullptr ? app->mainWnd->GetSafeHwnd() : GetSafeHwnd();
  HWND to = app != nullptr ? app->taskWnd : taskWnd;
  if (app != nullptr) {
    CString name = app->appName;
    std::u16string lower = name.Units();
    for (char16_t& ch : lower)
      if (ch >= u'A' && ch <= u'Z') ch = static_cast<char16_t>(ch - u'A' + u'a');
    if (lower == u"vektask") to = mainWnd;
  }
  SendMessage(to, WM_COPYDATA, mainWnd, reinterpret_cast<LPARAM>(&data));
}
