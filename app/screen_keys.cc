// The screens' key handlers and the ends of the menu and the prompt, in
// their first form: these screens deal with no key yet, so every key passes
// to the focused control; a menu or prompt that closes hands the keys back to
// the screen, whose control is presented again. Each screen's own file
// takes its handler's place here.
#include "app/main_frame.h"

int CMainFrame::ResultScreenKey(uint32_t, long) { return 0; }
int CMainFrame::ArticleScreenKey(uint32_t, long) { return 0; }
int CMainFrame::DictionaryScreenKey(uint32_t, long) { return 0; }
int CMainFrame::RegisterScreenKey(uint32_t, long) { return 0; }
int CMainFrame::SettingsScreenKey(uint32_t, long) { return 0; }

unsigned CMainFrame::HandleMenuKey(uint32_t key, long lParam) {
  const unsigned open = menuCtrl->OnBrailleKey(key, lParam);
  if (open != 0) return open;
  routingMode = MODE_SCREEN;
  RenderFocus();
  return 0;
}

unsigned CMainFrame::HandlePromptKey(uint32_t key, long lParam) {
  const unsigned open = promptCtrl->OnBrailleKey(key, lParam);
  if (open != 0) return open;
  routingMode = MODE_SCREEN;
  RenderFocus();
  return 0;
}
