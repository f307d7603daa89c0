#include "results/bounded_run.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <thread>

namespace {

[[noreturn]] void RunChild(const std::function<void()>& work, const RunLimits& limits) {
  const int nothing = open("/dev/null", O_RDONLY);
  if (nothing >= 0) {
    dup2(nothing, STDIN_FILENO);
    close(nothing);
  }
  // Writing past the limit ends the child at once (SIGXFSZ), with no core.
  std::signal(SIGXFSZ, SIG_DFL);
  const rlim_t bytes = static_cast<rlim_t>(limits.fileBytes);
  const rlimit fileSize{bytes, bytes};
  setrlimit(RLIMIT_FSIZE, &fileSize);
  const rlimit noCore{0, 0};
  setrlimit(RLIMIT_CORE, &noCore);
  // Should the caller be gone, the child still ends, a second later.
  alarm(static_cast<unsigned>(limits.milliseconds / 1000 + 2));
  work();
  // Only the standard streams: another thread of the caller (a speech
  // client's reader) may have held a stream's lock at the fork, and that
  // lock stays taken here for ever.
  std::fflush(stdout);
  std::fflush(stderr);
  _exit(0);
}

RunEnd EndOf(int status) {
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return RunEnd::kFinished;
  if (WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ) return RunEnd::kFileLimit;
  return RunEnd::kFailed;
}

}  // namespace

RunEnd RunBounded(const std::function<void()>& work, const RunLimits& limits) {
  // What waits in the caller's buffers is written once, by the caller. Not
  // every stream: one that a thread of a client library blocks reading
  // (speech-dispatcher's) would hold this thread too.
  std::fflush(stdout);
  std::fflush(stderr);
  const pid_t child = fork();
  // No process to bound it in (the machine out of processes): the work is
  // not run at all rather than run without its limits.
  if (child < 0) return RunEnd::kFailed;
  if (child == 0) RunChild(work, limits);

  using Clock = std::chrono::steady_clock;
  const Clock::time_point deadline = Clock::now() + std::chrono::milliseconds(limits.milliseconds);
  const auto stop = [child] {
    int status = 0;
    kill(child, SIGKILL);
    waitpid(child, &status, 0);
    return RunEnd::kTimedOut;
  };
  // The child's end wakes the caller at once through a descriptor of the
  // process, where the kernel has them.
  const int process = static_cast<int>(syscall(SYS_pidfd_open, child, 0));
  if (process >= 0) {
    pollfd ended{process, POLLIN, 0};
    for (;;) {
      const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
      const int ready = poll(&ended, 1, static_cast<int>(std::max<int64_t>(left.count(), 0)));
      if (ready > 0) break;
      if (ready < 0 && errno == EINTR) continue;
      close(process);
      return stop();
    }
    close(process);
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
      if (errno != EINTR) return RunEnd::kFailed;
    }
    return EndOf(status);
  }
  // Else short naps at first, for most runs end within a few milliseconds.
  std::chrono::microseconds nap(100);
  for (;;) {
    int status = 0;
    const pid_t ended = waitpid(child, &status, WNOHANG);
    if (ended == child) return EndOf(status);
    if (ended < 0 && errno != EINTR) return RunEnd::kFailed;
    if (Clock::now() >= deadline) return stop();
    std::this_thread::sleep_for(nap);
    nap = std::min<std::chrono::microseconds>(nap * 2, std::chrono::milliseconds(10));
  }
}
