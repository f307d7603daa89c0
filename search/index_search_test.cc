#include "search/index_search.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "engine/engine_state.h"
#include "engine/file_access.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "testing/utf8_literal.h"
#include "tools/body_text.h"
#include "tools/book_writer.h"
#include "tools/index_tree_writer.h"
#include "tools/jis_text.h"

namespace {

// A book whose words each have an article ("word", a line end, the end
// code) in the body text and a head line in a list of head lines, in the
// order given; indexes over them are added by the test.
class SearchBook {
 public:
  SearchBook(const std::string& name, const std::vector<std::u8string>& words)
      : root_(fresh_directory(name)), book_(tree_.add_book(utf8(u8"辞書"), "JITEN")) {
    BodyText body;
    BodyText heads;
    for (const std::u8string& word : words) {
      words_.push_back({utf8_to_sjis(std::string(word.begin(), word.end())), body.size(), 0,
                        heads.size(), 0});
      body.text(word).code(0x1F0A).code(0x1F03);
      heads.text(word).code(0x1F0A);
      words_.back().text_end = body.size();
      words_.back().head_end = heads.size();
    }
    heads.code(0x1F03);
    heads_end_ = heads.size();
    const int32_t body_base = (book_.text.add_area(0x00, body.data()) - 1) * 2048;
    const int32_t heads_base = (book_.text.add_area(0x05, heads.data()) - 1) * 2048;
    heads_end_ += heads_base;
    for (Word& word : words_) {
      word.text += body_base;
      word.text_end += body_base;
      word.head += heads_base;
      word.head_end += heads_base;
    }
  }

  // A leaf entry of word `i` under `key` (UTF-8, stored as JIS codes).
  IndexLeafEntry entry(int type, const std::u8string& key, size_t i, int members = 0) const {
    return {type, utf8_to_jis(std::string(key.begin(), key.end())), words_[i].text, words_[i].head,
            members};
  }
  void add_index(int identifier, const std::vector<IndexLeafEntry>& entries, const IndexTreeShape& shape) {
    book_.text.add_area(identifier, index_tree(entries, book_.text.next_page(), shape));
  }
  int32_t add_raw_index(int identifier, const std::string& pages) {
    return book_.text.add_area(identifier, pages);
  }
  int32_t next_page() const { return book_.text.next_page(); }

  // tomeview -D<book> -L3 args...
  EngineRun run(std::vector<std::string> args) {
    tree_.write(root_);
    args.insert(args.begin(), {"-D" + root_.string(), "-L3"});
    return run_engine(args);
  }

  // What an exact hit writes.
  std::string article(size_t i) const {
    return words_[i].sjis + "\n\n<次項目:" + std::to_string(words_[i].text_end) + ">\n\n";
  }
  // The list behind a miss, with -L3: three head lines from word i on.
  std::string candidates(size_t i) const {
    std::string list = "<項目一覧>\n";
    size_t last = i;
    for (; last < words_.size() && last < i + 3; ++last) list += words_[last].sjis + "\n";
    int32_t next = last == i + 3 ? words_[last - 1].head_end : heads_end_;
    return list + "\n<次項目:" + std::to_string(next) + ">\n\n";
  }
  // A group member's line in a group search.
  std::string member(size_t i) const {
    return "<" + words_[i].sjis + "|" + std::to_string(words_[i].text) + ">\n";
  }

