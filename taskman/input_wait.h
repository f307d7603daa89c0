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
// While a display is missing, the wait tries to take it again every few
// seconds (`retry`), when no key waits, with no wakeups between tries.
#ifndef TASKMAN_INPUT_WAIT_H_
#define TASKMAN_INPUT_WAIT_H_

#include <chrono>

#include "braille/braille_presenter.h"
#include "taskman/task_script.h"
#include "taskman/terminal_keys.h"

class InputWait {
 public:
  // Both stay the caller's and must outlive the wait; `braille` may be
  // null (no display asked for).
  InputWait(TerminalKeys& keyboard, BraillePresenter* braille,
            std::chrono::milliseconds retry = std::chrono::seconds(3));
  InputWait(const InputWait&) = delete;
  InputWait& operator=(const InputWait&) = delete;

  // Waits for the next action from either; false at the end of the
  // terminal's input or Ctrl-D.
  bool Next(TaskAction& action);

 private:
  // Gives the display back, stops, and takes the display again.
  void Stop();
  // Tries a missing display again when its time has come; the wait's
  // timeout in milliseconds until the next try, -1 for none.
  int RetryMissingDisplay();

  TerminalKeys& keyboard_;
  BraillePresenter* braille_;          // null without a display
  std::chrono::milliseconds retry_;    // between tries of a missing display
  std::chrono::steady_clock::time_point nextTry_;  // of a missing display; zero when none is due
};

#endif  // TASKMAN_INPUT_WAIT_H_
