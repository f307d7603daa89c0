#include "taskman/terminal_keys.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <iterator>

#include "app/frame_ids.h"
#include "controls/control_keys.h"
#include "platform/utf8_text.h"

namespace {

constexpr char kEscape = '\x1b';
constexpr int kEscapeWaitMs = 50;  // a lone Esc is one with nothing behind it by then

// What a key delivers: a key code, or a reading message.
struct KeyAction {
  TaskAction::Kind kind;  // kKey, kReadAll or kReadStop
  uint32_t code;          // the key code of a kKey
};
constexpr KeyAction Key(uint32_t code) { return {TaskAction::kKey, code}; }
constexpr KeyAction kReadAll{TaskAction::kReadAll, 0};
constexpr KeyAction kReadStop{TaskAction::kReadStop, 0};

// Control characters and what they deliver.
struct ControlKey {
  char byte;         // what the terminal sends
  KeyAction action;  // what it delivers
};
constexpr ControlKey kControlKeys[] = {
    {'\t', Key(KEY_NEXT_CTRL)},    {'\r', Key(CK_ENTER)},       {'\n', Key(CK_ENTER)},
    {'\x11', Key(CK_EXIT)},        {'\x0f', Key(KEY_MENU)},     {'\x05', Key(CK_POPUP)},
    {'\x17', Key(CK_POPUP_CLOSE)}, {'\x19', Key(CK_YES)},       {'\x16', Key(CK_NEXT_VALUE)},
    {'\x7f', Key(CK_BACKSPACE)},   {'\x08', Key(CK_BACKSPACE)}, {'\x10', Key(CK_POSITION)},
    {'\x12', kReadAll},            {'\x14', kReadStop},
};

// Escape sequences (behind ESC) and what they deliver.
struct EscapeKey {
  const char* sequence;  // what follows ESC
  KeyAction action;      // what it delivers
};
constexpr EscapeKey kEscapeKeys[] = {
    {"[A", Key(CK_PREV)},        {"[B", Key(CK_NEXT)},          {"[C", Key(CK_CHAR_RIGHT)},
    {"[D", Key(CK_CHAR_LEFT)},   {"[H", Key(CK_LINE_START)},    {"[F", Key(CK_LINE_END)},
    {"OH", Key(CK_LINE_START)},  {"OF", Key(CK_LINE_END)},      {"[1~", Key(CK_LINE_START)},
    {"[4~", Key(CK_LINE_END)},   {"[3~", Key(CK_DELETE)},       {"[5~", Key(CK_PREV_ALT)},
    {"[6~", Key(CK_NEXT_ALT)},   {"[Z", Key(KEY_PREV_CTRL)},    {"[21~", Key(CK_EXIT)},
    {"OQ", Key(KEY_MENU)},       {"[12~", Key(KEY_MENU)},       {"[15~", Key(CK_NEXT_VALUE)},
    {"OA", Key(CK_PREV)},        {"OB", Key(CK_NEXT)},          {"OC", Key(CK_CHAR_RIGHT)},
    {"OD", Key(CK_CHAR_LEFT)},   {"OP", Key(CK_HELP)},          {"[11~", Key(CK_HELP)},
    {"OR", Key(CK_POSITION)},    {"[13~", Key(CK_POSITION)},    {"[17~", kReadAll},
    {"[18~", kReadStop},
};

// The action of `key`; a stop of reading goes where the speech got to.
TaskAction ActionOf(const KeyAction& key) {
  TaskAction action;
  action.kind = key.kind;
  action.number = key.code;
  if (key.kind == TaskAction::kReadStop) action.value = -1;
  return action;
}

// The terminal that a TerminalKeys holds, for the signal handlers: Ctrl-Z
// gives the terminal back as it was before the process stops, and the
// continuation takes it over again.
int heldFd = -1;
struct termios heldSaved{};
struct termios heldRaw{};
struct sigaction previousStop{};
struct sigaction previousContinue{};
// Signals that end the process (Ctrl-C, a closed terminal, kill), and what
// they did before: they leave the terminal as it was, then end it as before.
constexpr int kEndSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};
struct sigaction previousEnd[4]{};
// Deferred stops: a byte in the pipe (read end [0]) for each Ctrl-Z not
// yet acted on; {-1, -1} while stops are not deferred.
int stopPipe[2] = {-1, -1};
volatile sig_atomic_t stopAsked = 0;

