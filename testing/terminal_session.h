// A program run on a pseudo-terminal of its own, as a user at a terminal
// meets it: keys typed into it, what it shows read back (carriage returns
// dropped). What still runs at the end is killed.
#ifndef TESTING_TERMINAL_SESSION_H_
#define TESTING_TERMINAL_SESSION_H_

#include <sys/types.h>

#include <string>
#include <vector>

class TerminalSession {
 public:
  TerminalSession() = default;
  TerminalSession(const TerminalSession&) = delete;
  TerminalSession& operator=(const TerminalSession&) = delete;
  ~TerminalSession();

  // Starts `args` (the program first) with `environment` ("NAME=value")
  // added to this process's; false when no terminal could be made.
  bool Start(const std::vector<std::string>& args, const std::vector<std::string>& environment);
  // Reads what the terminal shows until `text` has come (true), or until
  // the program ends or `seconds` pass without it (false).
  bool ReadUntil(const std::string& text, int seconds = 20);
  // Reads what the terminal shows in the next `milliseconds`, or until the
  // program ends.
  void ReadFor(int milliseconds);
  // Types `keys`; false when they could not all be written.
  bool Type(const std::string& keys);
  // Waits up to `seconds` for the program's end: its exit status, or -1
  // when it did not end (it is killed) or ended by a signal.
  int Wait(int seconds = 5);

  // How often `line` stands as a whole line in what was shown.
  size_t Count(const std::string& line) const;
  const std::string& Shown() const { return shown_; }
  pid_t Pid() const { return child_; }

 private:
  // Reads what has come within `timeoutMs`: 1 something, 0 nothing, -1 the
  // terminal is closed (the program ended).
  int ReadSome(int timeoutMs);

  std::string shown_;  // what the terminal showed, line feeds only
  pid_t child_ = -1;   // the program while it runs
  int terminal_ = -1;  // our side of its terminal
};

#endif  // TESTING_TERMINAL_SESSION_H_
