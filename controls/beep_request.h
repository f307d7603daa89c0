// The beep request: nothing in the reader sounds a beep itself; it asks
// the task manager, by WM_COPYDATA with dwData 4 and this record of 16392
// bytes, all zero but for:
//
//   Offset  Size    Meaning
//   0       16384   UTF-16 "NullMessageBeepHHCHHC", zero-terminated
//   16384   4       0
//   16388   4       the beep's code, little-endian
//
// The frame's screens ask through the frame; the controls, which have the
// task manager's window, ask through RequestBeep when a key can't do what
// it asks (a list at its end, typing where nothing takes text).
#ifndef CONTROLS_BEEP_REQUEST_H_
#define CONTROLS_BEEP_REQUEST_H_

#include <cstdint>
#include <vector>

#include "platform/window.h"

constexpr uintptr_t BEEP_COPYDATA_ID = 4;      // dwData of a beep request
constexpr uint32_t BEEP_RECORD_SIZE = 16392;   // cbData of a beep request
constexpr uint32_t BEEP_CODE_OFFSET = 16388;   // where the code stands
constexpr int32_t CONTROL_BEEP_CODE = 32;      // the code of every beep, the controls' and the screens'

// The record of a beep with `code`.
std::vector<uint8_t> MakeBeepRecord(int32_t code);
// True, with the code, when `data` is a beep request.
bool ReadBeepRecord(const tagCOPYDATASTRUCT* data, int32_t& code);
// Sends a beep request with `code` to `taskWnd`, wParam `from` (the
// asking control's frame window). It waits until the task manager has
// handled it; nothing happens when `taskWnd` is 0 or gone.
void RequestBeep(HWND taskWnd, HWND from, int32_t code);

#endif  // CONTROLS_BEEP_REQUEST_H_
