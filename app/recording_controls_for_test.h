// Controls that write each call the frame makes on them into one shared
// log ("edit.SetControl(4)", "list.AddString(...)") and then behave as the
// real ones, for the frame's tests. Put them into a CMainFrame before its
// creation; CreateControls makes only the missing ones.
#ifndef APP_RECORDING_CONTROLS_FOR_TEST_H_
#define APP_RECORDING_CONTROLS_FOR_TEST_H_

#include <string>
#include <vector>

#include "app/main_frame.h"
#include "platform/utf8_text.h"

using CallLog = std::vector<std::string>;

class RecordingEdit : public CVekEdit {
 public:
  explicit RecordingEdit(CallLog& log) : log_(log) {}
  void SetLocalWnd(HWND) override { Log("SetLocalWnd"); }
  void SetTaskWnd(HWND) override { Log("SetTaskWnd"); }
  void Empty() override { Log("Empty()"); CVekEdit::Empty(); }
  void SetMask(unsigned v) override { Log("SetMask(" + std::to_string(v) + ")"); }
  void SetAsciiOnly(unsigned v) override { Log("SetAsciiOnly(" + std::to_string(v) + ")"); }
  void SetMultiLine(int v) override { Log("SetMultiLine(" + std::to_string(v) + ")"); CVekEdit::SetMultiLine(v); }
  void SetViewMode(unsigned v) override { Log("SetViewMode(" + std::to_string(v) + ")"); }
  void SetControl(int v) override { Log("SetControl(" + std::to_string(v) + ")"); CVekEdit::SetControl(v); }
  void SetLanguMode(int v) override { Log("SetLanguMode(" + std::to_string(v) + ")"); }
  void SetReadOnlyMode(int v) override { Log("SetReadOnlyMode(" + std::to_string(v) + ")"); CVekEdit::SetReadOnlyMode(v); }
  void SetLabel(CString s) override { Log("SetLabel(" + ToUtf8(s) + ")"); CVekEdit::SetLabel(s); }
  void SetText(CString s, int v) override { Log("SetText(" + ToUtf8(s) + "," + std::to_string(v) + ")"); CVekEdit::SetText(s, v); }
  void SetFocus(CString s, int v) override { Log("SetFocus(" + ToUtf8(s) + "," + std::to_string(v) + ")"); }
  int OnBrailleKey(uint32_t key, long) override { Log("OnBrailleKey(" + std::to_string(key) + ")"); return 1; }
  void OnBrailleCursor(unsigned cell, long) override { Log("OnBrailleCursor(" + std::to_string(cell) + ")"); }
  int PlayBrl(int a, CString s, int b) override {
    Log("PlayBrl(" + std::to_string(a) + "," + ToUtf8(s) + "," + std::to_string(b) + ")");
    return 0;
  }
  int PlayTts(CString s) override { Log("PlayTts(" + ToUtf8(s) + ")"); return 0; }
  void SetSync(int v) override { Log("SetSync(" + std::to_string(v) + ")"); }
  void SetReadingGrade(unsigned v) override { Log("SetReadingGrade(" + std::to_string(v) + ")"); }
  void SetAdvanceVoice(int v) override { Log("SetAdvanceVoice(" + std::to_string(v) + ")"); }
  void SetJpnLangMode(LANMODE v) override { Log("SetJpnLangMode(" + std::to_string(v) + ")"); }
  void SetJpnKeyMode(int v) override { Log("SetJpnKeyMode(" + std::to_string(v) + ")"); }
  void OnReadAll() override { Log("OnReadAll()"); }
  void OnReadAllEnd(int v) override { Log("OnReadAllEnd(" + std::to_string(v) + ")"); }
  void PositionAtReadStop(unsigned v, long) override { Log("PositionAtReadStop(" + std::to_string(v) + ")"); }
  void OnReadJPNEditTXT(_JPNDATA* data) override { Log("OnReadJPNEditTXT(" + ToUtf8(JpnDataText(data)) + ")"); }

 private:
  void Log(const std::string& call) { log_.push_back("edit." + call); }
  CallLog& log_;
};