void OnStop(int) {
  const int savedErrno = errno;
  if (stopPipe[1] >= 0) {
    stopAsked = 1;
    const char note = 'z';
    (void)!write(stopPipe[1], &note, 1);
  } else {
    tcsetattr(heldFd, TCSANOW, &heldSaved);
    kill(getpid(), SIGSTOP);
  }
  errno = savedErrno;
}

void OnEnd(int signal) {
  tcsetattr(heldFd, TCSANOW, &heldSaved);
  for (size_t i = 0; i < std::size(kEndSignals); ++i)
    if (kEndSignals[i] == signal) sigaction(signal, &previousEnd[i], nullptr);
  raise(signal);
}

// Also after a stop from elsewhere: the shell may have reset the mode.
void OnContinue(int) {
  const int savedErrno = errno;
  tcsetattr(heldFd, TCSANOW, &heldRaw);
  errno = savedErrno;
}

// Bytes of the escape sequence at the start of `bytes` (which begins with
// ESC): CSI runs to a final byte 0x40-0x7E, SS3 takes one byte more. 0 when
// it is not complete yet.
size_t EscapeLength(const std::string& bytes) {
  if (bytes.size() < 2) return 0;
  if (bytes[1] == 'O') return bytes.size() >= 3 ? 3 : 0;
  if (bytes[1] != '[') return 1;  // ESC and something else: the ESC alone
  for (size_t i = 2; i < bytes.size(); ++i)
    if (bytes[i] >= 0x40 && bytes[i] <= 0x7E) return i + 1;
  return 0;
}

bool IsTextByte(unsigned char byte) { return byte >= 0x20 && byte != 0x7f; }

}  // namespace

TerminalKeys::TerminalKeys(int fd) : fd_(fd) {
  if (tcgetattr(fd_, &saved_) != 0) return;
  struct termios raw = saved_;
  raw.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO | IEXTEN);
  raw.c_iflag &= ~static_cast<tcflag_t>(IXON | ICRNL);
  raw.c_cc[VMIN] = 1;
  raw.c_cc[VTIME] = 0;
  restore_ = tcsetattr(fd_, TCSANOW, &raw) == 0;
  if (!restore_ || heldFd >= 0) return;
  heldFd = fd_;
  heldSaved = saved_;
  heldRaw = raw;
  struct sigaction handler{};
  sigemptyset(&handler.sa_mask);
  handler.sa_flags = SA_RESTART;
  handler.sa_handler = OnStop;
  sigaction(SIGTSTP, &handler, &previousStop);
  handler.sa_handler = OnContinue;
  sigaction(SIGCONT, &handler, &previousContinue);
  handler.sa_handler = OnEnd;
  for (size_t i = 0; i < std::size(kEndSignals); ++i) {
    sigaction(kEndSignals[i], nullptr, &previousEnd[i]);
    if (previousEnd[i].sa_handler != SIG_IGN) sigaction(kEndSignals[i], &handler, nullptr);
  }
  holdsSignals_ = true;
}

TerminalKeys::~TerminalKeys() {
  if (holdsSignals_) {
    sigaction(SIGTSTP, &previousStop, nullptr);
    sigaction(SIGCONT, &previousContinue, nullptr);
    for (size_t i = 0; i < std::size(kEndSignals); ++i) sigaction(kEndSignals[i], &previousEnd[i], nullptr);
    heldFd = -1;
    for (int& end : stopPipe) {
      if (end >= 0) close(end);
      end = -1;
    }
    stopAsked = 0;
  }
  if (restore_) tcsetattr(fd_, TCSANOW, &saved_);
}

