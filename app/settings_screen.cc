// SCREEN_SETTINGS: four of the display options in a column of list focus
// ids 4 to 7, and the buttons "設定" and "キャンセル". The screen works on
// copies: the values the user steps through stand in listState 4 to 7, and
// only applying writes them into the option fields. linkVisible has no
// place here; the settings file alone sets it.
#include "app/main_frame.h"

namespace {

bool IsOptionFocus(int32_t id) {
  return id >= FOCUS_OPT_GAIJI_REPLACE && id <= FOCUS_OPT_PHONETIC;
}

}  // namespace

void CMainFrame::OpenSettingsScreen() {
  returnScreen = screen;
  focus = FOCUS_OPT_GAIJI_REPLACE;
  screenFocus[SCREEN_SETTINGS] = FOCUS_OPT_GAIJI_REPLACE;
  listState[FOCUS_OPT_GAIJI_REPLACE].selection = options.gaijiReplace;
  listState[FOCUS_OPT_GAIJI_VISIBLE].selection = options.gaijiVisible;
  listState[FOCUS_OPT_SYLLABLE].selection = options.syllableVisible;
  listState[FOCUS_OPT_PHONETIC].selection = options.phSignsVisible;
  screen = SCREEN_SETTINGS;
  RenderFocus();
}

// Back to the lookup screen the settings were opened on: the results or
// the article on the focus they had, anything else the search screen.
void CMainFrame::LeaveSettingsScreen() {
  screen = returnScreen;
  if (screen != SCREEN_RESULTS && screen != SCREEN_ARTICLE) screen = SCREEN_SEARCH;
  focus = screenFocus[screen];
}

// The value goes round the items of the list, whatever their number; the
// option's field stays until the user applies.
void CMainFrame::StepOptionValue() {
  SaveFocusState();
  int32_t& value = listState[focus].selection;
  ++value;
  if (value >= listCtrl->GetCount()) value = 0;
  RenderFocus();
}

void CMainFrame::ApplySettings() {
  SaveFocusState();
  options.gaijiReplace = listState[FOCUS_OPT_GAIJI_REPLACE].selection;
  options.gaijiVisible = listState[FOCUS_OPT_GAIJI_VISIBLE].selection;
  options.syllableVisible = listState[FOCUS_OPT_SYLLABLE].selection;
  options.phSignsVisible = listState[FOCUS_OPT_PHONETIC].selection;
  LeaveSettingsScreen();
  Announce(u"設定しました", -1, -1, 1);
  RenderFocus();
}

int CMainFrame::SettingsScreenKey(uint32_t key, long) {
  const bool atOption = IsOptionFocus(focus);
  if (key == CK_EXIT || key == CK_BACK) {  // give up: nothing changes, nothing is said
    SaveFocusState();
    LeaveSettingsScreen();
    RenderFocus();
    return 1;
  }
  if (key == KEY_NEXT_CTRL || key == KEY_PREV_CTRL) {
    const bool next = key == KEY_NEXT_CTRL;
    int32_t to;
    if (atOption) {
      optionFocus = focus;
      to = next ? FOCUS_BTN_APPLY : FOCUS_BTN_CANCEL;
    } else if (focus == FOCUS_BTN_APPLY) {
      to = next ? FOCUS_BTN_CANCEL : optionFocus;
    } else {
      to = next ? optionFocus : FOCUS_BTN_APPLY;
    }
    MoveFocus(to);
    return 1;
  }
  const bool down = IsNextKey(key);
  const bool up = IsPrevKey(key);
  if (down || up || key == CK_NEXT_VALUE) {
    // On a button these keys belong to the button.
    if (!atOption) {
      SaveFocusState();
      return 0;
    }
    if (key == CK_NEXT_VALUE) {
      StepOptionValue();
      return 1;
    }
    // The column of options doesn't wrap: its ends beep.
    const int32_t end = down ? FOCUS_OPT_PHONETIC : FOCUS_OPT_GAIJI_REPLACE;
    if (focus == end) {
      SaveFocusState();
      NotifyBeep(BEEP_CODE);
    } else {
      MoveFocus(focus + (down ? 1 : -1));
    }
    return 1;
  }
  if (key == CK_ENTER) {
    if (focus == FOCUS_BTN_CANCEL) {
      SaveFocusState();
      LeaveSettingsScreen();
      Announce(u"キャンセル", -1, -1, 1);
      RenderFocus();
    } else {
      ApplySettings();
    }
    return 1;
  }
  return 0;
}
