#include "store/book_discovery.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "platform/device_path.h"

namespace {

// What the recording stand-in of engine_catalog holds and saw: the catalog
// text of each host folder, and the drive and capacity of each call.
std::map<std::string, std::string> catalogTexts;
std::vector<std::pair<std::string, int32_t>> catalogCalls;

int32_t RecordingCatalog(const char* drive, char* buffer, int32_t size) {
  catalogCalls.emplace_back(drive, size);
  const std::string& text = catalogTexts[drive];
  int32_t needed = static_cast<int32_t>(text.size()) + 1;
  if (size > 0) std::memset(buffer, 0, static_cast<size_t>(size));
  if (needed <= size) std::memcpy(buffer, text.data(), text.size());
  return needed;
}

class BookDiscoveryTest : public testing::Test {
 protected:
  void SetUp() override {
    SetDeviceFolder(DeviceFolder::kCard, "/nonexistent/card");
    catalogTexts.clear();
    catalogCalls.clear();
  }
  void TearDown() override { SetDeviceFolder(DeviceFolder::kCard, ""); }
  void Discover() {
    list_.clear();
    catalogCalls.clear();
    DiscoverBooks(list_, builtinCount_, RecordingCatalog);
  }

  const std::string plus_ = "/nonexistent/card/epwing/plus";
  const std::string wadai_ = "/nonexistent/card/epwing/wadai";
  DictionaryEntryArray list_;
  int32_t builtinCount_ = -1;
};

TEST_F(BookDiscoveryTest, FoldersInOrderTitlesJoinedOrFolderName) {
  Discover();
  EXPECT_TRUE(list_.empty());
  EXPECT_EQ(builtinCount_, 0);
  ASSERT_EQ(catalogCalls.size(), 2u);
  EXPECT_EQ(catalogCalls[0].first, plus_);  // the engine gets host paths
  EXPECT_EQ(catalogCalls[1].first, wadai_);

  catalogTexts[wadai_] = " \n\n";
  Discover();
  ASSERT_EQ(list_.size(), 1u);
  EXPECT_EQ(builtinCount_, 1);
  EXPECT_EQ(list_[0].title, CString(u"wadai"));  // only empty titles
  EXPECT_EQ(list_[0].path, CString(u"\\SD\\epwing\\wadai"));

  catalogTexts[plus_] = "A  \r\n\n   \nB\nunfinished";
  Discover();
  ASSERT_EQ(list_.size(), 2u);
  EXPECT_EQ(builtinCount_, 2);
  EXPECT_EQ(list_[0].title, CString(u"A/B"));
  EXPECT_EQ(list_[0].bookNumber, 0);
  EXPECT_EQ(list_[0].path, CString(u"\\SD\\epwing\\plus"));

  // A title beyond the work area is cut before a character it would split.
  std::string longTitle = "xy";
  for (int i = 0; i < 300; ++i) longTitle += "\x82\xa0";  // あ
  catalogTexts[plus_] = longTitle + "\n";
  Discover();
  EXPECT_EQ(list_[0].title, CString(u"xy") + CString(u'あ', 254));
}

TEST_F(BookDiscoveryTest, BufferGrowsOnceAndServesTheNextFolder) {
  catalogTexts[plus_] = std::string(510, 'a') + "\n";  // 511 bytes: fits with its NUL
  Discover();
  ASSERT_EQ(catalogCalls.size(), 2u);
  EXPECT_EQ(catalogCalls[1].second, 512);
  EXPECT_EQ(list_[0].title.GetLength(), 510);

  catalogTexts[plus_] = std::string(511, 'a') + "\n";  // one byte more
  catalogTexts[wadai_] = "w\n";
  Discover();
  ASSERT_EQ(catalogCalls.size(), 3u);
  EXPECT_EQ(catalogCalls[1].second, 513);
  EXPECT_EQ(catalogCalls[2].second, 513);  // not shrunk for wadai
  EXPECT_EQ(list_[0].title.GetLength(), 511);
  EXPECT_EQ(list_[1].title, CString(u"w"));
}

}  // namespace
