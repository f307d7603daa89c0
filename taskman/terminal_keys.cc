#include "taskman/terminal_keys.h"

#include <poll.h>
#include <unistd.h>

#include "app/frame_ids.h"
#include "controls/control_keys.h"
#include "platform/utf8_text.h"

const char kTerminalKeyHelp[] =
    "  Up / Down, PageUp / PageDown  24 / 48, 8192 / 16384: previous / next item or line\n"
    "  Tab / Shift-Tab               112 / 28: next / previous control\n"
    "  Enter                         256: activate, choose\n"
    "  Esc                           88: back\n"
    "  Ctrl-Q or F10                 218: exit (on the first screen: close, saving the settings)\n"
    "  Ctrl-O or F2                  58: menu\n"
    "  Ctrl-E                        41: the edit field's own menu\n"
    "  Ctrl-W                        106: close the edit field's menu\n"
    "  Ctrl-Y                        234: yes\n"
    "  Ctrl-V or F5                  16: next value of an option\n"
    "  Left / Right                  1024 / 2048: cursor one character back / on\n"
    "  Home / End                    512 / 32768: start / end of the line\n"
    "  Backspace / Delete            64 / 4096: delete before / at the cursor\n"
    "  Ctrl-D                        leave at once, without saving\n"
    "  any other text                typed into the focused field\n";

namespace {

constexpr char kEscape = '\x1b';
constexpr int kEscapeWaitMs = 50;  // a lone Esc is one with nothing behind it by then

// Control characters and their codes.
struct ControlKey {
  char byte;      // what the terminal sends
  uint32_t code;  // the key code
};
constexpr ControlKey kControlKeys[] = {
    {'\t', KEY_NEXT_CTRL}, {'\r', KEY_ENTER},      {'\n', KEY_ENTER},     {'\x11', KEY_EXIT},
    {'\x0f', KEY_MENU},    {'\x05', KEY_EDIT_POPUP}, {'\x17', KEY_EDIT_CLOSE}, {'\x19', KEY_YES},
    {'\x16', KEY_OPTION_VALUE}, {'\x7f', CK_BACKSPACE}, {'\x08', CK_BACKSPACE},
};

// Escape sequences (behind ESC) and their codes.
struct EscapeKey {
  const char* sequence;  // what follows ESC
  uint32_t code;         // the key code
};
constexpr EscapeKey kEscapeKeys[] = {
    {"[A", CK_PREV},        {"[B", CK_NEXT},         {"[C", CK_CHAR_RIGHT},
    {"[D", CK_CHAR_LEFT},   {"[H", CK_LINE_START},   {"[F", CK_LINE_END},
    {"OH", CK_LINE_START},  {"OF", CK_LINE_END},     {"[1~", CK_LINE_START},
    {"[4~", CK_LINE_END},   {"[3~", CK_DELETE},      {"[5~", CK_PREV_ALT},
    {"[6~", CK_NEXT_ALT},   {"[Z", KEY_PREV_CTRL},   {"[21~", KEY_EXIT},
    {"OQ", KEY_MENU},       {"[12~", KEY_MENU},      {"[15~", KEY_OPTION_VALUE},
    {"OA", CK_PREV},        {"OB", CK_NEXT},         {"OC", CK_CHAR_RIGHT},
    {"OD", CK_CHAR_LEFT},
};

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
}

TerminalKeys::~TerminalKeys() {
  if (restore_) tcsetattr(fd_, TCSANOW, &saved_);
}

bool TerminalKeys::Fill(int timeoutMs) {
  if (ended_) return false;
  struct pollfd wait{fd_, POLLIN, 0};
  if (poll(&wait, 1, timeoutMs) <= 0) return false;
  char bytes[256];
  const ssize_t got = read(fd_, bytes, sizeof bytes);
  if (got <= 0) {
    ended_ = true;
    return false;
  }
  pending_.append(bytes, static_cast<size_t>(got));
  return true;
}

bool TerminalKeys::Next(TaskAction& action) {
  for (;;) {
    if (pending_.empty() && !Fill(-1)) return false;
    const int taken = Take(action);
    if (taken < 0) return false;
    if (taken > 0) return true;
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
      action.number = key.code;
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
  size_t lead = end;
  while (lead > 0 && (static_cast<unsigned char>(pending_[lead - 1]) & 0xC0) == 0x80) --lead;
  if (lead > 0 && end == pending_.size()) {
    const unsigned char byte = static_cast<unsigned char>(pending_[lead - 1]);
    const size_t need = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
    if (end - (lead - 1) < need && Fill(kEscapeWaitMs)) return 0;
  }
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
    action.number = KEY_BACK;
    pending_.erase(0, 1);
    return 1;
  }
  const std::string sequence = pending_.substr(1, length - 1);
  pending_.erase(0, length);
  for (const EscapeKey& key : kEscapeKeys) {
    if (sequence == key.sequence) {
      action.number = key.code;
      return 1;
    }
  }
  return 0;
}
