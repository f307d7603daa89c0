#include "app/focus_ring.h"

#include "app/main_frame.h"

int RingStep(uint32_t key) {
  if (key == KEY_NEXT_CTRL) return 1;
  if (key == KEY_PREV_CTRL) return -1;
  return 0;
}

int32_t RingNeighbour(std::span<const int32_t> ring, int32_t id, int step, int32_t skip) {
  const int size = static_cast<int>(ring.size());
  if (size == 0) return id;
  int at = 0;
  while (at < size && ring[at] != id) ++at;
  if (at == size) return ring[0];
  int32_t to = ring[((at + step) % size + size) % size];
  if (to == skip && size > 1) to = ring[((at + 2 * step) % size + size) % size];
  return to;
}

void CMainFrame::MoveFocus(int32_t id) {
  SaveFocusState();
  focus = id;
  screenFocus[screen] = id;
  RenderFocus();
}

bool CMainFrame::StepRing(uint32_t key, std::span<const int32_t> ring, int32_t skip) {
  const int step = RingStep(key);
  if (step == 0) return false;
  MoveFocus(RingNeighbour(ring, focus, step, skip));
  return true;
}

void CMainFrame::ReturnToScreen(int32_t to) {
  SaveFocusState();
  screen = to;
  focus = screenFocus[to];
  RenderFocus();
}