 private:
  struct Word {
    std::string sjis;
    int32_t text, text_end, head, head_end;
  };
  std::filesystem::path root_;
  BookTree tree_;
  Book& book_;
  std::vector<Word> words_;
  int32_t heads_end_ = 0;
};

// Words of a plain forward index, in index order (JIS: 山 3B33, 川 406E,
// 日 467C, 本 4B5C, 夕 4D3C); 山 twice.
SearchBook plain_book(const std::string& name) {
  const std::vector<std::u8string> words = {u8"山", u8"山", u8"山川", u8"川",
                                            u8"日", u8"日本", u8"本", u8"夕"};
  SearchBook book(name, words);
  std::vector<IndexLeafEntry> entries;
  for (size_t i = 0; i < words.size(); ++i) entries.push_back(book.entry(0, words[i], i));
  // Two entries a leaf, two children a branch: three levels of pages.
  book.add_index(0x91, entries, {LeafLayout::kPlain, 2, 2, 0});
  return book;
}

TEST(IndexSearch, PlainTreeHitsAndCandidateLists) {
  SearchBook book = plain_book("search_plain");
  EXPECT_EQ(book.run({"山"}).out, book.article(0) + book.article(1) + book.candidates(2));
  // 川 ends its leaf: the next child's first entry gives the list.
  EXPECT_EQ(book.run({"川"}).out, book.article(3) + book.candidates(4));
  // A key that is a prefix of an entry sorts below it.
  EXPECT_EQ(book.run({"日"}).out, book.article(4) + book.candidates(5));
  EXPECT_EQ(book.run({"一"}).out, book.candidates(0));  // 一 (306C) is below every entry
  // The last entry: the walk goes on over the pages behind the root, and
  // the article met again is not shown twice.
  EXPECT_EQ(book.run({"夕"}).out, book.article(7));
  EXPECT_EQ(book.run({"碗"}).out, "");  // above everything
  // -I looks for 0xA0, then 0xA1: the book has neither.
  EXPECT_EQ(book.run({"-I", "山"}).out, "error 24.\n");
}

TEST(IndexSearch, SynonymModeAndKeyLength) {
  SearchBook book("search_synonym", {u8"はな", u8"はなし", u8"はなび"});
  std::vector<IndexLeafEntry> entries = {book.entry(0, u8"はな", 0), book.entry(0, u8"はなし", 1),
                                         book.entry(0, u8"はなび", 2)};
  book.add_index(0xA0, entries, {LeafLayout::kPlain, 2, 2, 0});
  book.add_index(0x90, entries, {LeafLayout::kPlain, 2, 2, 0});
  EXPECT_EQ(book.run({"-I", "はな"}).out, book.article(0));
  EXPECT_EQ(book.run({"-I", "はに"}).out, "");
  // key_length 2: はなし searches はな, and はなし stands in the list.
  EXPECT_EQ(book.run({"-Z2", "はなし"}).out, book.article(0) + book.candidates(1));
  EXPECT_EQ(book.run({"はなし"}).out, book.article(1) + book.candidates(2));
}

TEST(IndexSearch, FoldedMatchesInAnOrdinaryGroupIndex) {
  SearchBook book("search_folded", {u8"はは", u8"ばば", u8"ぱぱ", u8"はひ", u8"ハハ"});
  // The group はは holds the spellings that fold to it; はひ follows.
  book.add_index(0x90,
                 {book.entry(0x80, u8"はは", 0, 3), book.entry(0xC0, u8"はは", 0),
                  book.entry(0xC0, u8"ばば", 1), book.entry(0xC0, u8"ぱぱ", 2),
                  book.entry(0x00, u8"はひ", 3)},
                 {LeafLayout::kGroup, 4, 2, 0});
  // Only the member spelled はは prints; ばば sorts above it and ends the search.
  EXPECT_EQ(book.run({"はは"}).out, book.article(0) + book.candidates(1));
  EXPECT_EQ(book.run({"ばば"}).out, book.article(1) + book.candidates(2));
  // パパ folds to はは, but members compare by their spelling: ぱぱ sorts
  // below パパ, and はひ (the next single entry) is above the folded key.
  EXPECT_EQ(book.run({"パパ"}).out, book.candidates(3));
  // Explicit -K0x90: not folded, and ばば (2450) sorts above はひ (244F 2452).
  EXPECT_EQ(book.run({"-K0x90", "ばば"}).out, "");
}

TEST(IndexSearch, IndexHiraganaAndFallback) {
  SearchBook book("search_hiragana", {u8"ハハ", u8"ハヒ"});
  // Only a generic forward index, with katakana keys.
  book.add_index(0x91, {book.entry(0, u8"ハハ", 0), book.entry(0, u8"ハヒ", 1)},
                 {LeafLayout::kPlain, 4, 2, 0});
  // はは chooses 0x90, falls back on 0x91 and is not folded.
  EXPECT_EQ(book.run({"はは"}).out, book.candidates(0));
  EXPECT_EQ(book.run({"-S0x100", "はは"}).out, book.article(0) + book.candidates(1));
  EXPECT_EQ(book.run({"-K0x90", "ハハ"}).out, book.article(0) + book.candidates(1));
  EXPECT_EQ(book.run({"-R", "はは"}).out, "error 24.\n");
}

TEST(IndexSearch, GroupSearchInBothLayouts) {
  std::vector<std::u8string> words = {u8"ああ", u8"いち", u8"いぬ", u8"いか", u8"いし", u8"いと", u8"うし"};
  SearchBook book("search_group", words);
  const std::vector<IndexLeafEntry> entries = {
      book.entry(0x00, u8"ああ", 0), book.entry(0x80, u8"い", 1, 5), book.entry(0xC0, u8"", 1),
      book.entry(0xC0, u8"", 2),     book.entry(0xC0, u8"", 3),      book.entry(0xC0, u8"", 4),
      book.entry(0xC0, u8"", 5),     book.entry(0x80, u8"う", 6, 0), book.entry(0xC0, u8"", 6)};
  // Even layout (0x80): the members' heads follow the group head's HEAD.
  book.add_index(0x80, entries, {LeafLayout::kGroupSearchEven, 3, 2, 0});
  // Odd layout (0x81): members bring their own heads; the head い ends its page.
  book.add_index(0x81, entries, {LeafLayout::kGroupSearchOdd, 2, 2, 0});
  std::string group_i = "5個あります\n" + book.member(1) + book.member(2) + book.member(3) +
                        book.member(4) + book.member(5);
  EXPECT_EQ(book.run({"-J", "い"}).out, group_i);
  EXPECT_EQ(book.run({"-K0x81", "い"}).out, group_i);
  EXPECT_EQ(book.run({"-J", "う"}).out, "たくさんあります\n" + book.member(6));
  EXPECT_EQ(book.run({"-K0x81", "う"}).out, "たくさんあります\n" + book.member(6));
  // A group head above the key ends the search without a message.
  EXPECT_EQ(book.run({"-J", "あい"}).out, "");
  // The single entry prints as in any search.
  EXPECT_EQ(book.run({"-J", "ああ"}).out, book.article(0));
}

TEST(IndexSearch, DamagedPagesStopTheWalk) {
  SearchBook book("search_damaged", {u8"あ"});
  const std::string key = utf8_to_jis(utf8(u8"あ"));
  // 0x92: a branch page whose child is itself.
  int32_t loop = book.next_page();
  book.add_raw_index(0x92, branch_page({{key, loop}}, 2));
  // 0x93: a branch over a leaf with an entry of type 0x55.
  int32_t bad_entry = book.next_page();
  book.add_raw_index(0x93, branch_page({{key, bad_entry + 1}}, 2) +
                               leaf_page({{0x55, key, 0, 0, 0}}, LeafLayout::kGroup));
  // 0x94: a page that is no index page.
  int32_t bad_page = book.add_raw_index(0x94, std::string(1, '\xF0'));

  EXPECT_EQ(book.run({"-K0x92", "あ"}).out, "");
  // The leaf stops once below the branch and once more as the page behind it.
  std::string stop = "\nStop on page " + std::to_string(bad_entry + 1) + "(0x" +
                     std::to_string(bad_entry * 2048 + 4) + "), 55\n上のメッセージと共に\nerror 22.\n";
  EXPECT_EQ(book.run({"-K0x93", "あ"}).out, stop + stop);
  EXPECT_EQ(book.run({"-K0x94", "あ"}).out,
            "\nStop at F0 index, page " + std::to_string(bad_page) + "\n上のメッセージと共に\nerror 23.\n");
}

TEST(IndexSearch, IndexDumpAndTextScan) {
  SearchBook book("search_dump", {u8"はな"});
  const int32_t root = book.next_page();
  book.add_index(0x91, {book.entry(0, u8"はな", 0)}, {LeafLayout::kPlain, 4, 2, 0});
  const std::string key = "はな";  // Shift-JIS, as cdshowkey writes it
  EngineRun dump = book.run({"-Q", "-A"});
  const std::string pages = "Page " + std::to_string(root) + ", i=00, length=4, num=1\n" + key + " " +
                            std::to_string(root + 1) + "\nPage " + std::to_string(root + 1) +
                            ", i=80, num=1\n" + key + "-> 2048,-> 4096\n";
  EXPECT_EQ(dump.out.substr(0, pages.size()), pages);
  EXPECT_NE(dump.out.find("Index Pages=-1\n"), std::string::npos);

  // The body holds 0x1F0A and 0x1F03 only, both known: nothing is asked.
  EngineRun scan = book.run({"-T"});
  EXPECT_EQ(scan.out, "ID=00, from 2(1 pages), flag=0\n1F03: 0 (2054)\n1F0A: 0 (2052)\n");
}

TEST(IndexSearch, KeysReadAcrossFileEnds) {
  const std::filesystem::path root = fresh_directory("KeyAcross");
  snprintf(engine.drive_path, kPathSize, "%s/", root.c_str());
  write_book_file(root, "a", std::string(2046, '\0') + "AB");
  write_book_file(root, "b", "CD");
  write_book_file(root, "files.tbl", file_definition_table({{0, "a"}, {1, "b"}}));
  engine.file_table = load_file_table((root / "files.tbl").c_str());
  const EngineRun run = capture_engine([] {
    cdseek(2046, 0);
    EXPECT_EQ(cdkeycmp(4, "ABCD"), 0);
    EXPECT_EQ(cdtell(), 2050);
    EXPECT_EQ(cdkeycmp(1, ""), -1);  // nothing behind the last file: reads as 0
  });
  EXPECT_EQ(run.out, "データ読み込みに失敗しました(BYTE:pos=2050)\nerror 9.\n");
  engine.file_table = load_file_table(nullptr);
  engine.drive_path[0] = '\0';
}

}  // namespace
