// How the terminal's keys are named and what they do: the --help text of
// the keyboard, and the names the help key speaks (a KeyGuide). The bytes
// each key sends are taskman/terminal_keys.cc's; this is the same map as
// the user learns it.
#ifndef TASKMAN_KEYBOARD_MAP_H_
#define TASKMAN_KEYBOARD_MAP_H_

#include <cstdint>
#include <string>
#include <vector>

#include "controls/key_help.h"
#include "taskman/task_script.h"

// One key of the keyboard, or a pair with one meaning.
struct KeyboardKey {
  const char* keys;        // as --help names them: "Ctrl-Q or F10"
  const char* meaning;     // what it does, for --help
  TaskAction::Kind kind;   // what it delivers: a key, typed text, a reading message
  uint32_t code;           // the key code of a kKey; 0 for none
  const char16_t* spoken;  // its name in the spoken help; null: not named there
  const char16_t* common;  // what it does on every control, for the help; null: not common
};
extern const KeyboardKey kKeyboardKeys[];
extern const int kKeyboardKeyCount;

// The keyboard for --help: one key a line, its name first, then what it
// does, then the code it gives.
std::string KeyboardHelp();

// The keyboard's names for the spoken help, and its common keys.
class KeyboardGuide : public KeyGuide {
 public:
  CString KeyName(uint32_t code) const override;
  std::vector<NamedKey> CommonKeys() const override;
};

#endif  // TASKMAN_KEYBOARD_MAP_H_
