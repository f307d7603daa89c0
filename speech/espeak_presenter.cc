#include "speech/espeak_presenter.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

#include "platform/utf8_text.h"

extern char** environ;

EspeakPresenter::~EspeakPresenter() { StopSpeech(); }

void EspeakPresenter::StopSpeech() {
  if (child_ <= 0) return;
  kill(child_, SIGTERM);
  waitpid(child_, nullptr, 0);
  child_ = -1;
}

void EspeakPresenter::Speak(const CString& text, bool sync) {
  StopSpeech();
  if (!available_ || text.IsEmpty()) return;
  std::string utf8 = ToUtf8(text);
  // "--" ends the options, so a text that starts with "-" is spoken.
  const char* argv[] = {"espeak-ng", "-v", "ja", "--", utf8.c_str(), nullptr};

  // The program's own messages would mix with the terminal's lines.
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t pid = -1;
  int failed = posix_spawnp(&pid, "espeak-ng", &actions, nullptr, const_cast<char**>(argv),
                            environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failed != 0) {
    available_ = false;
    return;
  }
  // A child that could not run the program ends at once with 127.
  int status = 0;
  if (sync || waitpid(pid, &status, WNOHANG) == pid) {
    if (sync) waitpid(pid, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == 127) available_ = false;
    return;
  }
  child_ = pid;
}
