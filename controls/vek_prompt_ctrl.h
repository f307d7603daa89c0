// CVekPromptCtrl: a yes/no question. The words come from "vekwrdJpn.lng"
// (keys "yes" and "no"; "はい" and "いいえ" when the file can't be read).
//
// SetFocus takes the focus and presents the question with the choice in view, which starts on
// no. Keys: 24, 8192, 48, 16384 switch between yes and no; 256 answers the
// choice in view; 234 answers yes at once; 88 and 218 close with no answer.
// CK_HELP tells the keys; other keys present the choice again. Each of the closing keys closes it.
#ifndef CONTROLS_VEK_PROMPT_CTRL_H_
#define CONTROLS_VEK_PROMPT_CTRL_H_

#include <cstdint>
#include <vector>

#include "controls/control_focus.h"
#include "controls/device_settings.h"
#include "controls/language_file.h"
#include "platform/wide_string.h"
#include "platform/window.h"

class CVekPromptCtrl : public FocusTaker {
 public:
  CVekPromptCtrl() = default;
  virtual ~CVekPromptCtrl() = default;

  virtual void SetLocalWnd(HWND wnd) { localWnd_ = wnd; }
  virtual void SetTaskWnd(HWND wnd) { taskWnd_ = wnd; }
  virtual void OpenRes(CString fileName);
  // Sets the question; the choice in view goes back to no.
  virtual void SetPrompt(CString question, unsigned style, unsigned flags);
  virtual void SetFocus();
  CString HelpTitle() const override { return u"確認"; }
  std::vector<KeyHelp> HelpKeys() const override;
  // Nonzero while the prompt stays open, 0 once it has closed.
  virtual unsigned OnBrailleKey(uint32_t key, long lParam);
  // Presents the choice again; never closes the prompt.
  virtual unsigned OnBrailleCursor(unsigned cell, long lParam);
  // 234 for yes; 0 for no and for no answer.
  virtual unsigned GetSelectKey() { return selectKey_; }
  virtual void SetReadingGrade(unsigned grade) { settings_.readingGrade = grade; }

  bool IsOpen() const { return open_; }
  CString YesWord() const;
  CString NoWord() const;

 private:
  void Present(bool withQuestion);
  unsigned Close(unsigned answer);

  HWND localWnd_ = 0;        // the frame's window
  HWND taskWnd_ = 0;         // the task manager's window
  LanguageFile words_;       // the yes and no words
  CString question_;         // as set
  bool yesInView_ = false;   // the choice in view
  bool open_ = false;        // between SetFocus and the close
  unsigned selectKey_ = 0;   // the answer at the close
  DeviceSettings settings_;  // passed through
};

#endif  // CONTROLS_VEK_PROMPT_CTRL_H_
