#include <algorithm>
#include <vector>

#include "app/focus_ring.h"
#include "app/frame_fixture_for_test.h"
#include "app/main_menu.h"

TEST_F(FakeBooksFrameTest, LookupScreenRingsWrapBothWays) {
  Start();
  CMainFrame& f = frame();
  const std::vector<std::vector<int32_t>> rings = {
      {FOCUS_DICT_LIST, FOCUS_EDIT_WORD, FOCUS_BTN_SEARCH, FOCUS_BTN_MANAGE, FOCUS_BTN_CLOSE},
      {FOCUS_RESULT_LIST, FOCUS_BTN_OPEN, FOCUS_CANDIDATE_LIST, FOCUS_BTN_SEARCH, FOCUS_BTN_CLOSE},
      {FOCUS_EDIT_ARTICLE, FOCUS_BTN_CLOSE}};
  for (int32_t screen = SCREEN_SEARCH; screen <= SCREEN_ARTICLE; ++screen) {
    const std::vector<int32_t>& ring = rings[screen];
    const size_t n = ring.size();
    f.screen = screen;
    f.screenFocus[screen] = ring[0];
    for (size_t i = 1; i <= n; ++i) {
      Keys({KEY_NEXT_CTRL});
      EXPECT_EQ(f.focus, ring[i % n]) << "screen " << screen;
      EXPECT_EQ(f.screenFocus[screen], f.focus);
    }
    for (size_t i = 1; i <= n; ++i) {
      Keys({KEY_PREV_CTRL});
      EXPECT_EQ(f.focus, ring[(n - i) % n]) << "screen " << screen;
    }
  }
  EXPECT_EQ(RingNeighbour(rings[1], FOCUS_EDIT_NAME, 1), FOCUS_RESULT_LIST);
  // A control to skip is passed over both ways.
  EXPECT_EQ(RingNeighbour(rings[1], FOCUS_BTN_CLOSE, 1, FOCUS_RESULT_LIST), FOCUS_BTN_OPEN);
  EXPECT_EQ(RingNeighbour(rings[1], FOCUS_BTN_OPEN, -1, FOCUS_RESULT_LIST), FOCUS_BTN_CLOSE);
}

TEST_F(FakeBooksFrameTest, SearchScreenBeepsWithoutWordOrDictionaryAndSaysWhenTheFolderHasGone) {
  Start();
  CMainFrame& f = frame();
  Keys({CK_ENTER});  // on the dictionary list: nothing, not passed on
  EXPECT_TRUE(log.empty());

  f.screenFocus[SCREEN_SEARCH] = FOCUS_EDIT_WORD;
  f.editCtrl->SetText(u"はな", 0);
  Keys({CK_ENTER});  // no dictionary at all
  EXPECT_EQ(f.searchWord, CString(u"はな"));
  f.DictionaryList.push_back({u"gone", u"\\SD\\gone", 0});
  f.editCtrl->SetText(u"", 0);
  Keys({CK_ENTER});  // no word
  EXPECT_EQ(Transcript(), "STARTED\nBEEP 32\nBEEP 32\n");
  EXPECT_FALSE(Logged("edit.PlayTts(検索開始)"));

  // A word of blanks is a word: it reaches the lookup, which finds no book.
  log.clear();
  f.ArticleList = {{u"古い", u"記事"}};
  f.editCtrl->SetText(u"  ", 0);
  Keys({CK_ENTER});
  const auto said = std::find(log.begin(), log.end(), "edit.PlayTts(検索開始)");
  EXPECT_NE(std::find(said, log.end(), "edit.PlayTts(辞書が見つかりませんでした)"), log.end());
  EXPECT_EQ(log.back(), "edit.SetFocus(検索ワード:,1)");
  EXPECT_EQ(f.screen, SCREEN_SEARCH);
  EXPECT_TRUE(f.ArticleList.empty());

  // The manage button opens the dictionary screen on its list.
  f.screenFocus[SCREEN_SEARCH] = FOCUS_BTN_MANAGE;
  Keys({CK_ENTER});
  EXPECT_EQ(f.screen, SCREEN_DICTIONARIES);
  EXPECT_EQ(f.screenFocus[SCREEN_DICTIONARIES], FOCUS_DICT_LIST);
}

