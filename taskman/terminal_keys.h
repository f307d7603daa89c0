// The keyboard of a terminal as the device's Braille keyboard: each key
// press becomes one task manager action, a key code, typed text or a
// reading message. The terminal is put in a mode without line editing or
// echo for as long as a TerminalKeys object lives; Ctrl-C, a closed
// terminal or kill still end the process, leaving the terminal's mode as it
// was (nothing is saved, as at any kill). Ctrl-Z gives the terminal back
// as it was before the process stops, and `fg` takes it over again; a signal (a resize, the
// continuation) never ends the input. A reader that must do more before
// it stops (give a Braille display back) defers the stops: Ctrl-Z is then
// only noted, and its own wait stops the process (StopPending, StopHere).
//
// The map of keys to actions, with the names and meanings that --help and
// the spoken help give, is taskman/keyboard_map.cc.
#ifndef TASKMAN_TERMINAL_KEYS_H_
#define TASKMAN_TERMINAL_KEYS_H_

#include <string>

#include <termios.h>

#include "taskman/task_script.h"

class TerminalKeys {
 public:
  // Takes over the terminal on file descriptor `fd`.
  explicit TerminalKeys(int fd);
  TerminalKeys(const TerminalKeys&) = delete;
  TerminalKeys& operator=(const TerminalKeys&) = delete;
  // Gives the terminal back as it was.
  ~TerminalKeys();

  // Waits for the next key press; false at the end of input or Ctrl-D.
  // Keys with no meaning here are skipped.
  bool Next(TaskAction& action);
  // The next key press that has already come, without waiting for more
  // (beyond the rest of an escape sequence): 1 there was one, 0 none has
  // come, -1 the end of input or Ctrl-D.
  int Ready(TaskAction& action);
  // The terminal, for a wait over it and other inputs.
  int Descriptor() const { return fd_; }

  // From now on Ctrl-Z only notes the stop and makes StopDescriptor()
  // readable; the caller stops the process with StopHere when it is ready.
  void DeferStops();
  // Readable while a deferred stop waits; -1 when stops are not deferred.
  int StopDescriptor() const;
  // True while a deferred stop waits.
  bool StopPending() const;
  // Gives the terminal back as it was and stops the process; returns when
  // it is continued (`fg`), with the terminal taken over again.
  void StopHere();

 private:
  // Reads what is available into pending_, waiting at most `timeoutMs`
  // (-1: as long as it takes); false when nothing came.
  bool Fill(int timeoutMs);
  // The action at the start of pending_, removed from it: 1 found, 0 the
  // bytes meant nothing and went, -1 the end of input was asked for.
  int Take(TaskAction& action);
  int TakeEscape(TaskAction& action);

  int fd_;                  // the terminal
  bool restore_ = false;    // saved_ holds the mode to put back
  struct termios saved_{};  // the mode before
  std::string pending_;     // bytes read and not yet made into actions
  bool ended_ = false;      // no more input
  bool holdsSignals_ = false;  // this object answers Ctrl-Z and the continuation
};

#endif  // TASKMAN_TERMINAL_KEYS_H_
