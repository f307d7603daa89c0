// Line ends (0x1F0A) and left margins (0x1F09): the layout of a record, and
// the stops that come from it. A record ends at the line end that uses up
// its line allowance, at a blank line under DF_NO_ITEM_SPLIT, and where the
// left margin falls back to the left edge, which starts a new item.
#include "engine/engine_state.h"
#include "engine/file_access.h"
#include "text/decoder.h"
#include "text/text_record.h"

namespace {

constexpr int32_t kLineEnd = 0x1F0A;
// A line that opens with a dash continues the item at the left edge.
constexpr int32_t kDash = 0x213D;
// A record without end codes stops at the 513th line end.
constexpr int32_t kLineAllowanceFloor = -512;
// From behind a margin code's look-ahead word back to the margin code.
constexpr int32_t kMarginCodeBack = 6;

}  // namespace

void line_end(TextRecord* record) {
  if (record->limit > 0 && (engine.flags & DF_GROUP_SEARCH)) {
    // A head line of a group: ends silently, standing behind its line end,
    // where the next head line starts.
    if (engine.flags & DF_COLOUR) cdattr(0);
    record->ended = true;
    return;
  }
  if (engine.flags & DF_VERBOSE) {
    write_direct("\\\\\n");
  } else {
    putc_unlocked('\n', engine.output);  // a line in every few units: no call for it
  }
  record->column = 0;
  --record->limit;
  if (record->limit == 0 || record->limit < kLineAllowanceFloor) {
    stop_record(record, cdtell());
    return;
  }
  if (engine.flags & DF_GROUP_SEARCH) record->limit = 0;
  if (engine.flags & DF_NO_ITEM_SPLIT) {
    if (cdgetword() == kLineEnd) {
      stop_record(record, cdtell());
      return;
    }
    give_back_word();
  }
}

void left_margin(TextRecord* record) {
  int32_t value = cdgetword();
  if (engine.flags & DF_ENGLISH) ++value;
  if (engine.flags & DF_NO_STOP) {
    record->margin = value - 1;
    return;
  }
  if (engine.flags & DF_MARGIN_SPLIT) {
    if (record->first_margin < 0) {
      record->first_margin = value - 1;
    } else if (value - 1 <= record->first_margin) {
      stop_record(record, cdtell() - kMarginCodeBack);
      return;
    }
  }
  int32_t next = cdgetword();
  bool splits = !(engine.flags & (DF_NO_ITEM_SPLIT | DF_SYNONYM_INDEX));
  if (next != kDash && record->margin > 0 && value == 1 && splits) {
    stop_record(record, cdtell() - kMarginCodeBack);
    return;
  }
  record->margin = value - 1;
  give_back_word();
  if (engine.flags & DF_VERBOSE) {
    text_append(record, "\\leftmargin{%d}", value);
    emit(record);
  }
}
