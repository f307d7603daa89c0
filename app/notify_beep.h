// The beep request: the application sounds nothing itself but asks the
// task manager, by WM_COPYDATA with dwData 4 and this record of 16392
// bytes, all zero but for:
//
//   Offset  Size    Meaning
//   0       16384   UTF-16 "NullMessageBeepHHCHHC", zero-terminated
//   16384   4       0
//   16388   4       the beep's code, little-endian
#ifndef APP_NOTIFY_BEEP_H_
#define APP_NOTIFY_BEEP_H_

#include <cstdint>
#include <vector>

#include "platform/window_messages.h"

constexpr uintptr_t BEEP_COPYDATA_ID = 4;      // dwData of a beep request
constexpr uint32_t BEEP_RECORD_SIZE = 16392;   // cbData of a beep request
constexpr uint32_t BEEP_CODE_OFFSET = 16388;   // where the code stands

// The record of a beep with `code`.
std::vector<uint8_t> MakeBeepRecord(int32_t code);
// True, with the code, when `data` is a beep request.
bool ReadBeepRecord(const tagCOPYDATASTRUCT* data, int32_t& code);

#endif  // APP_NOTIFY_BEEP_H_
