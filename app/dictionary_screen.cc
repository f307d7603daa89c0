// SCREEN_DICTIONARIES: the dictionary list with the buttons "追加", "削除"
// and "閉じる" in a ring. Adding goes through the folder chooser to
// SCREEN_REGISTER (app/register_screen.cc); deleting asks first through
// the prompt. The list changes in memory only: the settings file gets it
// when the reader closes. The selection is listState 0, the one the search
// screen uses too.
#include "app/main_frame.h"

namespace {

// The ring of KEY_NEXT_CTRL; KEY_PREV_CTRL goes round it backwards.
constexpr int32_t kDictionaryRing[] = {FOCUS_DICT_LIST, FOCUS_BTN_ADD, FOCUS_BTN_DELETE,
                                       FOCUS_BTN_CLOSE};

}  // namespace

void CMainFrame::OpenDictionaryScreen() {
  screen = SCREEN_DICTIONARIES;
  focus = FOCUS_DICT_LIST;
  screenFocus[SCREEN_DICTIONARIES] = FOCUS_DICT_LIST;
  RenderFocus();
}

int CMainFrame::DictionaryScreenKey(uint32_t key, long) {
  if (key == CK_EXIT || key == CK_BACK) {
    ReturnToScreen(SCREEN_SEARCH);
    return 1;
  }
  if (StepRing(key, kDictionaryRing)) return 1;
  if (key != CK_ENTER) return 0;
  switch (focus) {
    case FOCUS_DICT_LIST:
      NotifyBeep(BEEP_CODE);
      break;
    case FOCUS_BTN_ADD:
      AddDictionary();
      break;
    case FOCUS_BTN_DELETE:
      AskToDeleteDictionary();
      break;
    default:
      ReturnToScreen(SCREEN_SEARCH);
      break;
  }
  return 1;
}

// Built-in dictionaries stay: they are found anew at each start.
void CMainFrame::AskToDeleteDictionary() {
  SaveFocusState();
  const int32_t selected = listState[FOCUS_DICT_LIST].selection;
  if (selected < builtinCount || selected >= static_cast<int32_t>(DictionaryList.size())) {
    NotifyBeep(BEEP_CODE);
    return;
  }
  CString question;
  question.Format(u"%s を削除しますか？", DictionaryList[selected].title.GetString());
  routingMode = MODE_PROMPT;
  promptCtrl->SetPrompt(question, 1, 0);
  promptCtrl->SetFocus();
}

// Every key while the prompt is open. Only a prompt that closed with yes,
// by a key other than CK_BACK and CK_EXIT, deletes; the focus stays on
// the delete button.
unsigned CMainFrame::HandlePromptKey(uint32_t key, long lParam) {
  const unsigned open = promptCtrl->OnBrailleKey(key, lParam);
  if (screen != SCREEN_DICTIONARIES || focus != FOCUS_BTN_DELETE || open != 0) return open;
  if (key != CK_BACK && key != CK_EXIT && promptCtrl->GetSelectKey() == CK_YES) {
    int32_t& selected = listState[FOCUS_DICT_LIST].selection;
    if (DeleteRegisteredDictionary(DictionaryList, builtinCount, selected, selected))
      Announce(u"削除しました", -1, -1, 1);
  }
  routingMode = MODE_SCREEN;
  RenderFocus();
  return 0;
}
