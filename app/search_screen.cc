// SCREEN_SEARCH: the dictionary list, the word field and the buttons
// "検索開始", "辞書の追加と削除" and "閉じる" in a ring. CK_ENTER on the
// field or on "検索開始" looks the word up; CK_BACK is no key of this
// screen and goes to the focused control.
#include "app/main_frame.h"

namespace {

constexpr int32_t kSearchRing[] = {FOCUS_DICT_LIST, FOCUS_EDIT_WORD, FOCUS_BTN_SEARCH,
                                   FOCUS_BTN_MANAGE, FOCUS_BTN_CLOSE};

}  // namespace

// The field's text becomes searchWord first. A word of blanks is a word:
// only an empty one is refused here (RunLookup refuses a missing
// dictionary).
void CMainFrame::LookupTypedWord() {
  SaveFocusState();
  if (searchWord.IsEmpty()) {
    NotifyBeep(BEEP_CODE);
    return;
  }
  RunLookup(searchWord);
}

int CMainFrame::SearchScreenKey(uint32_t key, long) {
  if (key == CK_EXIT) {
    PostMessage(GetSafeHwnd(), WM_CLOSE, 0, 0);
    return 1;
  }
  if (StepRing(key, kSearchRing)) return 1;
  if (key != CK_ENTER) return 0;
  switch (focus) {
    case FOCUS_DICT_LIST:
      return 1;  // not passed on: the list has nothing to do with it
    case FOCUS_EDIT_WORD:
    case FOCUS_BTN_SEARCH:
      LookupTypedWord();
      return 1;
    case FOCUS_BTN_MANAGE:
      SaveFocusState();
      OpenDictionaryScreen();
      return 1;
    case FOCUS_BTN_CLOSE:
      PostMessage(GetSafeHwnd(), WM_CLOSE, 0, 0);
      return 1;
    default:
      return 0;
  }
}
