// The controls of a screen form a ring: KEY_NEXT_CTRL goes round it in
// its order, KEY_PREV_CTRL the other way, and both wrap at the ends. Each
// screen keeps its ring as an array of focus ids beside its key handler.
#ifndef APP_FOCUS_RING_H_
#define APP_FOCUS_RING_H_

#include <cstdint>
#include <span>

// 1 for KEY_NEXT_CTRL, -1 for KEY_PREV_CTRL, 0 for any other key.
int RingStep(uint32_t key);

// The id `step` places from `id` in `ring`, round the ends, passing over
// `skip` (a control with nothing in it at the moment; -1 for none). An id
// that is not in the ring gives the ring's first, so a stray focus lands
// somewhere the user can go on from.
int32_t RingNeighbour(std::span<const int32_t> ring, int32_t id, int step, int32_t skip = -1);

#endif  // APP_FOCUS_RING_H_
