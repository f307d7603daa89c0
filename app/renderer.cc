// The renderer: SaveFocusState copies what the user did in the focused
// control into the frame; RenderFocus builds the control of `focus` from
// the frame's fields and presents it. The list box and the edit control
// keep nothing across a change of focus, and head lines and articles pass
// through the display filters at every render, so a changed option shows
// at once.
#include "app/main_frame.h"
#include "results/display_filter.h"

void CMainFrame::SaveFocusState() {
  if (routingMode != MODE_SCREEN) return;
  if (focus >= FIRST_LIST_FOCUS && focus <= LAST_LIST_FOCUS) {
    ListState& state = listState[focus];
    state.selection = listCtrl->GetCurSel();
    state.text.Empty();
    if (state.selection >= 0 && state.selection < listCtrl->GetCount())
      listCtrl->GetText(state.selection, state.text);
  } else if (focus == FOCUS_EDIT_WORD) {
    searchWord = editCtrl->GetText(0);
  } else if (focus == FOCUS_EDIT_NAME) {
    const int32_t book = listState[FOCUS_BOOK_LIST].selection;
    if (book >= 0 && book < static_cast<int32_t>(BookTitleList.size()))
      BookTitleList[book] = editCtrl->GetText(0);
  }
}

void CMainFrame::RenderFocus() {
  if (routingMode != MODE_SCREEN) return;
  switch (focus) {
    case FOCUS_DICT_LIST: ShowDictionaryList(); break;
    case FOCUS_BOOK_LIST: ShowBookList(); break;
    case FOCUS_RESULT_LIST: ShowResultList(); break;
    case FOCUS_CANDIDATE_LIST: ShowCandidateList(); break;
    case FOCUS_OPT_GAIJI_REPLACE: ShowGaijiReplaceOption(); break;
    case FOCUS_OPT_GAIJI_VISIBLE: ShowGaijiVisibleOption(); break;
    case FOCUS_OPT_SYLLABLE: ShowSyllableOption(); break;
    case FOCUS_OPT_PHONETIC: ShowPhoneticOption(); break;
    case FOCUS_EDIT_WORD:
      ShowEditField(u"検索ワード:", searchWord);
      break;
    case FOCUS_EDIT_NAME: {
      const int32_t book = listState[FOCUS_BOOK_LIST].selection;
      const bool inside = book >= 0 && book < static_cast<int32_t>(BookTitleList.size());
      ShowEditField(u"辞書名:", inside ? BookTitleList[book] : CString());
      break;
    }
    case FOCUS_EDIT_ARTICLE:
      ShowArticleField(u"検索結果:", FilterDisplayText(articleText, options, GaijiTable));
      break;
    default:
      if (CVekButtonCtrl* button = ButtonOf(focus)) button->DisplayItem(1);
      break;
  }
}

void CMainFrame::ShowContentList(const char16_t* label, const CStringArray& items,
                                 int32_t focusId) {
  listCtrl->ResetContent();
  listCtrl->SetMask(0);
  listCtrl->SetLabel(label);
  for (const CString& item : items) listCtrl->AddString(item.GetString());
  listCtrl->SetCurSel(listState[focusId].selection);
  listCtrl->DisplayItem(1);
}

// The list box keeps the selection and takes the keys; what the user gets
// is the value in a read-only field.
void CMainFrame::ShowOptionList(const char16_t* label, const char16_t* off, const char16_t* on,
                                int32_t focusId) {
  listCtrl->ResetContent();
  listCtrl->SetMask(0);
  listCtrl->SetLabel(label);
  listCtrl->AddString(off);
  listCtrl->AddString(on);
  const int32_t selection = listState[focusId].selection;
  listCtrl->SetCurSel(selection);
  CString value;
  listCtrl->GetText(selection, value);
  ShowValueField(label, value);
}

void CMainFrame::ShowDictionaryList() {
  CStringArray titles;
  for (const DictionaryEntry& entry : DictionaryList) titles.push_back(entry.title);
  ShowContentList(u"辞書選択:", titles, FOCUS_DICT_LIST);
}

// The catalog's titles: a name the user edited lives in BookTitleList and
// shows only in the name field.
void CMainFrame::ShowBookList() {
  CStringArray titles;
  for (const DictionaryEntry& entry : BookCandidateList) titles.push_back(entry.title);
  ShowContentList(u"ブック選択:", titles, FOCUS_BOOK_LIST);
}

void CMainFrame::ShowResultList() {
  CStringArray heads;
  for (const ResultItem& item : ArticleList)
    heads.push_back(FilterDisplayText(item.head, options, GaijiTable));
  ShowContentList(u"検索結果:", heads, FOCUS_RESULT_LIST);
}

void CMainFrame::ShowCandidateList() {
  CStringArray heads;
  for (const ResultItem& item : CandidateList)
    heads.push_back(FilterDisplayText(item.head, options, GaijiTable));
  ShowContentList(u"前方一致検索候補:", heads, FOCUS_CANDIDATE_LIST);
}

void CMainFrame::ShowGaijiReplaceOption() {
  ShowOptionList(u"外字の置換:", u"置換しない", u"置換する", FOCUS_OPT_GAIJI_REPLACE);
}

void CMainFrame::ShowGaijiVisibleOption() {
  ShowOptionList(u"外字の表示:", u"表示しない", u"表示する", FOCUS_OPT_GAIJI_VISIBLE);
}

void CMainFrame::ShowSyllableOption() {
  ShowOptionList(u"音節の表示:", u"表示しない", u"表示する", FOCUS_OPT_SYLLABLE);
}

void CMainFrame::ShowPhoneticOption() {
  ShowOptionList(u"発音記号の表示:", u"表示しない", u"表示する", FOCUS_OPT_PHONETIC);
}

void CMainFrame::ShowEditField(CString label, CString text) {
  ShowField(label, text, 0, 4, false);
}

void CMainFrame::ShowArticleField(CString label, CString text) {
  ShowField(label, text, 1, 7, true);
}

void CMainFrame::ShowValueField(CString label, CString text) {
  ShowField(label, text, 0, 11, true);
}

// The text goes in while the field is writable; read-only mode follows.
void CMainFrame::ShowField(CString label, CString text, int multiLine, int control,
                           bool readOnly) {
  editCtrl->Empty();
  editCtrl->SetMask(0);
  editCtrl->SetAsciiOnly(0);
  editCtrl->SetMultiLine(multiLine);
  editCtrl->SetViewMode(1);
  editCtrl->SetControl(control);
  editCtrl->SetLanguMode(0);
  editCtrl->SetReadOnlyMode(0);
  editCtrl->SetLabel(label);
  editCtrl->SetText(text, 0);
  if (readOnly) editCtrl->SetReadOnlyMode(1);
  editCtrl->SetFocus(label, 1);
}
