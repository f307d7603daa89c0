// The frame's second level of key routing: by routingMode to the menu, the
// prompt or the screen; on the screen, the edit control's sub-state first,
// then the screen's key handler, then the focused control.
#include "app/main_frame.h"

namespace {

// The keys on which the edit control leaves the sub-state of key 41.
bool EndsEditPopup(uint32_t key) {
  return key == CK_ENTER || key == CK_YES || key == CK_POPUP_CLOSE || key == CK_BACK;
}

bool IsListFocus(int32_t id) { return id >= FIRST_LIST_FOCUS && id <= LAST_LIST_FOCUS; }
bool IsEditFocus(int32_t id) { return id >= FIRST_EDIT_FOCUS && id <= LAST_EDIT_FOCUS; }

}  // namespace

void CMainFrame::OnBrailleKeyMessage(uint32_t key, long lParam) {
  if (!ControlsExist()) return;
  switch (routingMode) {
    case MODE_MENU:
      HandleMenuKey(key, lParam);
      break;
    case MODE_SCREEN:
      HandleScreenKey(key, lParam);
      break;
    case MODE_PROMPT:
      HandlePromptKey(key, lParam);
      break;
    default:
      break;
  }
}

void CMainFrame::HandleScreenKey(uint32_t key, long lParam) {
  if (editPopup != 0) {
    if (key == CK_EXIT) key = CK_POPUP_CLOSE;
    if (EndsEditPopup(key)) editPopup = 0;
    editCtrl->OnBrailleKey(key, lParam);
    return;
  }
  if (screen < 0 || screen >= SCREEN_COUNT) return;
  focus = screenFocus[screen];
  if (ScreenKey(key, lParam) != 0) return;
  if (IsListFocus(focus)) {
    listCtrl->OnBrailleKeyProc(key, lParam);
  } else if (CVekButtonCtrl* button = ButtonOf(focus)) {
    button->OnBrailleKeyProc(key, lParam);
  } else if (IsEditFocus(focus)) {
    if (key == CK_POPUP) editPopup = 1;
    editCtrl->OnBrailleKey(key, lParam);
  }
}

int CMainFrame::ScreenKey(uint32_t key, long lParam) {
  // The lookup screens open the menu; on the others the key goes on.
  if (key == KEY_MENU && (screen == SCREEN_SEARCH || screen == SCREEN_RESULTS ||
                          screen == SCREEN_ARTICLE)) {
    SaveFocusState();
    OpenMainMenu();
    return 1;
  }
  switch (screen) {
    case SCREEN_SEARCH:
      return SearchScreenKey(key, lParam);
    case SCREEN_RESULTS:
      return ResultScreenKey(key, lParam);
    case SCREEN_ARTICLE:
      return ArticleScreenKey(key, lParam);
    case SCREEN_DICTIONARIES:
      return DictionaryScreenKey(key, lParam);
    case SCREEN_REGISTER:
      return RegisterScreenKey(key, lParam);
    case SCREEN_SETTINGS:
      return SettingsScreenKey(key, lParam);
    default:
      return 0;
  }
}

// No screen handler and no editPopup here: a cursor key always reaches the
// control that shows.
void CMainFrame::OnCursorKeyMessage(uint32_t key, long lParam) {
  if (!ControlsExist()) return;
  if (routingMode == MODE_MENU) {
    menuCtrl->OnBrailleCursor(key, lParam);
  } else if (routingMode == MODE_PROMPT) {
    promptCtrl->OnBrailleCursor(key, lParam);
  } else if (routingMode == MODE_SCREEN) {
    if (IsListFocus(focus)) {
      listCtrl->OnCursorKeyProc(key, lParam);
    } else if (CVekButtonCtrl* button = ButtonOf(focus)) {
      button->OnCursorKeyProc(key, lParam);
    } else if (IsEditFocus(focus)) {
      editCtrl->OnBrailleCursor(key, lParam);
    }
  }
}