void TerminalKeys::DeferStops() {
  if (!holdsSignals_ || stopPipe[0] >= 0) return;
  int ends[2];
  if (pipe2(ends, O_NONBLOCK | O_CLOEXEC) != 0) return;  // stops stay immediate
  stopPipe[0] = ends[0];
  stopPipe[1] = ends[1];
}

int TerminalKeys::StopDescriptor() const { return holdsSignals_ ? stopPipe[0] : -1; }

bool TerminalKeys::StopPending() const { return holdsSignals_ && stopAsked != 0; }

void TerminalKeys::StopHere() {
  stopAsked = 0;
  char notes[64];
  while (stopPipe[0] >= 0 && read(stopPipe[0], notes, sizeof notes) > 0) {
  }
  if (restore_) tcsetattr(fd_, TCSANOW, &saved_);
  kill(getpid(), SIGSTOP);
  // OnContinue has taken the terminal over again by the time this returns.
}

// A signal (the continuation after Ctrl-Z, a resize) breaks off the wait
// without ending the input.
bool TerminalKeys::Fill(int timeoutMs) {
  if (ended_) return false;
  struct pollfd wait{fd_, POLLIN, 0};
  int ready;
  while ((ready = poll(&wait, 1, timeoutMs)) < 0 && errno == EINTR) {
  }
  if (ready <= 0) return false;
  char bytes[256];
  ssize_t got;
  while ((got = read(fd_, bytes, sizeof bytes)) < 0 && errno == EINTR) {
  }
  if (got <= 0) {
    ended_ = true;
    return false;
  }
  pending_.append(bytes, static_cast<size_t>(got));
  return true;
}

bool TerminalKeys::Next(TaskAction& action) {
  for (;;) {
    if (const int ready = Ready(action); ready != 0) return ready > 0;
    if (!Fill(-1)) return false;
  }
}

int TerminalKeys::Ready(TaskAction& action) {
  for (;;) {
    if (pending_.empty() && !Fill(0)) return ended_ ? -1 : 0;
    const int taken = Take(action);
    if (taken != 0) return taken;
  }
}

int TerminalKeys::Take(TaskAction& action) {
  const unsigned char first = static_cast<unsigned char>(pending_[0]);
  if (first == '\x04') {
    pending_.clear();
    return -1;
  }
  if (first == kEscape) return TakeEscape(action);
  action = TaskAction();
  for (const ControlKey& key : kControlKeys) {
    if (key.byte == pending_[0]) {
      action = ActionOf(key.action);
      pending_.erase(0, 1);
      return 1;
    }
  }
  if (!IsTextByte(first)) {
    pending_.erase(0, 1);
    return 0;
  }
  // A run of text up to the next control byte; a UTF-8 character cut off
  // at the end of what was read waits for its last bytes.
  size_t end = 0;
  while (end < pending_.size() && IsTextByte(static_cast<unsigned char>(pending_[end]))) ++end;
  if (end == pending_.size() && Utf8WholeLength(pending_) < end && Fill(kEscapeWaitMs)) return 0;
  action.kind = TaskAction::kText;
  action.text = FromUtf8(pending_.substr(0, end));
  pending_.erase(0, end);
  return 1;
}

int TerminalKeys::TakeEscape(TaskAction& action) {
  size_t length = EscapeLength(pending_);
  while (length == 0 && Fill(kEscapeWaitMs)) length = EscapeLength(pending_);
  action = TaskAction();
  if (length <= 1) {
    action.number = CK_BACK;
    pending_.erase(0, 1);
    return 1;
  }
  const std::string sequence = pending_.substr(1, length - 1);
  pending_.erase(0, length);
  for (const EscapeKey& key : kEscapeKeys) {
    if (sequence == key.sequence) {
      action = ActionOf(key.action);
      return 1;
    }
  }
  return 0;
}
