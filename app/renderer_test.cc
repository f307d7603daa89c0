#include "app/frame_fixture_for_test.h"

namespace {

// The edit control's calls for one field set-up.
CallLog FieldCalls(const std::string& label, const std::string& text, int multiLine, int control,
                   bool readOnly) {
  CallLog calls = {"edit.Empty()", "edit.SetMask(0)", "edit.SetAsciiOnly(0)",
                   "edit.SetMultiLine(" + std::to_string(multiLine) + ")", "edit.SetViewMode(1)",
                   "edit.SetControl(" + std::to_string(control) + ")", "edit.SetLanguMode(0)",
                   "edit.SetReadOnlyMode(0)", "edit.SetLabel(" + label + ")",
                   "edit.SetText(" + text + ",0)"};
  if (readOnly) calls.push_back("edit.SetReadOnlyMode(1)");
  calls.push_back("edit.SetFocus(" + label + ",1)");
  return calls;
}

}  // namespace

TEST_F(FrameTest, ContentListsPassHeadLinesThroughTheFilters) {
  Start();
  CMainFrame& f = frame();
  f.ArticleList = {{u"語<→見出し|1234>", u"本文"}, {u"次", u""}};
  f.listState[FOCUS_RESULT_LIST].selection = 1;
  f.focus = FOCUS_RESULT_LIST;
  f.RenderFocus();
  EXPECT_EQ(log, (CallLog{"list.ResetContent()", "list.SetMask(0)", "list.SetLabel(検索結果:)",
                          "list.AddString(語見出し)", "list.AddString(次)", "list.SetCurSel(1)",
                          "list.DisplayItem(1)"}));

  // An option change shows at the next render; an empty list keeps its
  // stale index, unchecked.
  log.clear();
  f.options.linkVisible = 1;
  f.RenderFocus();
  EXPECT_EQ(log[3], "list.AddString(語<→見出し|1234>)");
  log.clear();
  f.focus = FOCUS_CANDIDATE_LIST;
  f.listState[FOCUS_CANDIDATE_LIST].selection = 4;
  f.RenderFocus();
  EXPECT_EQ(log, (CallLog{"list.ResetContent()", "list.SetMask(0)",
                          "list.SetLabel(前方一致検索候補:)", "list.SetCurSel(4)",
                          "list.DisplayItem(1)"}));

  // The book list shows the catalog's title, not the edited name.
  log.clear();
  f.BookCandidateList = {{u"カタログ名", u"\\SD\\x", 0}};
  f.BookTitleList = {u"直した名"};
  f.focus = FOCUS_BOOK_LIST;
  f.RenderFocus();
  EXPECT_EQ(log[2], "list.SetLabel(ブック選択:)");
  EXPECT_EQ(log[3], "list.AddString(カタログ名)");
}

TEST_F(FrameTest, OptionListsShowTheirValueInAField) {
  Start();
  CMainFrame& f = frame();
  f.listState[FOCUS_OPT_GAIJI_VISIBLE].selection = 1;
  f.focus = FOCUS_OPT_GAIJI_VISIBLE;
  f.RenderFocus();
  CallLog expected = {"list.ResetContent()", "list.SetMask(0)", "list.SetLabel(外字の表示:)",
                      "list.AddString(表示しない)", "list.AddString(表示する)",
                      "list.SetCurSel(1)", "list.GetText(1)"};
  for (const std::string& call : FieldCalls("外字の表示:", "表示する", 0, 11, true))
    expected.push_back(call);
  EXPECT_EQ(log, expected);

  log.clear();
  f.focus = FOCUS_OPT_GAIJI_REPLACE;
  f.listState[FOCUS_OPT_GAIJI_REPLACE].selection = 0;
  f.RenderFocus();
  EXPECT_EQ(log[3], "list.AddString(置換しない)");
  EXPECT_EQ(log.back(), "edit.SetFocus(外字の置換:,1)");
}

TEST_F(FrameTest, FieldsAndButtons) {
  Start();
  CMainFrame& f = frame();
  f.searchWord = u"辞書";
  f.focus = FOCUS_EDIT_WORD;
  f.RenderFocus();
  EXPECT_EQ(log, FieldCalls("検索ワード:", "辞書", 0, 4, false));

  log.clear();
  f.articleText = u"本文<→先|12>";
  f.focus = FOCUS_EDIT_ARTICLE;
  f.RenderFocus();
  EXPECT_EQ(log, FieldCalls("検索結果:", "本文先", 1, 7, true));

  log.clear();
  f.listState[FOCUS_BOOK_LIST].selection = 2;  // outside BookTitleList
  f.focus = FOCUS_EDIT_NAME;
  f.RenderFocus();
  EXPECT_EQ(log, FieldCalls("辞書名:", "", 0, 4, false));

  log.clear();
  f.focus = FOCUS_BTN_CLOSE;
  f.RenderFocus();
  f.focus = 20;
  f.RenderFocus();
  f.focus = FOCUS_DICT_LIST;
  f.routingMode = MODE_MENU;  // nothing renders while the menu is open
  f.RenderFocus();
  EXPECT_EQ(log, CallLog{"closeButton.DisplayItem(1)"});
}

TEST_F(FrameTest, SaveFocusStateCopiesTheControlIntoTheFrame) {
  Start();
  CMainFrame& f = frame();
  f.DictionaryList = {{u"甲", u"\\SD\\a", 0}, {u"乙", u"\\SD\\b", 0}};
  f.RenderFocus();
  f.listCtrl->OnBrailleKeyProc(48, 0);
  f.SaveFocusState();
  EXPECT_EQ(f.listState[FOCUS_DICT_LIST].selection, 1);
  EXPECT_EQ(f.listState[FOCUS_DICT_LIST].text, CString(u"乙"));

  // An empty list stores what GetCurSel says, and no text.
  f.DictionaryList.clear();
  f.RenderFocus();
  f.SaveFocusState();
  EXPECT_EQ(f.listState[FOCUS_DICT_LIST].selection, -1);
  EXPECT_TRUE(f.listState[FOCUS_DICT_LIST].text.IsEmpty());

  f.focus = FOCUS_EDIT_WORD;
  f.RenderFocus();
  f.editCtrl->SetText(u"入力", 0);
  f.SaveFocusState();
  EXPECT_EQ(f.searchWord, CString(u"入力"));

  // The name field keeps an edited name only for a selected book.
  f.BookTitleList = {u"元"};
  f.listState[FOCUS_BOOK_LIST].selection = 0;
  f.focus = FOCUS_EDIT_NAME;
  f.RenderFocus();
  f.editCtrl->SetText(u"新", 0);
  f.SaveFocusState();
  EXPECT_EQ(f.BookTitleList[0], CString(u"新"));
  f.listState[FOCUS_BOOK_LIST].selection = 5;
  f.SaveFocusState();
  EXPECT_EQ(f.BookTitleList.size(), 1u);

  f.articleText = u"記事";
  f.focus = FOCUS_EDIT_ARTICLE;
  f.RenderFocus();
  f.SaveFocusState();
  EXPECT_EQ(f.articleText, CString(u"記事"));
  EXPECT_EQ(f.searchWord, CString(u"入力"));
}
