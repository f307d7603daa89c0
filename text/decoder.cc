// cdtext: one record of body text from the current position to output.
//
// A record has no header and no length: any position can start one, and
// only the stops (end of data, the end code, line ends against the line
// allowance, a margin falling back to the left edge, code 0x1F41 under some
// flags) end it, each with the marker "\n<次項目:%ld>\n\n" that tells where
// the next item starts. The stream format is described in dispatch.cc.
//
// DF_DUMP and cut_length replace the decoding by a word dump or a raw copy
// (raw_views.cc). A position already shown for this argument is not shown
// again (seen_positions).
#include <cstdio>

#include "engine/engine_state.h"
#include "engine/file_access.h"
#include "text/decoder.h"
#include "text/text_record.h"

namespace {

// True when `position` was shown before for this argument; otherwise it is
// noted, while the list has room.
bool seen_before(int32_t position) {
  for (int32_t i = 0; i < engine.seen_count; ++i) {
    if (engine.seen_positions[i] == position) return true;
  }
  if (engine.seen_count < kSeenMax) engine.seen_positions[engine.seen_count++] = position;
  return false;
}

// True when emit writes a unit as it stands: no wrap, the margin written,
// no colour.
bool plain_layout(const TextRecord& record) {
  return engine.width <= 0 && record.column >= record.margin && !(engine.flags & DF_COLOUR);
}

// Writes `word` as cdputchar's common paths (plain_bytes) and a plain emit
// write it; false, writing nothing, for any other word.
[[gnu::always_inline]] inline bool put_plain(TextRecord* record, int32_t word, bool half, FILE* output) {
  const int32_t bytes = plain_bytes(word, half);
  if (bytes == 0) return false;
  if (bytes > 0xFF) {
    putc_unlocked((bytes >> 8) & 0xFF, output);
    putc_unlocked(bytes & 0xFF, output);
    record->column += 2;
  } else {
    putc_unlocked(bytes, output);
    record->column += 1;
  }
  return true;
}

// Writes the characters from `word` on that put_plain writes: the bulk of
// every record. No code it passes changes the layout, the attributes or the
// flags. Gives the first word that is no such character, read with
// unit_position set as the unit loop sets it.
int32_t plain_run(TextRecord* record, int32_t word) {
  FILE* output = engine.output;
  const bool half = half_width_out();
  for (;;) {
    if (!put_plain(record, word, half, output)) return word;
    // The words that follow within the block read last, straight from its
    // bytes (under a file table positions are not file offsets: word by word).
    int64_t size = 0;
    const unsigned char* rest = (engine.flags & DF_FILE_TABLE) ? nullptr : kept_rest(&size);
    int64_t used = 0;
    for (; used + 2 <= size; used += 2) {
      const int32_t next = rest[used] << 8 | rest[used + 1];
      if (!put_plain(record, next, half, output)) {
        kept_bytes(static_cast<size_t>(used));
        record->unit_position = cdtell();
        kept_bytes(2);
        return next;
      }
    }
    kept_bytes(static_cast<size_t>(used));
    record->unit_position = cdtell();
    word = cdgetword();
  }
}

}  // namespace

bool read_failed() {
  const BookReader* reader = current_reader();
  return reader == nullptr || reader->at_end || reader->failed;
}

void give_back_word() {
  // A failed read did not move the position, so there is nothing to give back.
  if (!read_failed()) cdseek(-2, 1);
}

void cdtext(int32_t limit) {
  if (engine.flags & DF_DUMP) {
    word_dump();
    return;
  }
  if (engine.cut_length > 0) {
    raw_cut();
    return;
  }
  int32_t start = cdtell();
  // Position 0 holds no text; a negative one means no book is open, where
  // every word would read 0 for ever.
  if (start <= 0 || seen_before(start)) return;

  TextRecord record{};
  record.limit = limit;
  record.first_margin = -1;
  while (!record.ended) {
    text_clear(&record);
    record.unit_position = cdtell();
    if (engine.flags & DF_ENGLISH) {
      english_unit(&record);
      continue;
    }
    int32_t word = cdgetword();
    if (plain_layout(record)) word = plain_run(&record, word);
    if (word != 0 && (word >> 8) != 0x1F) {
      // A character (no control code, not the end of data): out as
      // dispatch_word puts it, without the calls.
      text_append_char(&record, word);
      emit(&record);
    } else {
      dispatch_word(&record, word);
    }
  }
}
