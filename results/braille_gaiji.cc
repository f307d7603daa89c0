// BrailleGaiji.txt, in the system code page (CP932): a sequence of records,
// each read as the format "%lx=%s\n" reads it:
//
//   field        form                               meaning
//   number       hexadecimal digits, either case,   the external character's
//                leading white space skipped        code; kept to 32 bits
//   "="          the one character                  separates the two
//   text         1 to 1023 bytes without white      what the code becomes on
//                space; leading white space         the display
//                skipped
//   white space  any, line ends included            skipped
//
// No header, no comments, no order; codes may repeat. The first record
// that does not fit ends the reading, and the rows before it stay. White
// space ends a text, so the rest of such a line is read as the next
// record. A longer text is cut at 1023 bytes, at a character boundary, and
// the rest of it is passed over.
#include "results/braille_gaiji.h"

#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "platform/code_page.h"
#include "platform/file_calls.h"

namespace {

constexpr size_t kTextBuffer = 1024;  // a text and its NUL

// After a text that filled the buffer: true when more of it followed,
// which is then read past. The white space behind a record is left to the
// next record's "%lx", which skips it as the format's "\n" would.
bool SkipRestOfText(FILE* file) {
  int next = std::fgetc(file);
  if (next == EOF) return false;
  std::ungetc(next, file);
  if (std::isspace(next)) return false;
  std::fscanf(file, "%*[^ \t\n\v\f\r]");
  return true;
}

}  // namespace

void LoadBrailleGaiji(const CString& path, GaijiMappingArray& table) {
  table.clear();
  FILE* file = OpenDeviceFile(path + u"\\BrailleGaiji.txt", "rb");
  if (file == nullptr) return;
  unsigned long number = 0;
  char text[kTextBuffer];
  while (std::fscanf(file, "%lx=%1023s", &number, text) == 2) {
    size_t length = std::strlen(text);
    if (length == kTextBuffer - 1 && SkipRestOfText(file))
      length = CutAtCharBoundary(std::string_view(text, length), length);
    GaijiMapping row;
    row.codeText.Format(u"[%04X]", static_cast<unsigned>(static_cast<uint32_t>(number)));
    row.replacement = CString(DecodeMultiByte(std::string_view(text, length)));
    table.push_back(row);
  }
  std::fclose(file);
}
