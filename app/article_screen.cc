// SCREEN_ARTICLE: the read-only article and "閉じる". Reading, moving and
// read-all are the edit control's; the frame keeps no reading position, so
// coming back from the menu sets the field up anew from articleText.
#include "app/main_frame.h"

namespace {

constexpr int32_t kArticleRing[] = {FOCUS_EDIT_ARTICLE, FOCUS_BTN_CLOSE};

}  // namespace

int CMainFrame::ArticleScreenKey(uint32_t key, long) {
  if (key == CK_EXIT || key == CK_BACK) {
    ReturnToScreen(SCREEN_RESULTS);  // on the head line the user opened
    return 1;
  }
  if (StepRing(key, kArticleRing)) return 1;
  if (key != CK_ENTER) return 0;
  if (focus == FOCUS_EDIT_ARTICLE) {
    NotifyBeep(BEEP_CODE);  // the text can't be activated
    return 1;
  }
  if (focus == FOCUS_BTN_CLOSE) {
    ReturnToScreen(SCREEN_RESULTS);  // on the head line the user opened
    return 1;
  }
  return 0;
}
