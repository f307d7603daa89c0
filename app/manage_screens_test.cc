// The management and settings screens on recording controls and fake
// books: what the scripted runs on the demo card can't reach.
#include <deque>
#include <filesystem>
#include <string>
#include <vector>

#include "app/frame_fixture_for_test.h"

namespace {

class ManageScreensTest : public FakeBooksFrameTest {
 protected:
  // "追加" on the dictionary screen, the chooser answered with `folder`.
  void Add(const char16_t* folder) {
    frame().screen = SCREEN_DICTIONARIES;
    frame().screenFocus[SCREEN_DICTIONARIES] = FOCUS_BTN_ADD;
    std::deque<CString> answers{CString(folder)};
    SetMessageSource([&]() {
      if (answers.empty()) return false;
      taskManager.AnswerFolderChooser(answers.front());
      answers.pop_front();
      return true;
    });
    taskManager.DeliverKey(CK_ENTER);
    RunMessageLoop();
    SetMessageSource(nullptr);
  }
  // The register screen on two books of a folder, on the book list.
  void OnTwoBooks() {
    for (const char16_t* title : {u"一の巻", u"二の巻"}) {
      frame().BookCandidateList.push_back({title, u"\\SD\\two", 0});
      frame().BookTitleList.push_back(title);
    }
    frame().screen = SCREEN_REGISTER;
    frame().screenFocus[SCREEN_REGISTER] = FOCUS_BOOK_LIST;
    frame().focus = FOCUS_BOOK_LIST;
    frame().RenderFocus();
  }
};

}  // namespace

TEST_F(ManageScreensTest, AddingReadsTheWholeCatalogAndNumbersBooksByTheirLine) {
  // Ten books; the second and the fourth have no forward index. The
  // folders are on the card, the books only in memory.
  const char16_t* numbers[] = {u"一", u"二", u"三", u"四", u"五", u"六", u"七", u"八", u"九", u"十"};
  std::vector<FakeBook> many;
  for (int i = 0; i < 10; ++i)
    many.push_back({CString(u"辞書その") + numbers[i] + u"番目の巻", i != 1 && i != 3});
  books.SetCatalog(u"\\SD\\many", many);
  books.SetCatalog(u"\\SD\\backward", {{u"逆引き", false}});
  for (const char* folder : {"many", "backward", "empty"})
    std::filesystem::create_directories(card / folder);
  Start();

  Add(u"\\SD\\many");
  CMainFrame& f = frame();
  ASSERT_EQ(f.BookCandidateList.size(), 8u);
  EXPECT_EQ(f.BookCandidateList[1].bookNumber, 2);
  EXPECT_EQ(f.BookCandidateList[7].bookNumber, 9);
  EXPECT_EQ(f.BookTitleList[7], CString(u"辞書その十番目の巻"));
  EXPECT_EQ(f.BookCandidateList[0].path, CString(u"\\SD\\many"));
  EXPECT_EQ(f.screen, SCREEN_REGISTER);
  EXPECT_EQ(f.focus, FOCUS_BOOK_LIST);

  // A second add opens the chooser where the first one chose; a catalog
  // with no forward index is told, a folder without one is not.
  log.clear();
  Add(u"\\SD\\backward");
  EXPECT_EQ(f.fileDialog->InitPath(), CString(u"\\SD\\many"));
  EXPECT_TRUE(Logged("edit.PlayTts(ブックが取得出来ませんでした)"));
  EXPECT_EQ(f.screen, SCREEN_DICTIONARIES);
  EXPECT_EQ(f.focus, FOCUS_BTN_ADD);
  log.clear();
  Add(u"\\SD\\empty");
  EXPECT_FALSE(Logged("edit.PlayTts(ブックが取得出来ませんでした)"));
  EXPECT_TRUE(f.BookCandidateList.empty());
  EXPECT_EQ(f.rootPath, CString(u"\\SD\\empty"));
}

TEST_F(ManageScreensTest, AnEditedNameStaysWithItsBookAndBackLeavesTheFieldFirst) {
  Start();
  OnTwoBooks();
  CMainFrame& f = frame();
  Keys({CK_ENTER});  // the name of the first book
  f.editCtrl->SetText(u"私の巻", 0);
  Keys({CK_BACK});  // back to the list: the name is kept
  EXPECT_EQ(f.focus, FOCUS_BOOK_LIST);
  EXPECT_EQ(f.BookTitleList[0], CString(u"私の巻"));
  Keys({48, CK_ENTER});  // the second book, and its name
  EXPECT_EQ(f.editCtrl->GetText(0), CString(u"二の巻"));
  f.editCtrl->SetText(u"", 0);
  Keys({CK_ENTER});  // an empty name beeps and stays
  EXPECT_NE(Transcript().find("BEEP 32"), std::string::npos);
  EXPECT_EQ(f.focus, FOCUS_EDIT_NAME);
  Keys({KEY_PREV_CTRL, 24});  // the first book again: its edited name is there
  log.clear();
  Keys({KEY_NEXT_CTRL});
  EXPECT_TRUE(Logged("edit.SetText(私の巻,0)"));
  const size_t before = f.DictionaryList.size();
  Keys({CK_BACK, CK_BACK});  // out of the field, then cancelled
  EXPECT_TRUE(Logged("edit.PlayTts(キャンセル)"));
  EXPECT_EQ(f.screen, SCREEN_DICTIONARIES);
  EXPECT_EQ(f.DictionaryList.size(), before);
}

TEST_F(ManageScreensTest, SettingsStepCopiesBeepAtTheEndsAndReturnWhereTheyCameFrom) {
  Start();
  CMainFrame& f = frame();
  f.screen = SCREEN_ARTICLE;
  f.screenFocus[SCREEN_ARTICLE] = FOCUS_BTN_CLOSE;
  f.OpenSettingsScreen();
  Keys({CK_PREV});  // the first option: beep, no wrap
  EXPECT_NE(Transcript().find("BEEP 32"), std::string::npos);
  EXPECT_EQ(f.focus, FOCUS_OPT_GAIJI_REPLACE);
  Keys({CK_NEXT_VALUE});  // the copy steps, the field doesn't
  EXPECT_EQ(f.listState[FOCUS_OPT_GAIJI_REPLACE].selection, 0);
  EXPECT_EQ(f.options.gaijiReplace, 1);
  // Syllables on, then to "設定", remembering them.
  Keys({CK_NEXT, CK_NEXT, CK_NEXT_VALUE, KEY_NEXT_CTRL});
  log.clear();
  Keys({CK_NEXT_VALUE});  // goes to the button
  EXPECT_TRUE(Logged("applyButton.OnBrailleKeyProc(16)"));
  Keys({KEY_PREV_CTRL});
  EXPECT_EQ(f.focus, FOCUS_OPT_SYLLABLE);
  Keys({CK_PREV, CK_PREV});
  EXPECT_TRUE(Logged("edit.SetText(置換しない,0)"));  // the stepped value is still shown
  Keys({CK_ENTER});  // an option applies all four
  EXPECT_EQ(f.options.gaijiReplace, 0);
  EXPECT_EQ(f.options.syllableVisible, 1);
  EXPECT_EQ(f.screen, SCREEN_ARTICLE);
  EXPECT_EQ(f.focus, FOCUS_BTN_CLOSE);
  EXPECT_TRUE(Logged("edit.PlayTts(設定しました)"));
}
