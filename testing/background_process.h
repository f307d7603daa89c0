// A server that a test starts beside the program it tests (speech-dispatcher,
// BRLTTY): standard input from /dev/null, its output into a log file, and
// stopped when the test ends, if it still runs.
#ifndef TESTING_BACKGROUND_PROCESS_H_
#define TESTING_BACKGROUND_PROCESS_H_

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

class BackgroundProcess {
 public:
  BackgroundProcess() = default;
  BackgroundProcess(const BackgroundProcess&) = delete;
  BackgroundProcess& operator=(const BackgroundProcess&) = delete;
  ~BackgroundProcess() { Stop(); }

  // Starts `args` (the program's path first); false when it could not be.
  bool Start(const std::vector<std::string>& args, const std::filesystem::path& log);
  // Ends it with SIGTERM and waits for it (SIGKILL after a few seconds).
  void Stop();
  // Kills it at once, as a server that dies; waits for it.
  void Kill();
  // Waits for an end that happened without us; forgets the process.
  void Reap();
  pid_t Pid() const { return pid_; }

 private:
  pid_t pid_ = -1;  // while it runs
};

#endif  // TESTING_BACKGROUND_PROCESS_H_
