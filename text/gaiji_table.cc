// External-character definition tables (-G, CDGAIJI: full width; -H,
// CDHANKAKU: half width). A definition file is loaded whole and the loaded
// bytes are the table. It has no header; it is a run of records, with no
// alignment, in ascending order of code:
//
//   Offset  Size   Meaning
//   ------  -----  ------------------------------------------------------
//        0      1  low byte of the code (codes are little-endian here,
//                  unlike everything in a book)
//        1      1  high byte of the code
//        2  n + 1  replacement text in Shift-JIS, n bytes other than 0,
//                  then a byte 0; n may be 0
//
// The last record has the code 0xFFFF. A file holds at most 65500 bytes.
// The contents are not checked when loading; instead every walk over a
// loaded table is bounded by the end of its block, so a file without the
// end record (or cut inside a record) cannot make a walk run off.
#include <cstdio>
#include <cstdlib>

#include "engine/engine_state.h"
#include "engine/failure.h"
#include "engine/host.h"
#include "text/gaiji.h"

namespace {

constexpr uint32_t kMaxDefinitionFileSize = 65500;

LoadedGaijiTable* loaded_table_of(const unsigned char* table) {
  for (LoadedGaijiTable& slot : engine.gaiji_files) {
    if (slot.block != nullptr && slot.block == table) return &slot;
  }
  return nullptr;
}

LoadedGaijiTable* free_slot() {
  for (LoadedGaijiTable& slot : engine.gaiji_files) {
    if (slot.block == nullptr) return &slot;
  }
  return nullptr;
}

void free_table(const unsigned char* table) {
  LoadedGaijiTable* slot = loaded_table_of(table);
  if (slot == nullptr) return;  // the built-in table, or one a caller owns
  free(slot->block);
  slot->block = nullptr;
  slot->end = nullptr;
}

// The text of `code` in `table`; null when the table has no record for it.
// A table that was not loaded from a file (the built-in one) is trusted to
// end in the 0xFFFF record; no table at all (before the first run) is empty.
const char* find_in_table(const unsigned char* table, int code) {
  if (table == nullptr) return nullptr;
  LoadedGaijiTable* slot = loaded_table_of(table);
  const unsigned char* end = slot != nullptr ? slot->end : nullptr;
  const unsigned char* record = table;
  while (end == nullptr || end - record >= 2) {
    int record_code = record[0] | (record[1] << 8);
    if (record_code == code) return reinterpret_cast<const char*>(record + 2);
    if (record_code > code) return nullptr;
    record += 2;
    while ((end == nullptr || record < end) && *record != 0) ++record;
    ++record;  // the text's final 0
  }
  return nullptr;
}

}  // namespace

const unsigned char* cdgaijiload(const char* path, const unsigned char** table) {
  free_table(*table);
  *table = empty_gaiji_table;
  if (path == nullptr || path[0] == '\0') return *table;

  FILE* file = fopen(path, "rb");
  if (file == nullptr) {
    fputs("外字定義ファイルがみつかりません\n", engine.std_out);
    host_perror(path);
    engine_fail(11);
    return *table;
  }
  HostStat status;
  if (host_stat(path, &status) != 0) {
    // Opened but its size is unknown: it can't be read as a whole.
    fputs("外字定義ファイルを読むのに失敗しました\n", engine.std_out);
    host_perror(path);
    fclose(file);
    engine_fail(13);
    return *table;
  }
  uint32_t size = status.st_size;
  LoadedGaijiTable* slot = free_slot();
  unsigned char* block = nullptr;
  if (size <= kMaxDefinitionFileSize && slot != nullptr) {
    block = static_cast<unsigned char*>(malloc(size + 1));
  }
  if (block == nullptr) {
    fclose(file);
    fputs("外字定義ファイルが大きすぎる／メモリ不足です\n", engine.std_out);
    engine_fail(12);
    return *table;
  }
  if (fread(block, 1, size, file) < size) {
    fputs("外字定義ファイルを読むのに失敗しました\n", engine.std_out);
    host_perror(path);
    fclose(file);
    free(block);
    engine_fail(13);
    return *table;
  }
  fclose(file);
  block[size] = 0;  // ends a text the file cuts off, so a find can return it
  slot->block = block;
  slot->end = block + size;
  *table = block;
  return *table;
}

const char* cdgaijifind(int code) {
  if (engine.flags & DF_NO_ITEM_SPLIT) {
    const char* text = find_in_table(engine.hankaku_table, code);
    if (text != nullptr) return text;
  }
  return find_in_table(engine.gaiji_table, code);
}
