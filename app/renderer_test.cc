#include "app/frame_fixture_for_test.h"

namespace {

// The list box's calls for a list of `items` with `selection` set.
CallLog ListCalls(const std::string& label, const std::vector<std::string>& items, int selection) {
  CallLog calls = {"list.ResetContent()", "list.SetMask(0)", "list.SetLabel(" + label + ")"};
  for (const std::string& item : items) calls.push_back("list.AddString(" + item + ")");
  calls.push_back("list.SetCurSel(" + std::to_string(selection) + ")");
  return calls;
}

// The edit control's calls for one field set-up: the text goes in while
// the field is writable.
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

CallLog operator+(CallLog a, const CallLog& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

}  // namespace

// Head lines and the article pass the display filters; the book list
// shows the catalog's title, the name field the edited name; an option's
// value shows in a read-only field.
TEST_F(FrameTest, EachFocusBuildsItsControlFromTheFrame) {
  Start();
  CMainFrame& f = frame();
  f.ArticleList = {{u"語<→見出し|1234>", u"本文"}, {u"次", u""}};
  f.BookCandidateList = {{u"カタログ名", u"\\SD\\x", 0}};
  f.BookTitleList = {u"直した名"};
  f.searchWord = u"辞書";
  f.articleText = u"本文<→先|12>";
  f.listState[FOCUS_RESULT_LIST].selection = 1;
  f.listState[FOCUS_CANDIDATE_LIST].selection = 4;  // an empty list keeps it, unchecked
  f.listState[FOCUS_OPT_GAIJI_VISIBLE].selection = 1;
  const CallLog shown = {"list.DisplayItem(1)"};
  const struct {
    int32_t focus;
    CallLog calls;
  } cases[] = {
      {FOCUS_RESULT_LIST, ListCalls("検索結果:", {"語見出し", "次"}, 1) + shown},
      {FOCUS_CANDIDATE_LIST, ListCalls("前方一致検索候補:", {}, 4) + shown},
      {FOCUS_BOOK_LIST, ListCalls("ブック選択:", {"カタログ名"}, 0) + shown},
      {FOCUS_OPT_GAIJI_VISIBLE, ListCalls("外字の表示:", {"表示しない", "表示する"}, 1) +
                                    CallLog{"list.GetText(1)"} +
                                    FieldCalls("外字の表示:", "表示する", 0, 11, true)},
      {FOCUS_EDIT_WORD, FieldCalls("検索ワード:", "辞書", 0, 4, false)},
      {FOCUS_EDIT_NAME, FieldCalls("辞書名:", "直した名", 0, 4, false)},
      {FOCUS_EDIT_ARTICLE, FieldCalls("検索結果:", "本文先", 1, 7, true)},
      {FOCUS_BTN_CLOSE, {"closeButton.DisplayItem(1)"}},
      {20, {}},  // no control
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.focus);
    log.clear();
    f.focus = c.focus;
    f.RenderFocus();
    EXPECT_EQ(log, c.calls);
  }

  // An option change shows at the next render; a name field for no book
  // is empty; nothing renders while the menu is open.
  log.clear();
  f.options.linkVisible = 1;
  f.focus = FOCUS_RESULT_LIST;
  f.RenderFocus();
  EXPECT_EQ(log[3], "list.AddString(語<→見出し|1234>)");
  log.clear();
  f.listState[FOCUS_BOOK_LIST].selection = 2;
  f.focus = FOCUS_EDIT_NAME;
  f.RenderFocus();
  EXPECT_EQ(log, FieldCalls("辞書名:", "", 0, 4, false));
  log.clear();
  f.routingMode = MODE_MENU;
  f.RenderFocus();
  EXPECT_TRUE(log.empty());
}

// What the user did in a list, the word field and the name field comes
// back on the next render (the scripted runs); here the edges: an empty
// list, and a name field whose book lies outside the list.
TEST_F(FrameTest, SaveFocusStateKeepsToTheLists) {
  Start();
  CMainFrame& f = frame();
  f.DictionaryList.clear();
  f.RenderFocus();
  f.SaveFocusState();
  EXPECT_EQ(f.listState[FOCUS_DICT_LIST].selection, -1);  // what GetCurSel says
  EXPECT_TRUE(f.listState[FOCUS_DICT_LIST].text.IsEmpty());

  f.BookTitleList = {u"元"};
  f.listState[FOCUS_BOOK_LIST].selection = 5;
  f.focus = FOCUS_EDIT_NAME;
  f.RenderFocus();
  f.editCtrl->SetText(u"新", 0);
  f.SaveFocusState();
  EXPECT_EQ(f.BookTitleList, CStringArray{u"元"});
}
