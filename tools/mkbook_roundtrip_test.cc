// Books built from small sources, read back through the engine.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>

#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "testing/utf8_literal.h"
#include "tools/book_builder.h"
#include "tools/jis_text.h"
#include "tools/source_reader.h"
#include "tools/tree_output.h"

namespace {

namespace fs = std::filesystem;

const char8_t kSource[] = u8R"(; two books in one catalog
@book JITEN 試験辞典
@entry 花
@kana はな
@alpha flower
{b:植物}の花。ab･so･lute /flau@r/
{m:2}{see:鼻|はな（鼻）}も見よ。{g:A121}
@entry 鼻
@kana はな
顔の中央にある器官。
@entry バナナ
@kana ばなな
@alpha banana
果物。
@entry DNA
遺伝子。
@gaiji A121
#...............
................
................
................
................
................
................
................
................
................
................
................
................
................
................
...............#
@menu
{see:バナナ}
@notice
著作権表示の本文。

@book SUB 小辞典
@entry あめ
雨。
)";

// Writes `source` into a fresh folder and builds its books into `tree`
// there; gives the tree's path.
fs::path build(const std::u8string& source, const std::string& name) {
  const fs::path folder = fresh_directory(name);
  const fs::path file = folder / "book.txt";
  std::ofstream(file, std::ios::binary) << std::string(source.begin(), source.end());
  BookTree tree;
  for (const BookContent& content : read_source(file.string())) {
    build_book(content, tree.add_book(content.title, content.directory));
  }
  write_book_tree(tree, folder / "tree");
  return folder / "tree";
}

// What tomeview prints for `args` (UTF-8 in, UTF-8 out: keys go to the
// engine in Shift-JIS).
std::string lookup(const fs::path& tree, std::vector<std::string> args) {
  std::vector<std::string> full{"-D" + tree.string()};
  for (const std::string& arg : args) full.push_back(utf8_to_sjis(arg));
  return run_engine(full).out;
}

std::string sjis(const char8_t* text) { return utf8_to_sjis(utf8(text)); }

TEST(MkbookRoundTrip, KeysOfEveryIndexFindTheirArticlesInSourceOrder) {
  const fs::path tree = build(kSource, "lookups");
  const std::string hana = lookup(tree, {utf8(u8"はな")});
  const size_t flower = hana.find(sjis(u8"はな【花】\n植物の花。ab･so･lute /flau@r/\n"));
  const size_t nose = hana.find(sjis(u8"はな【鼻】\n顔の中央にある器官。\n"));
  ASSERT_NE(flower, std::string::npos) << hana;
  EXPECT_LT(flower, nose);
  EXPECT_NE(hana.find(sjis(u8"<項目一覧>\nばなな【バナナ】\n")), std::string::npos) << hana;

  EXPECT_EQ(lookup(tree, {utf8(u8"鼻")}).find(sjis(u8"はな【鼻】")), 0u);
  EXPECT_EQ(lookup(tree, {"FLOWER"}), lookup(tree, {"flower"}));
  EXPECT_EQ(lookup(tree, {"flower"}).find(sjis(u8"はな【花】")), 0u);
  EXPECT_EQ(lookup(tree, {"dna"}).find(sjis(u8"DNA\n遺伝子。")), 0u);
  // Kana keys are folded: a typed katakana or voiced spelling meets them.
  EXPECT_EQ(lookup(tree, {utf8(u8"ハナ")}), hana);
  EXPECT_EQ(lookup(tree, {utf8(u8"バナナ")}).find(sjis(u8"ばなな【バナナ】")), 0u);
  // Backward indexes hold the keys reversed: -R finds by the word's end.
  EXPECT_EQ(lookup(tree, {"-R", utf8(u8"なな")}).find(sjis(u8"<項目一覧>\nばなな【バナナ】")), 0u);
  EXPECT_EQ(lookup(tree, {"-R", "ana"}).find(sjis(u8"<項目一覧>\nbanana ― ばなな【バナナ】")), 0u);
  // A prefix lists the head lines that follow it, with the alphabet key in front.
  EXPECT_EQ(lookup(tree, {"ba"}).find(sjis(u8"<項目一覧>\nbanana ― ばなな【バナナ】\n")), 0u);
  // The second book of the catalog.
  EXPECT_EQ(lookup(tree, {"-B1", utf8(u8"あめ")}).find(sjis(u8"あめ\n雨。")), 0u);
}

TEST(MkbookRoundTrip, LinksMarginsGaijiMenuAndNotice) {
  const fs::path tree = build(kSource, "forms");
  const std::string hana = lookup(tree, {utf8(u8"花")});
  std::smatch link;
  ASSERT_TRUE(std::regex_search(hana, link, std::regex("\\|([0-9]+)>"))) << hana;
  EXPECT_NE(hana.find(sjis(u8"\n  <→はな（鼻）|")), std::string::npos) << "margin of two";
  EXPECT_NE(hana.find("[A121]\n"), std::string::npos);
  EXPECT_EQ(lookup(tree, {link[1].str()}).find(sjis(u8"はな【鼻】\n")), 0u);

  const std::string menu = lookup(tree, {"-M"});
  ASSERT_TRUE(std::regex_search(menu, link, std::regex("\\|([0-9]+)>"))) << menu;
  EXPECT_EQ(lookup(tree, {link[1].str()}).find(sjis(u8"ばなな【バナナ】\n")), 0u);
  EXPECT_EQ(lookup(tree, {"-U"}).find(sjis(u8"著作権表示の本文。\n")), 0u);

  const std::string font = lookup(tree, {"-#"});
  EXPECT_NE(font.find("* GAIJI width=16, hight=16, code=A121-, 1 chars"), std::string::npos) << font;
  EXPECT_NE(font.find("\n*A121\t\nO       \n"), std::string::npos) << font;
}

}  // namespace
