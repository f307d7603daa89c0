// A book from a small file in the EDICT form.
#include <gtest/gtest.h>
#include <iconv.h>

#include <fstream>

#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "testing/utf8_literal.h"
#include "tools/book_builder.h"
#include "tools/edict_import.h"
#include "tools/jis_text.h"
#include "tools/tree_output.h"

namespace {

namespace fs = std::filesystem;

std::string euc_jp(std::u8string_view utf8_text) {
  std::string in(utf8_text.begin(), utf8_text.end());
  std::string out(in.size() * 2, '\0');
  iconv_t convert = iconv_open("EUC-JP", "UTF-8");
  char* from = in.data();
  char* to = out.data();
  size_t from_left = in.size();
  size_t to_left = out.size();
  iconv(convert, &from, &from_left, &to, &to_left);
  iconv_close(convert);
  out.resize(out.size() - to_left);
  return out;
}

TEST(EdictImport, KanaHeadWordAndEnglishKeysFindTheArticle) {
  const fs::path folder = fresh_directory("edict");
  std::ofstream(folder / "edict", std::ios::binary) << euc_jp(
      u8"　？？？ /EDICT, test header/\n"
      u8"花 [はな] /(n) (1) flower/blossom/(n) (2) (the) best/(P)/\n"
      u8"食べる [たべる] /(v1,vt) to eat/\n"
      u8"ＣＤ [シーディー] /(n) compact disc/CD/\n");
  BookTree tree;
  const BookContent content = read_edict((folder / "edict").string());
  EXPECT_EQ(content.entries.size(), 3u);
  build_book(content, tree.add_book(content.title, content.directory));
  write_book_tree(tree, folder / "tree");

  const auto lookup = [&](const std::u8string& word) {
    return run_engine({"-D" + (folder / "tree").string(), utf8_to_sjis(utf8(word))}).out;
  };
  const std::string flower = utf8_to_sjis(utf8(u8"はな【花】\n(n) (1) flower\nblossom\n(n) (2) (the) best\n"));
  EXPECT_EQ(lookup(u8"はな").find(flower), 0u);
  EXPECT_EQ(lookup(u8"花").find(flower), 0u);
  EXPECT_EQ(lookup(u8"flower").find(flower), 0u);
  EXPECT_EQ(lookup(u8"blossom").find(flower), 0u);
  EXPECT_EQ(lookup(u8"best").find(flower), 0u) << "tags are no part of a key";
  EXPECT_EQ(lookup(u8"eat").find(utf8_to_sjis(utf8(u8"たべる【食べる】\n(v1,vt) to eat\n"))), 0u);
  EXPECT_EQ(lookup(u8"しーでぃー").find(utf8_to_sjis(utf8(u8"シーディー【ＣＤ】"))), 0u);
}

}  // namespace
