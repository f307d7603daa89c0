// What the frame does with the task manager's events that are not keys:
// typed text, device settings, and the announcement path.
#include <cstring>

#include "app/main_frame.h"
#include "controls/jpn_data.h"

namespace {

// Device settings by the number the task manager sends in wParam.
constexpr WPARAM SETTING_READING_GRADE = 2;
constexpr WPARAM SETTING_ADVANCE_VOICE = 24;
constexpr WPARAM SETTING_JPN_LANG_MODE = 35;
constexpr WPARAM SETTING_JPN_KEY_MODE = 36;

// The fourth 32-bit word of the data, where Japanese text data says 1;
// 0 when the data is too short to hold it.
uint32_t KindWord(const tagCOPYDATASTRUCT* data) {
  if (data->lpData == nullptr || data->cbData < sizeof(_JPNDATA)) return 0;
  uint32_t kind;
  std::memcpy(&kind, static_cast<const char*>(data->lpData) + offsetof(_JPNDATA, kind), sizeof kind);
  return kind;
}

}  // namespace

void CMainFrame::OnCopyData(CWnd* window, tagCOPYDATASTRUCT* data) {
  if (data == nullptr || data->dwData != JPNDATA_COPYDATA_ID || KindWord(data) != JPNDATA_TEXT)
    return;
  if (modalTarget != nullptr) {
    if (fileDialog) fileDialog->OnCopyData(window, data);
  } else if (editCtrl) {
    editCtrl->OnReadJPNEditTXT(static_cast<_JPNDATA*>(data->lpData));
  }
}

void CMainFrame::OnSetting(WPARAM setting, LPARAM value) {
  switch (setting) {
    case SETTING_READING_GRADE:
      if (editCtrl) editCtrl->SetReadingGrade(static_cast<unsigned>(value));
      if (menuCtrl) menuCtrl->SetReadingGrade(static_cast<unsigned>(value));
      if (promptCtrl) promptCtrl->SetReadingGrade(static_cast<unsigned>(value));
      break;
    case SETTING_ADVANCE_VOICE:
      if (editCtrl) editCtrl->SetAdvanceVoice(static_cast<int>(value));
      break;
    case SETTING_JPN_LANG_MODE:
      if (editCtrl) editCtrl->SetJpnLangMode(static_cast<LANMODE>(value));
      if (fileDialog) fileDialog->SetJpnLangMode(static_cast<LANMODE>(value));
      break;
    case SETTING_JPN_KEY_MODE:
      if (editCtrl) editCtrl->SetJpnKeyMode(static_cast<int>(value));
      if (fileDialog) fileDialog->SetJpnKeyMode(static_cast<int>(value));
      break;
    default:
      break;
  }
}

// The field kind stays at 4 behind an announcement; callers render next,
// which sets the focused control up anew.
void CMainFrame::Announce(CString text, int a, int b, int sync) {
  if (announceOn == 0 || !editCtrl) return;
  editCtrl->SetAsciiOnly(0);
  editCtrl->SetControl(4);
  editCtrl->PlayBrl(0, u"", 0);
  editCtrl->PlayBrl(a, text, b);
  if (sync != 0) {
    editCtrl->SetSync(1);
    editCtrl->PlayTts(u"");
    editCtrl->PlayTts(text);
    editCtrl->SetSync(0);
  } else {
    editCtrl->PlayTts(text);
  }
}
