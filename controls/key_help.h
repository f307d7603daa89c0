// The help: what the keys do where the user is. The control in focus
// (controls/control_focus.h) names its own keys by code; how the user
// gives a code, and the keys that work everywhere (the frame's keys and
// the reading keys of the task manager), are known to whoever delivers
// the keys, which sets a KeyGuide. Without one, keys are named by code.
#ifndef CONTROLS_KEY_HELP_H_
#define CONTROLS_KEY_HELP_H_

#include <cstdint>
#include <vector>

#include "platform/wide_string.h"

// A key by the name the user knows it by, and what it does.
struct NamedKey {
  CString key;     // "タブ"
  CString action;  // "次のコントロール"
};

class KeyGuide {
 public:
  virtual ~KeyGuide() = default;
  // The name of the key that gives `code`; empty when no key gives it.
  virtual CString KeyName(uint32_t code) const = 0;
  // The keys that work whatever control is in focus.
  virtual std::vector<NamedKey> CommonKeys() const = 0;
};

// The guide the help uses; null puts the one that names codes back. The
// caller keeps the guide alive while it is set.
void SetKeyGuide(const KeyGuide* guide);

// The help text: the keys of the control in focus, then the common ones.
CString HelpText();
// Shows the help text on Braille and speaks it.
void PresentHelp();
// Shows and speaks a position, item or line `at` of `of`: "3/12".
void PresentPosition(int at, int of);

#endif  // CONTROLS_KEY_HELP_H_
