// Adding a dictionary: the folder chooser, the books of the chosen folder,
// and SCREEN_REGISTER, where the user picks one of them (FOCUS_BOOK_LIST,
// skipped while there is none), edits its name (FOCUS_EDIT_NAME) and
// registers it or cancels. BookCandidateList keeps each book as the catalog
// gave it; BookTitleList, at the same index, the name the user edits.
#include "app/main_frame.h"
#include "store/book_discovery.h"

namespace {

// The longest path the chooser may hand back, in UTF-16 units.
constexpr unsigned kChooserPathSize = 600;

// The ring of KEY_NEXT_CTRL; KEY_PREV_CTRL goes round it backwards.
constexpr int32_t kRegisterRing[] = {FOCUS_BOOK_LIST, FOCUS_EDIT_NAME, FOCUS_BTN_REGISTER,
                                     FOCUS_BTN_CANCEL};

}  // namespace

// With several paths chosen the last one counts; with none rootPath stays.
CString CMainFrame::ChooseFolder() {
  fileDialog->SetMainWnd(GetSafeHwnd());
  fileDialog->SetInitDlg(taskWnd, u"110", 1);
  fileDialog->SetInitPath(rootPath.GetString(), kChooserPathSize);
  fileDialog->DoModal();
  CString chosen;
  const unsigned count = fileDialog->GetSize();
  for (unsigned position = 0; position < count; ++position) {
    fileDialog->SetPos(position);
    chosen = fileDialog->GetPathName();
    rootPath = chosen;
  }
  return chosen;
}

// A folder that gives no catalog listing, or no folder at all, brings the
// user back to the add button without a word.
void CMainFrame::AddDictionary() {
  SaveFocusState();
  Announce(u"辞書フォルダを選択してください", -1, -1, 1);
  BookCandidateList.clear();
  BookTitleList.clear();
  const CString folder = ChooseFolder();
  if (!folder.IsEmpty() && ReadCatalogBooks(books, folder, BookCandidateList, BookTitleList)) {
    if (BookCandidateList.empty()) {
      Announce(u"ブックが取得出来ませんでした", -1, -1, 1);
    } else {
      screen = SCREEN_REGISTER;
      listState[FOCUS_BOOK_LIST].selection = 0;
      focus = BookCandidateList.size() == 1 ? FOCUS_EDIT_NAME : FOCUS_BOOK_LIST;
      screenFocus[SCREEN_REGISTER] = focus;
    }
  }
  RenderFocus();
}

// No check looks for the same folder and book on the list already.
void CMainFrame::RegisterBook() {
  SaveFocusState();
  const int32_t book = listState[FOCUS_BOOK_LIST].selection;
  if (book < 0 || book >= static_cast<int32_t>(BookTitleList.size())) return;
  if (BookTitleList[book].IsEmpty()) {
    NotifyBeep(BEEP_CODE);
    return;
  }
  DictionaryEntry entry = BookCandidateList[book];
  entry.title = BookTitleList[book];
  AppendDictionary(DictionaryList, entry);
  Announce(u"登録しました", -1, -1, 1);
  focus = screenFocus[SCREEN_DICTIONARIES];
  screen = SCREEN_DICTIONARIES;
  RenderFocus();
}

void CMainFrame::CancelRegistering() {
  SaveFocusState();
  focus = screenFocus[SCREEN_DICTIONARIES];
  screen = SCREEN_DICTIONARIES;
  Announce(u"キャンセル", -1, -1, 1);
  RenderFocus();
}

int CMainFrame::RegisterScreenKey(uint32_t key, long) {
  if (key == CK_EXIT || key == CK_BACK) {
    // In the name field the key only leaves the field; the name is kept.
    if (focus == FOCUS_EDIT_NAME)
      MoveFocus(FOCUS_BOOK_LIST);
    else
      CancelRegistering();
    return 1;
  }
  // The book list is passed over while it is empty.
  if (StepRing(key, kRegisterRing, BookCandidateList.empty() ? FOCUS_BOOK_LIST : -1)) return 1;
  if (key != CK_ENTER) return 0;
  switch (focus) {
    case FOCUS_BOOK_LIST:
      MoveFocus(FOCUS_EDIT_NAME);
      break;
    case FOCUS_EDIT_NAME:
    case FOCUS_BTN_REGISTER:
      RegisterBook();
      break;
    default:
      CancelRegistering();
      break;
  }
  return 1;
}
