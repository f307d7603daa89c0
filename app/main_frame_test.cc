#include <cstring>

#include "app/frame_fixture_for_test.h"
#include "controls/beep_request.h"
#include "controls/jpn_data.h"

namespace {

// A window that keeps the messages it gets, and the bytes of WM_COPYDATA.
class MessageCatcher : public CWnd {
 public:
  MessageCatcher() { CreateWindowObject(); }
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == WM_CREATE) return 0;
    messages.push_back(std::to_string(message) + ":" + std::to_string(wParam) + ":" +
                       std::to_string(lParam));
    if (message == WM_COPYDATA) {
      auto* data = reinterpret_cast<tagCOPYDATASTRUCT*>(lParam);
      dwData = data->dwData;
      const auto* bytes = static_cast<const uint8_t*>(data->lpData);
      copied.assign(bytes, bytes + data->cbData);
    }
    return 0;
  }
  std::vector<std::string> messages;  // "message:wParam:lParam"
  uintptr_t dwData = 0;               // of the latest WM_COPYDATA
  std::vector<uint8_t> copied;        // its bytes
};

std::string Message(UINT message, WPARAM wParam, LPARAM lParam) {
  return std::to_string(message) + ":" + std::to_string(wParam) + ":" + std::to_string(lParam);
}

}  // namespace

TEST_F(FrameTest, BrailleKeysGoToModalThenPopupThenFrame) {
  Start();
  MessageCatcher modal, popup;
  const HWND self = frame().GetSafeHwnd();
  SendMessage(self, WM_VEK_SET_MODAL, reinterpret_cast<WPARAM>(&modal), 0);
  SendMessage(self, WM_VEK_SET_POPUP, reinterpret_cast<WPARAM>(&popup), 0);
  SendMessage(self, WM_VEK_KEY_IN, 48, 7);
  SendMessage(self, WM_VEK_CURSOR_IN, 3, 8);
  Drain();
  EXPECT_EQ(modal.messages, (std::vector<std::string>{Message(WM_VEK_KEY_MODAL, 48, 7),
                                                      Message(WM_VEK_CURSOR_MODAL, 3, 8)}));
  EXPECT_TRUE(popup.messages.empty());
  EXPECT_TRUE(log.empty()) << "the frame sees no key while a modal control runs";

  // The popup takes Braille keys; cursor keys still reach the frame.
  SendMessage(self, WM_VEK_CLEAR_MODAL, 0, 0);
  SendMessage(self, WM_VEK_KEY_IN, 48, 0);
  SendMessage(self, WM_VEK_CURSOR_IN, 3, 0);
  Drain();
  EXPECT_EQ(popup.messages, std::vector<std::string>{Message(WM_VEK_KEY_POPUP, 48, 0)});
  EXPECT_EQ(log, CallLog{"list.OnCursorKeyProc(3)"});

  log.clear();
  modal.messages.clear();
  SendMessage(self, WM_VEK_SET_MODAL, reinterpret_cast<WPARAM>(&modal), 0);
  SendMessage(self, WM_VEK_CLEAR_POPUP, 0, 42);
  SendMessage(self, WM_VEK_CLEAR_MODAL, 0, 0);
  SendMessage(self, WM_VEK_KEY_IN, 48, 0);
  Drain();
  EXPECT_EQ(modal.messages, std::vector<std::string>{Message(WM_VEK_POPUP_CLEARED, 42, 0)});
  EXPECT_EQ(log, CallLog{"list.OnBrailleKeyProc(48)"});
}

