// Opening the menu over a lookup screen, and what its choice does. While
// the menu is open routingMode is MODE_MENU and every key goes to it; the
// screen's controls stay as they were until it closes.
#include "app/main_menu.h"

#include "app/main_frame.h"

void CMainFrame::OpenMainMenu() {
  routingMode = MODE_MENU;
  menuCtrl->InitPrompt();
  const uint32_t here = screen >= 0 && screen < 32 ? 1u << screen : 0;
  // Handles by id (1 to MENU_TO_SETTINGS; 0 is the top level). A group is
  // added before its entries, so its handle is there when they need it.
  HVEKMENUITEM handles[MENU_TO_SETTINGS + 1] = {};
  for (const MainMenuEntry& entry : kMainMenu) {
    if ((entry.screens & here) == 0) continue;
    handles[entry.id] = menuCtrl->AddMenu(handles[entry.parent], entry.id, entry.keyValue,
                                          entry.hasChildren, CString(), nullptr, 0);
  }
  menuCtrl->SetFocus();
  menuCtrl->DoModal();
}

unsigned CMainFrame::HandleMenuKey(uint32_t key, long lParam) {
  const unsigned open = menuCtrl->OnBrailleKey(key, lParam);
  if (open != 0) return open;
  routingMode = MODE_SCREEN;
  // 88 and 218 close the menu without a choice.
  const unsigned chosen =
      key == CK_BACK || key == CK_EXIT ? 0 : static_cast<unsigned>(menuCtrl->GetSelectID());
  switch (chosen) {
    case MENU_CLOSE:
      PostMessage(GetSafeHwnd(), WM_CLOSE, 0, 0);
      return 0;
    case MENU_TO_SEARCH:
      screen = SCREEN_SEARCH;
      focus = FOCUS_DICT_LIST;
      screenFocus[SCREEN_SEARCH] = FOCUS_DICT_LIST;
      break;
    // The two openings set their screen up and render it themselves.
    case MENU_TO_DICTIONARIES:
      OpenDictionaryScreen();
      return 0;
    case MENU_TO_SETTINGS:
      OpenSettingsScreen();
      return 0;
    default:
      break;
  }
  RenderFocus();
  return 0;
}
