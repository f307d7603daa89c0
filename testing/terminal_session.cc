#include "testing/terminal_session.h"

#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>

TerminalSession::~TerminalSession() {
  if (child_ > 0) {
    kill(child_, SIGKILL);
    waitpid(child_, nullptr, 0);
  }
  if (terminal_ >= 0) close(terminal_);
}

bool TerminalSession::Start(const std::vector<std::string>& args,
                            const std::vector<std::string>& environment) {
  child_ = forkpty(&terminal_, nullptr, nullptr, nullptr);
  if (child_ < 0) return false;
  if (child_ == 0) {
    for (const std::string& setting : environment) putenv(const_cast<char*>(setting.c_str()));
    std::vector<char*> argv;
    for (const std::string& arg : args) argv.push_back(const_cast<char*>(arg.c_str()));
    argv.push_back(nullptr);
    execv(argv[0], argv.data());
    _exit(127);
  }
  return true;
}

bool TerminalSession::ReadUntil(const std::string& text, int seconds) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
  while (shown_.find(text) == std::string::npos) {
    if (std::chrono::steady_clock::now() > deadline || ReadSome(200) < 0) return false;
  }
  return true;
}

void TerminalSession::ReadFor(int milliseconds) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
  while (std::chrono::steady_clock::now() < deadline && ReadSome(50) >= 0) {
  }
}

int TerminalSession::ReadSome(int timeoutMs) {
  pollfd fd = {terminal_, POLLIN, 0};
  if (poll(&fd, 1, timeoutMs) <= 0) return 0;
  char buffer[4096];
  const ssize_t got = read(terminal_, buffer, sizeof buffer);
  if (got <= 0) return -1;
  for (ssize_t i = 0; i < got; ++i)
    if (buffer[i] != '\r') shown_ += buffer[i];
  return 1;
}

bool TerminalSession::Type(const std::string& keys) {
  return write(terminal_, keys.data(), keys.size()) == static_cast<ssize_t>(keys.size());
}

int TerminalSession::Wait(int seconds) {
  if (child_ <= 0) return -1;
  int status = 0;
  pid_t ended = 0;
  for (int tries = 0; tries < seconds * 20 && ended == 0; ++tries) {
    ended = waitpid(child_, &status, WNOHANG);
    if (ended == 0) usleep(50000);
  }
  if (ended != child_) return -1;  // the destructor kills it
  child_ = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

size_t TerminalSession::Count(const std::string& line) const {
  size_t count = 0;
  const std::string lines = "\n" + shown_;
  for (size_t at = 0; (at = lines.find("\n" + line + "\n", at)) != std::string::npos; ++at) ++count;
  return count;
}
