#include "store/book_discovery.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "platform/device_path.h"
#include "testing/book_writer.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"

namespace {

// One call of the recording catalog.
struct CatalogCallRecord {
  std::string drive;  // the host path the engine was given
  int32_t size;       // the capacity it was given
};

// The catalog text each host folder holds, and the calls made, for the
// recording stand-in of engine_catalog.
std::map<std::string, std::string> catalogTexts;
std::vector<CatalogCallRecord> catalogCalls;

// Behaves as engine_catalog does: the text with its NUL when it fits, an
// empty buffer when not, the needed size in both cases.
int32_t RecordingCatalog(const char* drive, char* buffer, int32_t size) {
  catalogCalls.push_back({drive, size});
  const std::string& text = catalogTexts[drive];
  int32_t needed = static_cast<int32_t>(text.size()) + 1;
  if (size > 0) std::memset(buffer, 0, static_cast<size_t>(size));
  if (needed <= size) std::memcpy(buffer, text.data(), text.size());
  return needed;
}

class BookDiscoveryTest : public testing::Test {
 protected:
  void SetUp() override {
    card_ = fresh_directory("book_discovery_card");
    SetDeviceFolder(DeviceFolder::kCard, card_.string());
    catalogTexts.clear();
    catalogCalls.clear();
  }
  void TearDown() override { SetDeviceFolder(DeviceFolder::kCard, ""); }

  std::string Plus() const { return card_.string() + "/epwing/plus"; }
  std::string Wadai() const { return card_.string() + "/epwing/wadai"; }
  void Discover() { DiscoverBooks(list_, builtinCount_, RecordingCatalog); }

  std::filesystem::path card_;
  DictionaryEntryArray list_;
  int32_t builtinCount_ = -1;
};

TEST_F(BookDiscoveryTest, FoldersPresentAndAbsent) {
  Discover();
  EXPECT_TRUE(list_.empty());
  EXPECT_EQ(builtinCount_, 0);
  ASSERT_EQ(catalogCalls.size(), 2u);
  EXPECT_EQ(catalogCalls[0].drive, Plus());  // the engine gets host paths, plus first
  EXPECT_EQ(catalogCalls[1].drive, Wadai());

  catalogTexts[Wadai()] = "W\n";
  Discover();
  ASSERT_EQ(list_.size(), 1u);
  EXPECT_EQ(builtinCount_, 1);
  EXPECT_EQ(list_[0].path, CString(u"\\SD\\epwing\\wadai"));

  list_.clear();
  catalogTexts[Plus()] = "P\n";
  Discover();
  ASSERT_EQ(list_.size(), 2u);
  EXPECT_EQ(builtinCount_, 2);
  EXPECT_EQ(list_[0].path, CString(u"\\SD\\epwing\\plus"));
  EXPECT_EQ(list_[1].path, CString(u"\\SD\\epwing\\wadai"));
}

TEST_F(BookDiscoveryTest, TitlesJoinedTrimmedOrFolderName) {
  catalogTexts[Plus()] = "A  \r\n\n   \nB\nunfinished";
  catalogTexts[Wadai()] = " \n\n";
  Discover();
  ASSERT_EQ(list_.size(), 2u);
  EXPECT_EQ(list_[0].title, CString(u"A/B"));
  EXPECT_EQ(list_[0].bookNumber, 0);
  EXPECT_EQ(list_[1].title, CString(u"wadai"));  // only empty titles

  // A piece beyond the work area is cut before a character it would split.
  list_.clear();
  std::string longTitle = "xy";
  for (int i = 0; i < 300; ++i) longTitle += "\x82\xa0";  // あ
  catalogTexts[Plus()] = longTitle + "\n";
  Discover();
  EXPECT_EQ(list_[0].title, CString(u"xy") + CString(u'あ', 254));
}

TEST_F(BookDiscoveryTest, BufferGrowsOnceAndServesTheNextFolder) {
  catalogTexts[Plus()] = std::string(510, 'a') + "\n";  // 511 bytes: fits with its NUL
  Discover();
  ASSERT_EQ(catalogCalls.size(), 2u);
  EXPECT_EQ(catalogCalls[0].size, 512);
  EXPECT_EQ(catalogCalls[1].size, 512);
  EXPECT_EQ(list_[0].title.GetLength(), 510);

  list_.clear();
  catalogCalls.clear();
  catalogTexts[Plus()] = std::string(511, 'a') + "\n";  // one byte more
  catalogTexts[Wadai()] = "w\n";
  Discover();
  ASSERT_EQ(catalogCalls.size(), 3u);
  EXPECT_EQ(catalogCalls[0].size, 512);
  EXPECT_EQ(catalogCalls[1].size, 513);
  EXPECT_EQ(catalogCalls[2].size, 513);  // not shrunk for wadai
  EXPECT_EQ(list_[0].title.GetLength(), 511);
  EXPECT_EQ(list_[1].title, CString(u"w"));
}

TEST_F(BookDiscoveryTest, RealCatalogOfTwoBooks) {
  BookTree tree(BookType::kEpwing);
  tree.add_book("辞書", "JITEN");
  tree.add_book("百科", "HYAKKA");
  tree.write(Plus());
  capture_engine([&] { DiscoverBooks(list_, builtinCount_); });
  ASSERT_EQ(list_.size(), 1u);
  EXPECT_EQ(builtinCount_, 1);
  EXPECT_EQ(list_[0].title, CString(u"辞書/百科"));
  EXPECT_EQ(list_[0].path, CString(u"\\SD\\epwing\\plus"));
}

}  // namespace
