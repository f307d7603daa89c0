#include "controls/jpn_data.h"

#include <cstring>

std::vector<uint32_t> MakeJpnData(const CString& text) {
  const uint32_t units = static_cast<uint32_t>(text.GetLength());
  const uint32_t bytes = sizeof(_JPNDATA) + units * 2;
  std::vector<uint32_t> words((bytes + 3) / 4, 0);
  _JPNDATA header{bytes, units, 0, JPNDATA_TEXT};
  std::memcpy(words.data(), &header, sizeof header);
  std::memcpy(reinterpret_cast<char*>(words.data()) + sizeof header, text.GetString(), units * 2);
  return words;
}

CString JpnDataText(const _JPNDATA* data) {
  if (data == nullptr || data->recordSize < sizeof(_JPNDATA)) return CString();
  uint32_t units = data->textUnits;
  const uint32_t room = (data->recordSize - sizeof(_JPNDATA)) / 2;
  if (units > room) units = room;
  std::u16string text(units, u'\0');
  std::memcpy(text.data(), reinterpret_cast<const char*>(data) + sizeof(_JPNDATA), units * 2);
  return CString(std::move(text));
}
