// The -A dump: the run's settings and every debug flag, to output.
#include "command/run.h"
#include "engine/file_access.h"
#include "text/gaiji.h"

namespace {

// One debug flag's line: `format` takes the flag's value and the text of
// its state.
struct FlagLine {
  uint32_t flag;           // the DF_ bit
  const char* format;      // "\t0x%08lX:...%s\n"
  const char* when_set;    // text while the bit is set
  const char* when_clear;  // text while it is clear
};

// In the order of the debug flags; bits 6 and 7 have no line.
const FlagLine kFlagLines[] = {
    {DF_NO_ITEM_SPLIT, "\t0x%08lX:項目区切り抑制%s\n", "する", "しない"},
    {DF_KEEP_FULL_KANA, "\t0x%08lX:仮名を半角に%s\n", "しない", "する"},
    {DF_NO_KEY_SYMBOLS, "\t0x%08lX:検索文字列に記号を許%s\n", "さない", "す"},
    {DF_HIDE_LINKS, "\t0x%08lX:リンク情報などを表示%s\n", "しない", "する"},
    {DF_MARGIN_SPLIT, "\t0x%08lX:左端指定を項目区切とみな%s\n", "す", "さない"},
    {DF_1F41_SPLIT, "\t0x%08lX:[1F41]を項目区切とみな%s\n", "す", "さない"},
    {DF_INDEX_HIRAGANA, "\t0x%08lX:インデックス中のカタカナをひらがなに変換%s\n", "する", "しない"},
    {DF_FILE_DOT, "\t0x%08lX:ファイル名に . を追加%s\n", "する", "しない"},
    {DF_COLOUR, "\t0x%08lX:属性を色で表示%s\n", "する", "しない"},
    {DF_VERBOSE, "\t0x%08lX:いろいろ表示%s\n", "する", "しない"},
    {DF_NO_STOP, "\t0x%08lX:止%s\n", "らない", "る"},
    {DF_DUMP, "\t0x%08lX:%s\n", "ダンプ", "文章"},
    {DF_TRACE, "\t0x%08lX:デバッグ情報表示%s\n", "する", "しない"},
    {DF_IGNORE_ERRORS, "\t0x%08lX:エラーを無視%s\n", "する", "しない"},
    {DF_SCAN_NO_DEFAULTS, "\t0x%08lX:-T で、初期値を設定%s\n", "しない", "する"},
    {DF_NO_BACKSLASH, "\t0x%08lX:パス区切に \\ を許%s\n", "さない", "す"},
};

// -A runs before any search may have set the two key texts: unset prints empty.
const char* text_or_empty(const char* text) { return text ? text : ""; }

void print_search_mode(FILE* out) {
  if (engine.multi_index > 0) {
    fprintf(out, "-X%d: 複合検索", static_cast<int>(engine.multi_index));
    if (engine.index_id >= 0) fprintf(out, "(0x%X)\n", static_cast<unsigned>(engine.index_id));
    else fputs("\n", out);
    return;
  }
  switch (engine.index_id) {
    case -1: fputs("-K: 前方一致検索\n", out); break;
    case -2: fputs("-R: 後方一致検索\n", out); break;
    case 0x80: fputs("-J: 条件検索\n", out); break;
    case 0xA0: fputs("-I: 類語インデックス\n", out); break;
    default: fprintf(out, "-K/CDKEY = 0x%X\n", static_cast<unsigned>(engine.index_id)); break;
  }
}

const char* book_type_line() {
  if (engine.flags & DF_EBOOK) return "\t電子ブック\n";
  if (engine.flags & DF_ENCYCLOPEDIA) return "\t平凡社世界大百科\n";
  return "\tＥＰＷＩＮＧ（12cmＣＤ）\n";
}

}  // namespace

void print_state_dump() {
  FILE* out = engine.output;
  if (engine.single_file[0] != '\0') {
    fprintf(out, "-N/CDFILE = %s\n", engine.single_file);
  } else {
    fprintf(out, "-D/CDDRIVE = %s\n", engine.drive_path);
    fprintf(out, "-B/CDBOOK  = %d\n", static_cast<int>(engine.book_number));
  }
  print_search_mode(out);
  fprintf(out, "-L/CDLINES = %d\n", static_cast<int>(engine.lines));
  fprintf(out, "-W/CDWIDTH = %d\n", static_cast<int>(engine.width));
  fprintf(out, "-Z/CDLENGTH = %d\n", static_cast<int>(engine.key_length));
  if (engine.gaiji_table != empty_gaiji_table) fputs("-G/CDGAIJI is defined.\n", out);
  if (engine.hankaku_table != empty_gaiji_table) fputs("-H/CDHGAIJI is defined.\n", out);
  if (engine.file_table != default_file_table) fputs("-F/CDFILES is defined.\n", out);
  fprintf(out, "-E: %sモード\n", (engine.flags & DF_ENGLISH) ? "英語" : "日本語");
  fprintf(out, "検索文字列=%s\n", text_or_empty(engine.search_string));
  fprintf(out, "正規化文字列=%s\n", text_or_empty(engine.normalized_key));
  fprintf(out, "Index Pages=%ld\n", static_cast<long>(engine.index_pages));
  fprintf(out, "切出し長=%ld\n", static_cast<long>(engine.cut_length));
  fprintf(out, "-S/CDDEBUG=0x%08lX\n", static_cast<unsigned long>(engine.flags));
  fputs(book_type_line(), out);
  for (const FlagLine& line : kFlagLines) {
    bool set = (engine.flags & line.flag) != 0;
    fprintf(out, line.format, static_cast<unsigned long>(line.flag), set ? line.when_set : line.when_clear);
  }
}
