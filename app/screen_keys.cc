// The lookup screens' key handlers and the end of the menu, in their first
// form: these screens deal with no key yet, so every key passes to the
// focused control; a menu that closes hands the keys back to the screen,
// whose control is presented again. Each screen's own file takes its
// handler's place here.
#include "app/main_frame.h"

int CMainFrame::ResultScreenKey(uint32_t, long) { return 0; }
int CMainFrame::ArticleScreenKey(uint32_t, long) { return 0; }

unsigned CMainFrame::HandleMenuKey(uint32_t key, long lParam) {
  const unsigned open = menuCtrl->OnBrailleKey(key, lParam);
  if (open != 0) return open;
  routingMode = MODE_SCREEN;
  RenderFocus();
  return 0;
}
