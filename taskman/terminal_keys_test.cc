// The terminal's keyboard on a pseudo-terminal: keys to actions, and the
// terminal mode across signals.
#include "taskman/terminal_keys.h"

#include <gtest/gtest.h>
#include <fcntl.h>
#include <signal.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <string>
#include <thread>

#include "controls/control_keys.h"
#include "taskman/keyboard_map.h"

namespace {

// A pseudo-terminal: the program reads the follower, the test types into
// the leader.
class PseudoTerminal {
 public:
  PseudoTerminal() {
    leader = posix_openpt(O_RDWR | O_NOCTTY);
    if (leader < 0 || grantpt(leader) != 0 || unlockpt(leader) != 0) return;
    follower = open(ptsname(leader), O_RDWR | O_NOCTTY);
  }
  ~PseudoTerminal() {
    if (follower >= 0) close(follower);
    if (leader >= 0) close(leader);
  }
  void Type(const std::string& bytes) {
    ASSERT_EQ(write(leader, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }
  bool Raw() const {
    struct termios mode{};
    tcgetattr(follower, &mode);
    return (mode.c_lflag & (ICANON | ECHO)) == 0;
  }
  int leader = -1;
  int follower = -1;
};

TEST(TerminalKeysTest, FunctionKeysGiveHelpPositionAndReading) {
  PseudoTerminal terminal;
  ASSERT_GE(terminal.follower, 0);
  TerminalKeys keys(terminal.follower);
  terminal.Type("\x1bOP\x10\x12\x1b[18~?\x04");
  TaskAction action;
  ASSERT_TRUE(keys.Next(action));
  EXPECT_EQ(action.number, CK_HELP);
  ASSERT_TRUE(keys.Next(action));
  EXPECT_EQ(action.number, CK_POSITION);
  ASSERT_TRUE(keys.Next(action));
  EXPECT_EQ(action.kind, TaskAction::kReadAll);
  ASSERT_TRUE(keys.Next(action));
  EXPECT_EQ(action.kind, TaskAction::kReadStop);
  EXPECT_EQ(action.value, -1);  // where the speech got to
  ASSERT_TRUE(keys.Next(action));
  EXPECT_EQ(action.kind, TaskAction::kText);
  EXPECT_FALSE(keys.Next(action));
}

TEST(TerminalKeysTest, TheModeComesBackAfterAStopAndASignalEndsNoWait) {
  PseudoTerminal terminal;
  ASSERT_GE(terminal.follower, 0);
  {
    TerminalKeys keys(terminal.follower);
    EXPECT_TRUE(terminal.Raw());
    // A shell puts its own mode back while the process is stopped; the
    // continuation takes the terminal over again.
    struct termios cooked{};
    tcgetattr(terminal.follower, &cooked);
    cooked.c_lflag |= ICANON | ECHO;
    tcsetattr(terminal.follower, TCSANOW, &cooked);
    raise(SIGCONT);
    EXPECT_TRUE(terminal.Raw());

    // Signals while waiting for a key don't end the input.
    std::thread later([&terminal]() {
      usleep(50000);
      kill(getpid(), SIGCONT);
      usleep(50000);
      terminal.Type("\t");
    });
    TaskAction action;
    EXPECT_TRUE(keys.Next(action));
    EXPECT_EQ(action.number, 112u);
    later.join();
  }
  EXPECT_FALSE(terminal.Raw());  // given back as it was
}

TEST(KeyboardMapTest, HelpNamesKeysFirstAndTheGuideSpeaksTheirNames) {
  const std::string help = KeyboardHelp();
  EXPECT_NE(help.find("  F1              help"), std::string::npos) << help;
  EXPECT_NE(help.find("  Tab             next control [112]\n"), std::string::npos) << help;
  KeyboardGuide guide;
  EXPECT_EQ(guide.KeyName(CK_PREV), CString(u"上矢印"));
  EXPECT_TRUE(guide.KeyName(999).IsEmpty());
  // The common keys: those that work on every control, reading included.
  bool reading = false;
  for (const NamedKey& key : guide.CommonKeys()) reading = reading || key.key == CString(u"F6");
  EXPECT_TRUE(reading);
}

}  // namespace
