#include "results/engine_books.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "platform/device_path.h"
#include "results/work_file_parser.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "testing/word_book.h"
#include "tools/body_text.h"
#include "tools/jis_text.h"

namespace {

// A one-book dictionary at "\SD\dict": each word has an article and a head
// line, under a forward index.
class LookupTest : public testing::Test {
 protected:
  void SetUp() override {
    SetDeviceFolder(DeviceFolder::kCard, card_.string());
    SetDeviceFolder(DeviceFolder::kRuntime, runtime_.string());
    BodyText body, heads;
    std::vector<IndexLeafEntry> entries;
    for (const std::u8string word : {u8"－山", u8"／川", u8"１２日", u8"山", u8"山川", u8"川", u8"日"}) {
      entries.push_back({0, utf8_to_jis(std::string(word.begin(), word.end())), body.size(),
                         heads.size(), 0});
      body.text(word).code(0x1F0A).code(0x1F03);
      heads.text(word).code(0x1F0A);
    }
    write_word_book(card_ / "dict", body, heads, entries);
  }
  void TearDown() override {
    SetDeviceFolder(DeviceFolder::kCard, "");
    SetDeviceFolder(DeviceFolder::kRuntime, "");
  }

  int32_t Lookup(const char16_t* path, const CString& word) {
    int32_t result = 0;
    capture_engine([&] { result = books_.Lookup(path, 0, word, articles_, candidates_); });
    return result;
  }

  const std::filesystem::path card_ = fresh_directory("lookup_card");
  const std::filesystem::path runtime_ = fresh_directory("lookup_runtime");
  EngineBooks books_;
  ResultItemArray articles_;
  ResultItemArray candidates_;
};

TEST_F(LookupTest, HitCandidatesAndMissingFolder) {
  std::ofstream(runtime_ / "epwingwork.dat") << "old\n";  // deleted before the engine appends
  ASSERT_EQ(Lookup(u"\\SD\\dict", u"山"), 0);
  ASSERT_EQ(articles_.size(), 1u);
  EXPECT_EQ(articles_[0].head, CString(u"山"));
  EXPECT_EQ(articles_[0].body, CString(u"山"));  // the engine's end marker is known and dropped
  ASSERT_EQ(candidates_.size(), 3u);
  EXPECT_EQ(candidates_[0].body, CString(u"山川"));
  EXPECT_EQ(candidates_[2].body, CString(u"日"));

  // Choosing a candidate is a new lookup with its key, on new lists.
  ASSERT_EQ(Lookup(u"\\SD\\dict", candidates_[0].body), 0);
  ASSERT_EQ(articles_.size(), 1u);
  EXPECT_EQ(articles_[0].head, CString(u"山川"));
  EXPECT_EQ(candidates_.size(), 2u);

  // A word the engine would take for an option or a position goes over in
  // its full-width form and finds what it names.
  const char16_t* const words[][2] = {{u"-山", u"－山"}, {u"/川", u"／川"}, {u"12日", u"１２日"}};
  for (const auto& word : words) {
    ASSERT_EQ(Lookup(u"\\SD\\dict", word[0]), 0);
    ASSERT_EQ(articles_.size(), 1u);
    EXPECT_EQ(articles_[0].head, CString(word[1]));
  }

  // A folder that has gone: the lists are emptied.
  EXPECT_EQ(Lookup(u"\\SD\\gone", u"山"), kLookupNoBook);
  EXPECT_TRUE(articles_.empty());
  EXPECT_TRUE(candidates_.empty());
}

// A book whose one article never ends: the engine is stopped at the work
// file's limit, and the article is kept, bounded, with the cut mark.
TEST_F(LookupTest, AnEndlessArticleIsCutAtTheLimit) {
  write_endless_book(card_ / "endless", 500000);

  EngineBooks books({4000, 256 * 1024});
  int32_t result = 0;
  capture_engine([&] { result = books.Lookup(u"\\SD\\endless", 0, u"あ", articles_, candidates_); });
  EXPECT_EQ(result, kLookupStopped);
  EXPECT_EQ(std::filesystem::file_size(runtime_ / "epwingwork.dat"), 256u * 1024);
  ASSERT_EQ(articles_.size(), 1u);
  const CString mark = CString(u"\r\n") + kArticleCutMark;
  EXPECT_LE(articles_[0].body.GetLength(), kArticleLimit + mark.GetLength());
  EXPECT_EQ(articles_[0].body.Right(mark.GetLength()), mark);
}

}  // namespace
