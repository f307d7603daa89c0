// The reader's input at a terminal with a Braille display beside it: one
// wait over the terminal's keys and the display's keys (its navigation
// keys, cursor-routing keys and Braille keyboard, taskman/braille_keys.h),
// taking whichever comes first, in the order they came.
//
// Ctrl-Z gives the display back to BRLTTY before the process stops, and
// `fg` takes it again (showing the line anew): a signal handler cannot
// talk to BRLTTY, so the stop is deferred to this wait, which the reader
// is in whenever it is idle. A display that goes away (BRLTTY stops) is
// told once by the Braille presenter; the terminal's keys go on as before.
// While a display is missing, the presenter opens it again on a thread of
// its own; the wait wakes when it has opened and takes it back before the
// next key, and never waits for the opening itself.
#ifndef TASKMAN_INPUT_WAIT_H_
#define TASKMAN_INPUT_WAIT_H_

#include "braille/braille_presenter.h"
#include "taskman/task_script.h"
#include "taskman/terminal_keys.h"

class InputWait {
 public:
  // Both stay the caller's and must outlive the wait; `braille` may be
  // null (no display asked for).
  InputWait(TerminalKeys& keyboard, BraillePresenter* braille);
  InputWait(const InputWait&) = delete;
  InputWait& operator=(const InputWait&) = delete;

  // Waits for the next action from either; false at the end of the
  // terminal's input or Ctrl-D.
  bool Next(TaskAction& action);

 private:
  // Gives the display back, stops, and takes the display again.
  void Stop();

  TerminalKeys& keyboard_;
  BraillePresenter* braille_;  // null without a display
};

#endif  // TASKMAN_INPUT_WAIT_H_
