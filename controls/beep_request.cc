#include "controls/beep_request.h"

#include <cstring>

namespace {

constexpr char16_t kBeepText[] = u"NullMessageBeepHHCHHC";

}  // namespace

std::vector<uint8_t> MakeBeepRecord(int32_t code) {
  std::vector<uint8_t> record(BEEP_RECORD_SIZE, 0);
  std::memcpy(record.data(), kBeepText, sizeof kBeepText);
  std::memcpy(record.data() + BEEP_CODE_OFFSET, &code, sizeof code);
  return record;
}

bool ReadBeepRecord(const tagCOPYDATASTRUCT* data, int32_t& code) {
  if (data == nullptr || data->dwData != BEEP_COPYDATA_ID || data->lpData == nullptr ||
      data->cbData < BEEP_RECORD_SIZE)
    return false;
  const uint8_t* bytes = static_cast<const uint8_t*>(data->lpData);
  if (std::memcmp(bytes, kBeepText, sizeof kBeepText) != 0) return false;
  std::memcpy(&code, bytes + BEEP_CODE_OFFSET, sizeof code);
  return true;
}

void RequestBeep(HWND taskWnd, HWND from, int32_t code) {
  if (taskWnd == 0) return;
  std::vector<uint8_t> record = MakeBeepRecord(code);
  tagCOPYDATASTRUCT data{BEEP_COPYDATA_ID, BEEP_RECORD_SIZE, record.data()};
  SendMessage(taskWnd, WM_COPYDATA, from, reinterpret_cast<LPARAM>(&data));
}
