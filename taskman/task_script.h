// Key scripts: what the task manager stand-in delivers, one action a line
// (format in docs/epwingdict.md). Blank lines and lines whose first
// non-blank character is "#" are skipped; an action is
//
//   KEY_NAME | <decimal code>   a Braille key (names in kKeyNames)
//   text <UTF-8 text>           typed text, everything behind "text "
//   cursor <n>                  a cursor-routing key on cell n
//   setting <w> <l>             a device setting: number w, value l
//   mute <0|1>                  speech of announcements off (1) or on (0)
//   choose <folder>             answers the open folder chooser: the folder,
//                               relative to the one in view or a device
//                               name from "\", typed, then KEY_ENTER
//   readall                     read-all of the text in view begins
//   readstop <n>                the reading stopped n units of the text
//                               behind where it began
//   dots <cell>...              cells typed on the Braille keyboard, each as
//                               its dot numbers ("136"; "0" the blank),
//                               read as Japanese Braille (braille/kana_keyboard.h)
//   pause <ms>                  waits that long (at most 10000 ms) before
//                               the next action, as a user would
#ifndef TASKMAN_TASK_SCRIPT_H_
#define TASKMAN_TASK_SCRIPT_H_

#include <cstdint>
#include <string>
#include <vector>

#include "platform/wide_string.h"

class CTaskManagerWnd;

struct TaskAction {
  enum Kind { kKey, kText, kCursor, kSetting, kMute, kChoose, kReadAll, kReadStop,
              kPause, kDots };
  Kind kind = kKey;    // what to deliver
  uint32_t number = 0; // key code, cursor cell, setting number, mute flag, read offset, or pause ms
  int32_t value = 0;   // setting value; for kReadStop -1: where the speech got to
  CString text;        // typed text, chosen folder, or the dots of each cell typed, a unit each
};

// A key code by name.
struct KeyName {
  const char* name;  // as in scripts, e.g. "KEY_ENTER"
  uint32_t code;     // what the task manager delivers
};
extern const KeyName kKeyNames[];
extern const int kKeyNameCount;
// The key names with their codes, for --help.
std::string ScriptKeyHelp();

// Appends the actions of `script` to `actions`. False at the first line
// that is no action, with `error` saying which ("line 3: ...").
bool ParseTaskScript(const std::string& script, std::vector<TaskAction>& actions,
                     std::string& error);

// Hands one action to the task manager.
void PerformTaskAction(CTaskManagerWnd& taskManager, const TaskAction& action);

#endif  // TASKMAN_TASK_SCRIPT_H_