TEST_F(FrameTest, EditPopupHoldsEveryKeyUntilItEnds) {
  Start();
  CMainFrame& f = frame();
  f.screen = SCREEN_SEARCH;
  f.screenFocus[SCREEN_SEARCH] = FOCUS_EDIT_WORD;
  Keys({CK_POPUP});
  EXPECT_EQ(f.editPopup, 1);
  // No screen handler: the focus stays; CK_EXIT closes nothing, the edit
  // control gets 106.
  Keys({KEY_NEXT_CTRL, CK_EXIT});
  EXPECT_EQ(f.editPopup, 0);
  EXPECT_EQ(f.focus, FOCUS_EDIT_WORD);
  EXPECT_EQ(log, (CallLog{"edit.OnBrailleKey(41)", "edit.OnBrailleKey(112)",
                          "edit.OnBrailleKey(106)"}));

  // Set on the read-only article as well; each ending key clears it.
  f.screen = SCREEN_ARTICLE;
  f.screenFocus[SCREEN_ARTICLE] = FOCUS_EDIT_ARTICLE;
  for (uint32_t ending : {CK_ENTER, CK_YES, CK_POPUP_CLOSE, CK_BACK}) {
    Keys({CK_POPUP, 48});
    EXPECT_EQ(f.editPopup, 1);
    Keys({ending});
    EXPECT_EQ(f.editPopup, 0) << ending;
  }
}

TEST_F(FrameTest, KeysNoScreenTakesReachTheFocusedControl) {
  Start();
  CMainFrame& f = frame();
  Keys({CK_BACK});  // no back key on the first screen
  f.screen = SCREEN_DICTIONARIES;
  f.screenFocus[SCREEN_DICTIONARIES] = FOCUS_BTN_ADD;
  Keys({KEY_MENU});  // no menu on screens 3 to 5
  f.OnCursorKeyMessage(5, 0);
  EXPECT_EQ(log, (CallLog{"list.OnBrailleKeyProc(88)", "addButton.OnBrailleKeyProc(58)",
                          "addButton.OnCursorKeyProc(5)"}));

  // The menu and the prompt take every key while open; a close renders.
  log.clear();
  f.routingMode = MODE_MENU;
  Keys({48});
  f.OnCursorKeyMessage(2, 0);
  Keys({CK_BACK});
  EXPECT_EQ(f.routingMode, MODE_SCREEN);
  f.routingMode = MODE_PROMPT;
  f.OnCursorKeyMessage(1, 0);
  EXPECT_EQ(log, (CallLog{"menu.OnBrailleKey(48)", "menu.OnBrailleCursor(2)", "menu.OnBrailleKey(88)",
                          "addButton.DisplayItem(1)", "prompt.OnBrailleCursor(1)"}));
}

// An announcement's calls, without and with waiting for the speech; muting
// silences announcements only: the focus still renders.
TEST_F(FrameTest, AnnounceCallsAndMute) {
  Start();
  frame().Announce(u"検索開始", -1, -1, 0);
  frame().Announce(u"済", -1, -1, 1);
  EXPECT_EQ(log, (CallLog{"edit.SetAsciiOnly(0)", "edit.SetControl(4)", "edit.PlayBrl(0,,0)",
                          "edit.PlayBrl(-1,検索開始,-1)", "edit.PlayTts(検索開始)",
                          "edit.SetAsciiOnly(0)", "edit.SetControl(4)", "edit.PlayBrl(0,,0)",
                          "edit.PlayBrl(-1,済,-1)", "edit.SetSync(1)", "edit.PlayTts()",
                          "edit.PlayTts(済)", "edit.SetSync(0)"}));
  log.clear();
  SendMessage(frame().GetSafeHwnd(), WM_VEK_MUTE, 1, 0);
  frame().Announce(u"x", -1, -1, 1);
  frame().RenderFocus();
  EXPECT_EQ(log.front(), "list.ResetContent()");
  EXPECT_EQ(log.back(), "list.DisplayItem(1)");
  SendMessage(frame().GetSafeHwnd(), WM_VEK_MUTE, 0, 0);
  EXPECT_EQ(frame().announceOn, 1);
}

