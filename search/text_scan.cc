// cdtextscan (-T): walks a text area word by word and tabulates the control
// codes 0x1F00..0x1FFF it meets, with the position where each first stood,
// so that the operand table can be proved against a book. A code the table
// doesn't know is asked for at the console. The scan ends with the area,
// the book, or too many odd words, whichever comes first.
#include <cstdlib>

#include "engine/book_end.h"
#include "engine/engine_state.h"
#include "engine/file_access.h"
#include "engine/index_directory.h"
#include "search/inspection.h"

namespace {

constexpr int kCodes = 256;
// Odd words shown before the scan gives up: each shows 13 words, and an
// area that holds this many is no text (a damaged page count has carried
// the scan into indexes or fonts).
constexpr int kMaxOddWords = 256;

// Operand words of the codes whose count is fixed by the format.
void set_default_operands() {
  for (int i = 0; i < kCodes; ++i) code_operands[i] = -1;
  const int none[] = {0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x0A, 0x0B, 0x0C, 0x0E, 0x0F, 0x10,
                      0x11, 0x12, 0x13, 0x43, 0x4A, 0x4E, 0x61, 0x65, 0x68, 0x6D, 0xE1, 0xE2,
                      0xE3, 0xE5};
  const int one[] = {0x09, 0x41, 0x45, 0xE4};
  const int three[] = {0x31, 0x49, 0x51, 0x52, 0x62, 0x63, 0x64, 0x69, 0x6A, 0x6B, 0x6C, 0x6E};
  const int five[] = {0x48, 0x4B, 0x4C};
  for (int code : none) code_operands[code] = 0;
  for (int code : one) code_operands[code] = 1;
  for (int code : three) code_operands[code] = 3;
  for (int code : five) code_operands[code] = 5;
}

// The number of operand words for `code` at this place in the text.
int operands_here(int code) {
  int low = code & 0xFF;
  if (low == 0x32 || low == 0x42 || low == 0x4D) {
    int next = cdgetword();
    cdseek(-2, 1);
    if (low == 0x4D) code_operands[low] = static_cast<signed char>(next + 1);
    else code_operands[low] = next < 0x2000 ? 2 : 0;
  }
  return code_operands[low];
}

// A console answer for an unknown code; no answer counts as 0.
int ask_operands() {
  char line[17];
  int value = 0;
  if (fgets(line, sizeof line, engine.std_in) == nullptr || sscanf(line, "%d", &value) != 1) return 0;
  return value;
}

// 13 words around an odd word: the four before it, ">" behind the one just
// in front of it.
void show_odd_word(int32_t odd_at) {
  int32_t from = odd_at - 8;
  cdseek(from, 0);
  fprintf(engine.output, "%ld: ", static_cast<long>(from));
  for (int i = 0; i < 13; ++i) fprintf(engine.output, "%04X%c", cdgetword(), i == 3 ? '>' : ' ');
  fputc('\n', engine.output);
  cdseek(odd_at + 2, 0);
}

}  // namespace

signed char code_operands[kCodes];

void cdtextscan(int32_t identifier) {
  int32_t first_positions[kCodes];
  for (int32_t& position : first_positions) position = -1;
  const int32_t saved_index = engine.index_id;
  engine.index_id = identifier;
  int32_t page = find_index(engine.multi_index > 0 ? 0xFF : identifier);
  engine.index_pages = engine.found_pages;
  cdseekpage(page);
  fprintf(engine.output, "ID=%02X, from %ld(%ld pages), flag=%lx\n", identifier, static_cast<long>(page),
          static_cast<long>(engine.index_pages), static_cast<unsigned long>(engine.flags));

  static bool table_ready = false;
  if (!table_ready) set_default_operands();
  table_ready = true;
  if (engine.flags & DF_SCAN_NO_DEFAULTS) {
    for (signed char& entry : code_operands) entry = -1;
  } else {
    const bool encyclopedia = engine.flags & DF_ENCYCLOPEDIA;
    code_operands[0x44] = encyclopedia ? 7 : 5;
    code_operands[0xE0] = encyclopedia ? 0 : 1;
  }

  // A damaged directory may place the area past every 32-bit position.
  const int64_t end = (int64_t{page} + engine.index_pages - 1) * kPageSize;
  int odd_words = 0;
  for (int64_t budget = int64_t{engine.index_pages} * 1024 - 1; budget > 0;) {
    int32_t at = cdtell();
    int word = cdgetword();
    --budget;
    if (word >= 0x2000) continue;
    if (cdeof()) {
      const int64_t left = end - at;
      fprintf(engine.std_err, "End of file, %lld(%lld page)left.\n", static_cast<long long>(left),
              static_cast<long long>(left / kPageSize));
      break;
    }
    if (word == 0) continue;
    if (word < 0x1F00) {
      if (odd_words++ == kMaxOddWords) {
        fprintf(engine.std_err, "Too many odd words, the scan stops at %ld.\n", static_cast<long>(at));
        break;
      }
      show_odd_word(at);
      continue;
    }
    int low = word & 0xFF;
    bool is_new = first_positions[low] < 0;
    if (is_new) {
      fprintf(engine.std_err, "%ld: %04X ", static_cast<long>(at), word);
      int32_t behind = cdtell();
      for (int i = 0; i < 7; ++i) fprintf(engine.std_err, "%04X ", cdgetword());
      cdseek(behind, 0);
    }
    int operands = operands_here(word);
    if (operands < 0) {
      operands = ask_operands();
      code_operands[low] = static_cast<signed char>(operands);
    } else if (is_new) {
      fprintf(engine.std_err, "%d\n", operands);
    }
    if (is_new) first_positions[low] = at;
    cdseek(2 * operands, 1);
    budget -= operands;
  }
  for (int low = 0; low < kCodes; ++low) {
    if (first_positions[low] >= 0)
      fprintf(engine.output, "%04X: %d (%ld)\n", 0x1F00 | low, code_operands[low],
              static_cast<long>(first_positions[low]));
  }
  engine.index_id = saved_index;
}
