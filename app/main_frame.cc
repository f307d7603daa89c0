#include "app/main_frame.h"

#include "store/book_discovery.h"
#include "store/settings_file.h"

namespace {

using ButtonField = std::unique_ptr<CVekButtonCtrl> CMainFrame::*;

// The nine buttons in field order, which is the order of their focus ids,
// with their labels.
struct ButtonRow {
  ButtonField field;     // the frame's pointer
  const char16_t* label; // what the button says
};
const ButtonRow kButtons[BUTTON_COUNT] = {
    {&CMainFrame::searchButton, u"検索開始"},
    {&CMainFrame::openButton, u"開く"},
    {&CMainFrame::closeButton, u"閉じる"},
    {&CMainFrame::manageButton, u"辞書の追加と削除"},
    {&CMainFrame::addButton, u"追加"},
    {&CMainFrame::deleteButton, u"削除"},
    {&CMainFrame::registerButton, u"登録"},
    {&CMainFrame::cancelButton, u"キャンセル"},
    {&CMainFrame::applyButton, u"設定"},
};

template <typename Control, typename... Args>
void MakeIfMissing(std::unique_ptr<Control>& control, Args... args) {
  if (!control) control = std::make_unique<Control>(args...);
}

}  // namespace

CMainFrame::CMainFrame(Books& books) : books(books) {}

// The controls and the lists go with their owning members.
CMainFrame::~CMainFrame() = default;

CVekButtonCtrl* CMainFrame::ButtonOf(int32_t focusId) const {
  if (focusId < FIRST_BUTTON_FOCUS || focusId > LAST_BUTTON_FOCUS) return nullptr;
  return (this->*kButtons[focusId - FIRST_BUTTON_FOCUS].field).get();
}

bool CMainFrame::ControlsExist() const {
  if (!menuCtrl || !fileDialog || !editCtrl || !listCtrl || !promptCtrl) return false;
  for (const ButtonRow& row : kButtons)
    if (!(this->*row.field)) return false;
  return true;
}

void CMainFrame::CreateControls() {
  MakeIfMissing(menuCtrl);
  MakeIfMissing(fileDialog, static_cast<CWnd*>(nullptr));
  MakeIfMissing(editCtrl);
  for (const ButtonRow& row : kButtons) MakeIfMissing(this->*row.field);
  MakeIfMissing(listCtrl);
  MakeIfMissing(promptCtrl);
}

void CMainFrame::AttachControlWindows() {
  const HWND self = GetSafeHwnd();
  menuCtrl->SetLocalWnd(self);
  menuCtrl->SetTaskWnd(taskWnd);
  editCtrl->SetLocalWnd(self);
  editCtrl->SetTaskWnd(taskWnd);
  for (const ButtonRow& row : kButtons) {
    (this->*row.field)->SetCtrlLocalWnd(self);
    (this->*row.field)->SetCtrlTaskWnd(taskWnd);
  }
  listCtrl->SetCtrlLocalWnd(self);
  listCtrl->SetCtrlTaskWnd(taskWnd);
  promptCtrl->SetLocalWnd(self);
  promptCtrl->SetTaskWnd(taskWnd);
}

void CMainFrame::DiscoverBooks() { ::DiscoverBooks(books, DictionaryList, builtinCount); }

void CMainFrame::LoadSettings() {
  ::LoadSettings(SettingsFilePath(), options, DictionaryList);
}

void CMainFrame::SaveSettings() {
  ::SaveSettings(SettingsFilePath(), options, DictionaryList, builtinCount);
}

int CMainFrame::OnCreate() {
  if (CVekFrameWnd::OnCreate() == -1) return -1;
  CreateControls();
  menuCtrl->OpenRes(u"EPWING_MENU.lng");
  promptCtrl->OpenRes(u"\\windows\\vekwrdJpn.lng");
  AttachControlWindows();
  for (const ButtonRow& row : kButtons) {
    (this->*row.field)->SetMask(0);
    (this->*row.field)->SetLabel(row.label);
  }
  DiscoverBooks();
  LoadSettings();
  rootPath = u"\\SD\\epwing";
  routingMode = MODE_SCREEN;
  screen = SCREEN_SEARCH;
  focus = FOCUS_DICT_LIST;
  screenFocus[SCREEN_SEARCH] = FOCUS_DICT_LIST;
  RenderFocus();
  return 0;
}

void CMainFrame::OnClose() {
  SaveSettings();
  CVekFrameWnd::WindowProc(WM_CLOSE, 0, 0);
}

LRESULT CMainFrame::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  const uint32_t key = static_cast<uint32_t>(wParam);
  switch (message) {
    case WM_CLOSE:
      OnClose();
      return 0;
    case WM_COPYDATA:
      OnCopyData(FromHandle(static_cast<HWND>(wParam)), reinterpret_cast<tagCOPYDATASTRUCT*>(lParam));
      return CVekFrameWnd::WindowProc(message, wParam, lParam);
    case WM_VEK_KEY_MAIN:
      OnBrailleKeyMessage(key, static_cast<long>(lParam));
      return 0;
    case WM_VEK_CURSOR_MAIN:
      OnCursorKeyMessage(key, static_cast<long>(lParam));
      return 0;
    case WM_VEK_READ_ALL:
      if (editCtrl) {
        if (wParam == 1)
          editCtrl->OnReadAllEnd(1);
        else
          editCtrl->OnReadAll();
      }
      return 0;
    case WM_VEK_READ_STOP:
      if (editCtrl) editCtrl->PositionAtReadStop(key, static_cast<long>(lParam));
      return 0;
    case WM_VEK_SETTING:
      OnSetting(wParam, lParam);
      return 0;
    case WM_VEK_MUTE:
      announceOn = wParam == 0 ? 1 : 0;
      return 0;
    default:
      return CVekFrameWnd::WindowProc(message, wParam, lParam);
  }
}