TEST_F(FrameTest, SettingsAndReadingEventsReachTheirControls) {
  Start();
  const HWND self = frame().GetSafeHwnd();
  SendMessage(self, WM_VEK_SETTING, 2, 3);
  SendMessage(self, WM_VEK_SETTING, 24, 4);
  SendMessage(self, WM_VEK_SETTING, 35, 5);
  SendMessage(self, WM_VEK_SETTING, 36, 6);
  SendMessage(self, WM_VEK_SETTING, 99, 7);
  SendMessage(self, WM_VEK_READ_ALL, 0, 0);
  SendMessage(self, WM_VEK_READ_ALL, 1, 0);
  SendMessage(self, WM_VEK_READ_STOP, 12, 0);
  EXPECT_EQ(log, (CallLog{"edit.SetReadingGrade(3)", "menu.SetReadingGrade(3)",
                          "prompt.SetReadingGrade(3)", "edit.SetAdvanceVoice(4)",
                          "edit.SetJpnLangMode(5)", "edit.SetJpnKeyMode(6)", "edit.OnReadAll()",
                          "edit.OnReadAllEnd(1)", "edit.PositionAtReadStop(12)"}));

  // Missing controls are skipped: before creation, or one of them gone.
  CMainFrame bare(engineBooks);
  bare.WindowProc(WM_VEK_SETTING, 2, 1);
  bare.WindowProc(WM_VEK_SETTING, 35, 1);
  bare.WindowProc(WM_VEK_READ_ALL, 0, 0);
  bare.OnBrailleKeyMessage(48, 0);
  CallLog partial;
  bare.promptCtrl = std::make_unique<RecordingPrompt>(partial, "prompt");
  bare.WindowProc(WM_VEK_SETTING, 2, 9);
  EXPECT_EQ(partial, CallLog{"prompt.SetReadingGrade(9)"});
}

TEST_F(FrameTest, TypedTextGoesToTheEditOrTheChooser) {
  Start();
  taskManager.DeliverText(u"辞書");
  std::vector<uint32_t> other = MakeJpnData(u"x");
  other[3] = 2;  // not Japanese text data
  tagCOPYDATASTRUCT data{JPNDATA_COPYDATA_ID, static_cast<uint32_t>(other.size() * 4), other.data()};
  SendMessage(frame().GetSafeHwnd(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
  MessageCatcher chooser;
  frame().modalTarget = &chooser;
  taskManager.DeliverText(u"選");
  EXPECT_EQ(log, CallLog{"edit.OnReadJPNEditTXT(辞書)"});
}

TEST_F(FrameTest, BeepRecordGoesToTheTaskManager) {
  MessageCatcher taskWindow;
  CString commandLine;
  commandLine.Format(u"0 %u", static_cast<unsigned>(taskWindow.GetSafeHwnd()));
  ASSERT_TRUE(app.Start(commandLine));
  taskWindow.messages.clear();
  frame().NotifyBeep(32);
  ASSERT_EQ(taskWindow.messages.size(), 1u);
  EXPECT_EQ(taskWindow.messages[0].rfind(std::to_string(WM_COPYDATA) + ":" +
                                             std::to_string(frame().GetSafeHwnd()) + ":", 0),
            0u);
  EXPECT_EQ(taskWindow.dwData, 4u);
  std::vector<uint8_t> expected(16392, 0);
  const char* text = "NullMessageBeepHHCHHC";
  for (size_t i = 0; i < std::strlen(text); ++i) expected[2 * i] = static_cast<uint8_t>(text[i]);
  expected[16388] = 32;
  EXPECT_EQ(taskWindow.copied, expected);

  // A task manager of its own name beeps to its own window.
  app.appName = u"VekTask";
  taskWindow.messages.clear();
  frame().NotifyBeep(32);
  EXPECT_TRUE(taskWindow.messages.empty());
}

// "start code, task window": no blank makes the whole line the handle.
TEST(ReaderAppTest, CommandLine) {
  const struct {
    const char16_t* line;
    int startCode;
    unsigned taskWnd;
  } lines[] = {{u"3 1234", 3, 1234}, {u"-1 1234", -1, 0}, {u"77", 0, 77}, {u"", 0, 0}, {u"5 x", 5, 0}};
  CReaderApp app;
  for (const auto& line : lines) {
    app.ParseCommandLine(line.line);
    EXPECT_EQ(app.startCode, line.startCode) << line.startCode;
    EXPECT_EQ(app.taskWnd, line.taskWnd) << line.taskWnd;
  }
}
