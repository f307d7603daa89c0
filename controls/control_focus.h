// The control the user is in. The frame moves the focus by presenting a
// control (DisplayItem of a list or button, SetFocus of the edit field,
// the menu or the prompt, the folder chooser's run), and each control
// takes the focus there. Other controls ask who has it: the edit field
// takes typed text only while it has the focus itself, and the help key
// tells the keys of the control that has it, whichever control the key
// reached.
#ifndef CONTROLS_CONTROL_FOCUS_H_
#define CONTROLS_CONTROL_FOCUS_H_

#include <cstdint>
#include <vector>

#include "platform/wide_string.h"

// A key and what it does, for the help.
struct KeyHelp {
  uint32_t code;           // the key code (controls/control_keys.h)
  const char16_t* action;  // what it does, in Japanese
};

class FocusTaker {
 public:
  FocusTaker() = default;
  FocusTaker(const FocusTaker&) = delete;
  FocusTaker& operator=(const FocusTaker&) = delete;
  // A control that goes away gives the focus up: then nobody has it.
  virtual ~FocusTaker();

  // What the control is called in the help ("リスト"), and its own keys.
  virtual CString HelpTitle() const = 0;
  virtual std::vector<KeyHelp> HelpKeys() const = 0;

 protected:
  void TakeFocus();
  bool HasFocus() const;
};

// The control that took the focus last; null before any did.
FocusTaker* ControlInFocus();

#endif  // CONTROLS_CONTROL_FOCUS_H_
