#include "taskman/task_manager.h"

#include "controls/beep_request.h"
#include "app/reader_app.h"
#include "controls/control_keys.h"
#include "controls/jpn_data.h"
#include "taskman/keyboard_map.h"

namespace {
// The help names the keys of the keyboard this task manager reads.
const KeyboardGuide keyboardGuide;
}  // namespace

bool CTaskManagerWnd::StartApplication(CVekWinApp& app) {
  if (!CreateWindowObject()) return false;
  SetKeyGuide(&keyboardGuide);
  CString commandLine;
  commandLine.Format(u"0 %u", static_cast<unsigned>(GetSafeHwnd()));
  return app.Start(commandLine);
}

void CTaskManagerWnd::DeliverKey(uint32_t key) {
  lastAction_ = std::chrono::steady_clock::now();
  kana_.Reset();
  PostMessage(appWnd_, WM_VEK_KEY_IN, key, 0);
}

void CTaskManagerWnd::DeliverReadAll() {
  lastAction_ = std::chrono::steady_clock::now();
  kana_.Reset();
  PostMessage(appWnd_, WM_VEK_READ_ALL, 0, 0);
}

void CTaskManagerWnd::DeliverReadStop(uint32_t offset) {
  lastAction_ = std::chrono::steady_clock::now();
  PostMessage(appWnd_, WM_VEK_READ_STOP, offset, 0);
}

void CTaskManagerWnd::DeliverReadStopWhereSpeechGot() {
  const std::chrono::duration<double> spoken = std::chrono::steady_clock::now() - lastAction_;
  const double units = spoken.count() * kUnitsPerSecond;
  DeliverReadStop(units >= UINT32_MAX ? UINT32_MAX : static_cast<uint32_t>(units));
}

void CTaskManagerWnd::DeliverCursor(uint32_t cell) {
  kana_.Reset();
  PostMessage(appWnd_, WM_VEK_CURSOR_IN, cell, 0);
}

void CTaskManagerWnd::DeliverDots(uint8_t dots) {
  const std::u16string typed = kana_.Type(dots);
  if (!typed.empty()) SendText(CString(typed));
}

void CTaskManagerWnd::DeliverSetting(uint32_t setting, int32_t value) {
  PostMessage(appWnd_, WM_VEK_SETTING, setting, value);
}

void CTaskManagerWnd::DeliverMute(bool mute) { PostMessage(appWnd_, WM_VEK_MUTE, mute ? 1 : 0, 0); }

void CTaskManagerWnd::DeliverText(const CString& text) {
  kana_.Reset();
  SendText(text);
}

void CTaskManagerWnd::SendText(const CString& text) {
  std::vector<uint32_t> record = MakeJpnData(text);
  tagCOPYDATASTRUCT data{JPNDATA_COPYDATA_ID, static_cast<uint32_t>(record.size() * 4),
                         record.data()};
  SendMessage(appWnd_, WM_COPYDATA, GetSafeHwnd(), reinterpret_cast<LPARAM>(&data));
}

void CTaskManagerWnd::AnswerFolderChooser(const CString& folder) {
  DeliverText(folder);
  DeliverKey(CK_ENTER);
}

LRESULT CTaskManagerWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_VEK_APP_STARTED:
      appWnd_ = static_cast<HWND>(wParam);
      for (TranscriptWriter* writer : transcripts_) writer->Started();
      return 0;
    case WM_VEK_APP_ENDED:
      appWnd_ = 0;
      ended_ = true;
      for (TranscriptWriter* writer : transcripts_) writer->Ended();
      return 0;
    case WM_COPYDATA: {
      int32_t code = 0;
      if (ReadBeepRecord(reinterpret_cast<const tagCOPYDATASTRUCT*>(lParam), code)) {
        for (TranscriptWriter* writer : transcripts_) writer->Beep(code);
        if (beepSound_) beepSound_(code);
      }
      return 0;
    }
    default:
      return CWnd::WindowProc(message, wParam, lParam);
  }
}
