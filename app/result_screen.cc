// SCREEN_RESULTS: the articles found, the button "開く", the forward-match
// candidates, the button "検索開始" that looks a candidate up, and "閉じる",
// in a ring. Leaving goes back to the search screen on the focus it had.
#include "app/main_frame.h"

namespace {

constexpr int32_t kResultRing[] = {FOCUS_RESULT_LIST, FOCUS_BTN_OPEN, FOCUS_CANDIDATE_LIST,
                                   FOCUS_BTN_SEARCH, FOCUS_BTN_CLOSE};

}  // namespace

// With no article selected the list is shown again, without a beep.
void CMainFrame::OpenArticle() {
  SaveFocusState();
  const int32_t article = listState[FOCUS_RESULT_LIST].selection;
  if (article < 0 || article >= static_cast<int32_t>(ArticleList.size())) {
    RenderFocus();
    return;
  }
  articleText = ArticleList[article].body;
  screen = SCREEN_ARTICLE;
  focus = FOCUS_EDIT_ARTICLE;
  screenFocus[SCREEN_ARTICLE] = FOCUS_EDIT_ARTICLE;
  RenderFocus();
}

// A candidate's body is its search key. The dictionary stays the one of
// the search screen, and searchWord doesn't change.
void CMainFrame::LookupCandidate() {
  SaveFocusState();
  const int32_t candidate = listState[FOCUS_CANDIDATE_LIST].selection;
  if (candidate < 0 || candidate >= static_cast<int32_t>(CandidateList.size())) {
    NotifyBeep(BEEP_CODE);
    return;
  }
  // A copy: the lookup empties CandidateList before it reads the key.
  const CString key = CandidateList[candidate].body;
  RunLookup(key);
}

int CMainFrame::ResultScreenKey(uint32_t key, long) {
  if (key == CK_EXIT || key == CK_BACK) {
    ReturnToScreen(SCREEN_SEARCH);
    return 1;
  }
  if (StepRing(key, kResultRing)) return 1;
  if (key != CK_ENTER) return 0;
  switch (focus) {
    case FOCUS_RESULT_LIST:
    case FOCUS_BTN_OPEN:
      OpenArticle();
      return 1;
    case FOCUS_CANDIDATE_LIST:
    case FOCUS_BTN_SEARCH:
      LookupCandidate();
      return 1;
    case FOCUS_BTN_CLOSE:
      ReturnToScreen(SCREEN_SEARCH);
      return 1;
    default:
      return 0;
  }
}
