#include "results/lookup.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <fstream>
#include <string>
#include <vector>

#include "platform/device_path.h"
#include "testing/body_text.h"
#include "testing/book_writer.h"
#include "testing/engine_runner.h"
#include "testing/index_tree_writer.h"
#include "testing/jis_text.h"
#include "testing/temp_tree.h"

namespace {

// A one-book dictionary at "\SD\dict" whose words each have an article
// (the word, a line end, the end code) and a head line, under a forward
// index of kanji keys.
class LookupTest : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : {"CDDRIVE", "CDFILE", "CDDEBUG", "CDBOOK", "CDLINES", "CDFILES"})
      unsetenv(name);
    card_ = fresh_directory("lookup_card");
    runtime_ = fresh_directory("lookup_runtime");
    SetDeviceFolder(DeviceFolder::kCard, card_.string());
    SetDeviceFolder(DeviceFolder::kRuntime, runtime_.string());
    WriteBook({"山", "山川", "川", "日"});
  }
  void TearDown() override {
    SetDeviceFolder(DeviceFolder::kCard, "");
    SetDeviceFolder(DeviceFolder::kRuntime, "");
  }

  void WriteBook(const std::vector<std::string>& words) {
    BookTree tree(BookType::kEpwing);
    Book& book = tree.add_book("辞書", "JITEN");
    BodyText body;
    BodyText heads;
    std::vector<int32_t> texts, headLines;
    for (const std::string& word : words) {
      std::u8string utf8(word.begin(), word.end());
      texts.push_back(body.size());
      headLines.push_back(heads.size());
      body.text(utf8).code(0x1F0A).code(0x1F03);
      heads.text(utf8).code(0x1F0A);
    }
    heads.code(0x1F03);
    int32_t bodyBase = (book.text.add_area(0x00, body.data()) - 1) * 2048;
    int32_t headsBase = (book.text.add_area(0x05, heads.data()) - 1) * 2048;
    std::vector<IndexLeafEntry> entries;
    for (size_t i = 0; i < words.size(); ++i)
      entries.push_back({0, utf8_to_jis(words[i]), bodyBase + texts[i], headsBase + headLines[i], 0});
    book.text.add_area(0x91, index_tree(entries, book.text.next_page()));
    tree.write(card_ / "dict");
  }

  int32_t Lookup(const CString& path, const CString& word) {
    int32_t result = 0;
    capture_engine([&] { result = LookupWord(path, 0, word, articles_, candidates_, gaiji_); });
    return result;
  }

  std::filesystem::path card_;
  std::filesystem::path runtime_;
  ResultItemArray articles_;
  ResultItemArray candidates_;
  GaijiMappingArray gaiji_;
};

TEST_F(LookupTest, HitCandidatesAndGaijiTable) {
  std::ofstream(card_ / "dict" / "BrailleGaiji.txt") << "A121=x\n";
  // A stale work file: the lookup deletes it before the engine appends.
  std::ofstream(runtime_ / "epwingwork.dat") << "old\n";
  ASSERT_EQ(Lookup(u"\\SD\\dict", u"山"), 0);
  ASSERT_EQ(articles_.size(), 1u);
  EXPECT_EQ(articles_[0].head, CString(u"山"));
  EXPECT_EQ(articles_[0].body, CString(u"山"));
  ASSERT_EQ(candidates_.size(), 3u);
  EXPECT_EQ(candidates_[0].head, CString(u"山川"));
  EXPECT_EQ(candidates_[0].body, CString(u"山川"));
  EXPECT_EQ(candidates_[2].body, CString(u"日"));
  ASSERT_EQ(gaiji_.size(), 1u);
  EXPECT_EQ(gaiji_[0].codeText, CString(u"[A121]"));
  EXPECT_TRUE(std::filesystem::exists(runtime_ / "epwingwork.dat"));  // left behind

  // Choosing a candidate is a new lookup with its key; the lists are new.
  ASSERT_EQ(Lookup(u"\\SD\\dict", candidates_[0].body), 0);
  ASSERT_EQ(articles_.size(), 1u);
  EXPECT_EQ(articles_[0].head, CString(u"山川"));
  EXPECT_EQ(candidates_.size(), 2u);
}

TEST_F(LookupTest, DictionaryThatHasGone) {
  gaiji_ = {{u"[A121]", u"kept"}};
  articles_ = {{u"old", u"old"}};
  candidates_ = {{u"old", u"old"}};
  std::ofstream(runtime_ / "epwingwork.dat") << "untouched";
  EXPECT_EQ(Lookup(u"\\SD\\gone", u"山"), -1);
  EXPECT_TRUE(articles_.empty());
  EXPECT_TRUE(candidates_.empty());
  ASSERT_EQ(gaiji_.size(), 1u);
  EXPECT_EQ(gaiji_[0].replacement, CString(u"kept"));
  std::ifstream work(runtime_ / "epwingwork.dat");
  std::string text;
  work >> text;
  EXPECT_EQ(text, "untouched");
}

}  // namespace
