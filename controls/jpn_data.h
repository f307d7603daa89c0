// _JPNDATA: Japanese text typed on the device, handed to the application by
// WM_COPYDATA (dwData 9) and on to the edit control. Little-endian words:
//
//   Offset  Size          Meaning
//   0       4             recordSize: bytes of the whole record, text included
//   4       4             textUnits: UTF-16 units of text behind the header
//   8       4             reserved, 0
//   12      4             kind: 1, Japanese text (the frame reads this word)
//   16      2*textUnits   the text, UTF-16, no terminator needed
//
// A reader takes no more units than both textUnits and recordSize allow.
#ifndef CONTROLS_JPN_DATA_H_
#define CONTROLS_JPN_DATA_H_

#include <cstdint>
#include <vector>

#include "platform/wide_string.h"

struct _JPNDATA {
  uint32_t recordSize;  // bytes of the record, header and text
  uint32_t textUnits;   // UTF-16 units of the text that follows
  uint32_t reserved;    // 0
  uint32_t kind;        // JPNDATA_TEXT
};

constexpr uint32_t JPNDATA_TEXT = 1;          // kind of typed Japanese text
constexpr uintptr_t JPNDATA_COPYDATA_ID = 9;  // dwData of its WM_COPYDATA

// A record holding `text`, ready to be the lpData of WM_COPYDATA (its
// size is the cbData). Kept in 32-bit words so the header is aligned.
std::vector<uint32_t> MakeJpnData(const CString& text);
// The text of a record; empty for null.
CString JpnDataText(const _JPNDATA* data);

#endif  // CONTROLS_JPN_DATA_H_
