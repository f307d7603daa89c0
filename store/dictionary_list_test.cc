#include "store/dictionary_list.h"

#include <gtest/gtest.h>

TEST(DictionaryList, AppendAndDeleteKeepTheRules) {
  DictionaryEntryArray list;
  AppendDictionary(list, {u"built-in", u"\\SD\\epwing\\plus", 0});
  DictionaryEntry registered{u"辞書", u"\\SD\\epwing\\mine", 3};
  EXPECT_EQ(AppendDictionary(list, registered), 1);
  EXPECT_EQ(AppendDictionary(list, registered), 2);  // duplicates are kept
  EXPECT_EQ(list[2].bookNumber, 3);

  int32_t selection = 0;
  EXPECT_FALSE(DeleteRegisteredDictionary(list, 1, 0, selection));  // built-in
  EXPECT_FALSE(DeleteRegisteredDictionary(list, 1, 3, selection));
  EXPECT_EQ(list.size(), 3u);
  selection = 2;
  EXPECT_TRUE(DeleteRegisteredDictionary(list, 1, 2, selection));
  EXPECT_EQ(selection, 1);  // onto the new last entry
  EXPECT_EQ(list[1].bookNumber, 3);
}
