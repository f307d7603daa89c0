#include "testing/background_process.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

extern char** environ;

bool BackgroundProcess::Start(const std::vector<std::string>& args,
                              const std::filesystem::path& log) {
  std::vector<char*> argv;
  for (const std::string& arg : args) argv.push_back(const_cast<char*>(arg.c_str()));
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, log.c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC, 0644);
  posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
  const int failed = posix_spawn(&pid_, argv[0], &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failed != 0) pid_ = -1;
  return failed == 0;
}

void BackgroundProcess::Stop() {
  if (pid_ <= 0) return;
  kill(pid_, SIGTERM);
  for (int tries = 0; tries < 100; ++tries) {
    if (waitpid(pid_, nullptr, WNOHANG) == pid_) {
      pid_ = -1;
      return;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  Kill();
}

void BackgroundProcess::Kill() {
  if (pid_ <= 0) return;
  kill(pid_, SIGKILL);
  Reap();
}

void BackgroundProcess::Reap() {
  if (pid_ > 0) waitpid(pid_, nullptr, 0);
  pid_ = -1;
}
