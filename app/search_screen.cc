// SCREEN_SEARCH: the dictionary list, the word field and three buttons in
// a ring. This first form moves round the ring and closes the application;
// the other keys (the lookup, the menu, the management screen) pass to the
// focused control until they are dealt with here.
#include <iterator>

#include "app/main_frame.h"

namespace {

// The ring of KEY_NEXT_CTRL; KEY_PREV_CTRL goes round it backwards.
constexpr int32_t kSearchRing[] = {FOCUS_DICT_LIST, FOCUS_EDIT_WORD, FOCUS_BTN_SEARCH,
                                   FOCUS_BTN_MANAGE, FOCUS_BTN_CLOSE};

int32_t RingNeighbour(int32_t id, int step) {
  constexpr int size = static_cast<int>(std::size(kSearchRing));
  int at = 0;
  while (at < size && kSearchRing[at] != id) ++at;
  if (at == size) return kSearchRing[0];
  return kSearchRing[(at + step + size) % size];
}

}  // namespace

void CMainFrame::MoveFocus(int32_t id) {
  SaveFocusState();
  focus = id;
  screenFocus[screen] = id;
  RenderFocus();
}

int CMainFrame::SearchScreenKey(uint32_t key, long) {
  if (key == KEY_EXIT || (key == KEY_ENTER && focus == FOCUS_BTN_CLOSE)) {
    PostMessage(GetSafeHwnd(), WM_CLOSE, 0, 0);
    return 1;
  }
  if (key == KEY_NEXT_CTRL || key == KEY_PREV_CTRL) {
    MoveFocus(RingNeighbour(focus, key == KEY_NEXT_CTRL ? 1 : -1));
    return 1;
  }
  if (key == KEY_ENTER && focus == FOCUS_DICT_LIST) return 1;
  return 0;
}
