// Harness: any text through the reading and the Braille translation.
//
// An even first byte: the rest is UTF-8 (bytes that are no UTF-8 become
// U+FFFD, as from a terminal or a file). An odd one: the rest is UTF-16
// units, lone surrogates and controls included, as a book may hand them.
// Speech must get back well-formed UTF-16; Braille nothing but cells, the
// same with their sources, each a unit of the text, never falling.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/utf8_text.h"
#include "platform/utf16_units.h"
#include "reading/reading.h"

namespace {

bool WellFormed(const std::u16string& text) {
  for (size_t i = 0; i < text.size(); i += CharacterUnits(text, i)) {
    if (CharacterUnits(text, i) == 1 && IsSurrogate(text[i])) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  std::u16string text;
  if (data[0] % 2 == 0) {
    text = FromUtf8(std::string_view(reinterpret_cast<const char*>(data + 1), size - 1)).Units();
  } else {
    for (size_t i = 1; i + 1 < size; i += 2) text += static_cast<char16_t>(data[i] | data[i + 1] << 8);
  }
  if (!WellFormed(SpeechReading(text))) std::abort();
  const std::u16string cells = BrailleCells(text);
  for (char16_t cell : cells)
    if (cell < 0x2800 || cell > 0x28FF) std::abort();
  std::vector<int> sources;
  if (BrailleCellsWithSources(text, sources) != cells || sources.size() != cells.size())
    std::abort();
  for (size_t i = 0; i < sources.size(); ++i)
    if (sources[i] < 0 || sources[i] >= static_cast<int>(text.size()) ||
        (i > 0 && sources[i] < sources[i - 1]))
      std::abort();
  return 0;
}