// (Opening an article, its refused Enter and the way back: the lookup walk.)
TEST_F(FakeBooksFrameTest, ResultScreenRefusesWhatIsNotThereAndSaysAGoneDictionary) {
  Start();
  CMainFrame& f = frame();
  f.DictionaryList.push_back({u"gone", u"\\SD\\gone", 0});
  f.screenFocus[SCREEN_SEARCH] = FOCUS_BTN_SEARCH;
  f.screen = SCREEN_RESULTS;
  f.screenFocus[SCREEN_RESULTS] = FOCUS_BTN_OPEN;

  // No article: the button again, no beep. No candidate: a beep.
  Keys({CK_ENTER});
  EXPECT_EQ(log, CallLog{"openButton.DisplayItem(1)"});
  f.screenFocus[SCREEN_RESULTS] = FOCUS_BTN_SEARCH;
  Keys({CK_ENTER});
  EXPECT_EQ(Transcript(), "STARTED\nBEEP 32\n");

  // A candidate in a dictionary that has gone: said, the screen stays
  // with both lists empty, the word untouched.
  f.searchWord = u"いぬ";
  f.CandidateList = {{u"いぬ【犬】", u"いぬ"}};
  Keys({CK_ENTER});
  EXPECT_TRUE(Logged("edit.PlayTts(辞書が見つかりませんでした)"));
  EXPECT_EQ(f.screen, SCREEN_RESULTS);
  EXPECT_TRUE(f.CandidateList.empty());
  EXPECT_EQ(f.searchWord, CString(u"いぬ"));

  Keys({CK_EXIT});  // back to the focus the search screen had
  EXPECT_EQ(f.screen, SCREEN_SEARCH);
  EXPECT_EQ(f.focus, FOCUS_BTN_SEARCH);
}

// Each entry is chosen by its key value; the move group's entry follows
// the screen.
TEST_F(FakeBooksFrameTest, MenuEntriesFollowTheScreenAndTheirKeysChoose) {
  frame().menuCtrl = std::make_unique<CVekMenuCtrl>();
  Start();
  CMainFrame& f = frame();
  Keys({KEY_MENU, 72, 44});  // no way back to the search screen from itself
  EXPECT_EQ(f.routingMode, MODE_MENU);
  Keys({CK_EXIT});
  EXPECT_EQ(f.routingMode, MODE_SCREEN);

  // Over the article: no way to the dictionaries; closing with CK_BACK
  // sets the field up anew.
  f.screen = SCREEN_ARTICLE;
  f.screenFocus[SCREEN_ARTICLE] = FOCUS_EDIT_ARTICLE;
  f.articleText = u"本文";
  Keys({KEY_MENU, 72, 104});
  EXPECT_EQ(f.routingMode, MODE_MENU);
  log.clear();
  Keys({CK_BACK});
  EXPECT_TRUE(Logged("edit.SetText(本文,0)"));
  EXPECT_EQ(f.screen, SCREEN_ARTICLE);

  // MENU_TO_SEARCH lands on the dictionary list, whatever was remembered.
  f.screenFocus[SCREEN_SEARCH] = FOCUS_BTN_CLOSE;
  Keys({KEY_MENU, 72, 44});
  EXPECT_EQ(f.screen, SCREEN_SEARCH);
  EXPECT_EQ(f.focus, FOCUS_DICT_LIST);
  EXPECT_EQ(f.screenFocus[SCREEN_SEARCH], FOCUS_DICT_LIST);

  // MENU_TO_SETTINGS renders the settings screen once.
  log.clear();
  Keys({KEY_MENU, 74, 74});
  EXPECT_EQ(f.screen, SCREEN_SETTINGS);
  EXPECT_EQ(f.returnScreen, SCREEN_SEARCH);
  EXPECT_EQ(std::count(log.begin(), log.end(), "list.SetLabel(外字の置換:)"), 1);

  f.screen = SCREEN_SEARCH;
  Keys({KEY_MENU, 72, 104});
  EXPECT_EQ(f.screen, SCREEN_DICTIONARIES);

  // MENU_CLOSE posts WM_CLOSE and renders nothing.
  f.screen = SCREEN_RESULTS;
  f.screenFocus[SCREEN_RESULTS] = FOCUS_RESULT_LIST;
  Keys({KEY_MENU, 44});
  log.clear();
  Keys({202});
  EXPECT_TRUE(log.empty());
  Drain();
  EXPECT_TRUE(taskManager.AppEnded());
}

// A lookup stopped at the work file's limit is said, and shows what came.
// (Words found, candidates looked up by their keys and articles opened:
// the scripted runs.)
TEST_F(FakeBooksFrameTest, AStoppedLookupIsSaidAndShowsWhatCame) {
  FakeBook book{u"辞書"};
  book.words[u"あ"] = {{{u"ああ", u"ああああ"}}, {}, kLookupStopped};
  books.SetCatalog(u"\\SD\\epwing\\plus", {book});
  Start();
  CMainFrame& f = frame();
  f.screenFocus[SCREEN_SEARCH] = FOCUS_EDIT_WORD;
  f.editCtrl->SetText(u"あ", 0);
  Keys({CK_ENTER});
  EXPECT_TRUE(Logged("edit.PlayTts(検索を途中で打ち切りました)"));
  EXPECT_EQ(f.screen, SCREEN_RESULTS);
  EXPECT_EQ(f.ArticleList.size(), 1u);
}