class RecordingList : public CVekListboxCtrl {
 public:
  explicit RecordingList(CallLog& log) : log_(log) {}
  void SetMask(unsigned long v) override { Log("SetMask(" + std::to_string(v) + ")"); }
  void SetCtrlLocalWnd(HWND) override { Log("SetCtrlLocalWnd"); }
  void SetCtrlTaskWnd(HWND) override { Log("SetCtrlTaskWnd"); }
  void ResetContent() override { Log("ResetContent()"); CVekListboxCtrl::ResetContent(); }
  int SetLabel(const char16_t* s) override { Log("SetLabel(" + ToUtf8(s) + ")"); return CVekListboxCtrl::SetLabel(s); }
  int AddString(const char16_t* s) override { Log("AddString(" + ToUtf8(s) + ")"); return CVekListboxCtrl::AddString(s); }
  int SetCurSel(int i) override { Log("SetCurSel(" + std::to_string(i) + ")"); return CVekListboxCtrl::SetCurSel(i); }
  void GetText(int i, CString& s) override { Log("GetText(" + std::to_string(i) + ")"); CVekListboxCtrl::GetText(i, s); }
  void DisplayItem(int v) override { Log("DisplayItem(" + std::to_string(v) + ")"); }
  void OnBrailleKeyProc(uint32_t key, long l) override { Log("OnBrailleKeyProc(" + std::to_string(key) + ")"); CVekListboxCtrl::OnBrailleKeyProc(key, l); }
  void OnCursorKeyProc(uint32_t cell, long) override { Log("OnCursorKeyProc(" + std::to_string(cell) + ")"); }

 private:
  void Log(const std::string& call) { log_.push_back("list." + call); }
  CallLog& log_;
};

class RecordingButton : public CVekButtonCtrl {
 public:
  RecordingButton(CallLog& log, std::string name) : log_(log), name_(std::move(name)) {}
  void SetMask(unsigned long v) override { Log("SetMask(" + std::to_string(v) + ")"); }
  void SetCtrlLocalWnd(HWND) override { Log("SetCtrlLocalWnd"); }
  void SetCtrlTaskWnd(HWND) override { Log("SetCtrlTaskWnd"); }
  int SetLabel(const char16_t* s) override { Log("SetLabel(" + ToUtf8(s) + ")"); return CVekButtonCtrl::SetLabel(s); }
  void DisplayItem(int v) override { Log("DisplayItem(" + std::to_string(v) + ")"); }
  void OnBrailleKeyProc(uint32_t key, long) override { Log("OnBrailleKeyProc(" + std::to_string(key) + ")"); }
  void OnCursorKeyProc(uint32_t cell, long) override { Log("OnCursorKeyProc(" + std::to_string(cell) + ")"); }

 private:
  void Log(const std::string& call) { log_.push_back(name_ + "." + call); }
  CallLog& log_;
  std::string name_;
};

// The menu and the prompt, which the frame drives alike; the menu's
// OnBrailleKey closes on KEY_BACK (88), as the real one does.
template <typename Control>
class RecordingPopup : public Control {
 public:
  RecordingPopup(CallLog& log, std::string name) : log_(log), name_(std::move(name)) {}
  void SetLocalWnd(HWND) override { Log("SetLocalWnd"); }
  void SetTaskWnd(HWND) override { Log("SetTaskWnd"); }
  void OpenRes(CString name) override { Log("OpenRes(" + ToUtf8(name) + ")"); }
  unsigned OnBrailleKey(uint32_t key, long) override {
    Log("OnBrailleKey(" + std::to_string(key) + ")");
    return key == 88 && name_ == "menu" ? 0 : 1;
  }
  unsigned OnBrailleCursor(unsigned cell, long) override { Log("OnBrailleCursor(" + std::to_string(cell) + ")"); return 1; }
  void SetReadingGrade(unsigned v) override { Log("SetReadingGrade(" + std::to_string(v) + ")"); }

 private:
  void Log(const std::string& call) { log_.push_back(name_ + "." + call); }
  CallLog& log_;
  std::string name_;
};
using RecordingMenu = RecordingPopup<CVekMenuCtrl>;
using RecordingPrompt = RecordingPopup<CVekPromptCtrl>;

// Puts recording controls into every control field of `frame`; the
// buttons log under their field names.
inline void UseRecordingControls(CMainFrame& frame, CallLog& log) {
  frame.menuCtrl = std::make_unique<RecordingMenu>(log, "menu");
  frame.editCtrl = std::make_unique<RecordingEdit>(log);
  frame.searchButton = std::make_unique<RecordingButton>(log, "searchButton");
  frame.openButton = std::make_unique<RecordingButton>(log, "openButton");
  frame.closeButton = std::make_unique<RecordingButton>(log, "closeButton");
  frame.manageButton = std::make_unique<RecordingButton>(log, "manageButton");
  frame.addButton = std::make_unique<RecordingButton>(log, "addButton");
  frame.deleteButton = std::make_unique<RecordingButton>(log, "deleteButton");
  frame.registerButton = std::make_unique<RecordingButton>(log, "registerButton");
  frame.cancelButton = std::make_unique<RecordingButton>(log, "cancelButton");
  frame.applyButton = std::make_unique<RecordingButton>(log, "applyButton");
  frame.listCtrl = std::make_unique<RecordingList>(log);
  frame.promptCtrl = std::make_unique<RecordingPrompt>(log, "prompt");
}

#endif  // APP_RECORDING_CONTROLS_FOR_TEST_H_
