// The usage text, printed by a run without arguments.
#include <cstring>

#include "command/run.h"
#include "engine/engine_state.h"

namespace {

// Each line gets a line feed behind it; those that end in one already are
// followed by an empty line.
const char* const kUsageLines[] = {
    "\t--\t標準入力からオプションや引数を読み込む（１行にひとつ）",
    "\t-C\tカタログ一覧\t\t: -V\t  検索ファイル等の一覧",
    "\tkeyword\t単語検索\t\t: number  レコード指定",
    "\t-M\tメニュー検索\t\t: -U\t  （Ｃ）表示\n",
    "\t-D[path]ＣＤ－ＲＯＭドライブ設定\t\t[CDDRIVE]",
    "\t-B[n]\t文書番号（-C を試してね）\t\t[CDBOOK]",
    "\t-K[n]\t検索ファイルINDEX（-V を試してね）\t[CDINDEX]",
    "\t-R\t後方一致検索モード\t: -X[n]\t  複合検索モード",
    "\t-J\t条件検索モード\t\t: -I\t  類語インデックスモード",
    "\t-E[n]\t英語モード（-E0 で日本語モード）\n",
    "\t-L[lines]\t１画面の行数(default:20)\t[CDLINES]",
    "\t-W[width]\t１行の文字数(default:∞)\t[CDWIDTH]",
    "\t-Z[chars]\t検索文字列の最大長(default:∞)\t[CDLENGTH]",
    "\t-G[gaiji.dmp]\t外字定義ファイル\t\t[CDGAIJI]",
    "\t-H[hankaku.dmp]\t半角外字定義ファイル\t\t[CDHANKAKU]",
    "\t-F[file.tbl]\tファイル定義テーブル\t\t[CDFILES]",
    "\t-O[outputfile]\t出力ファイル指定",
};

}  // namespace

void engine_usage(const char* program) {
  // The name behind the last '/', or behind the last '\' when there is none.
  const char* slash = strrchr(program, '/');
  if (!slash) slash = strrchr(program, '\\');
  const char* name = slash ? slash + 1 : program;
  fprintf(engine.std_out, "%s [--][-option][keyword][number]…\n", name);
  for (const char* line : kUsageLines) fprintf(engine.std_out, "%s\n", line);
}
