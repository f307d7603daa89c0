// One wait over the terminal's keys and a display's: keys from either in
// the order they come, routing keys through a panned window, and a display
// that goes away while the reader waits.
#include "taskman/input_wait.h"

#include <brlapi_constants.h>
#include <brlapi_keycodes.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <thread>

#include "app/frame_ids.h"
#include "controls/control_keys.h"
#include "testing/fake_braille_display.h"
#include "testing/notice_stream.h"

namespace {

// One cell a unit.
std::u16string Cells(std::u16string_view text, std::vector<int>& sources) {
  sources.resize(text.size());
  for (size_t at = 0; at < text.size(); ++at) sources[at] = static_cast<int>(at);
  return std::u16string(text.size(), u'\u2801');
}

constexpr uint64_t Command(uint64_t command) { return BRLAPI_KEY_TYPE_CMD | command; }

// A terminal and a display, each a pipe the test writes to.
class InputWaitTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(pipe(terminal_), 0);
    ASSERT_EQ(pipe2(displayPipe_, O_NONBLOCK), 0);
    display_->descriptor = displayPipe_[0];
    ASSERT_TRUE(braille_.Start());
  }
  void TearDown() override {
    for (int end : {terminal_[0], terminal_[1], displayPipe_[0], displayPipe_[1]})
      if (end >= 0) close(end);
  }
  // The display has keys for the reader.
  void Press(std::vector<uint64_t> keys) {
    display_->keys.insert(display_->keys.end(), keys.begin(), keys.end());
    ASSERT_EQ(write(displayPipe_[1], "k", 1), 1);
  }
  void Type(const std::string& bytes) {
    ASSERT_EQ(write(terminal_[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }

  int terminal_[2] = {-1, -1};
  int displayPipe_[2] = {-1, -1};
  std::shared_ptr<FakeDisplay> display_ = std::make_shared<FakeDisplay>(8);
  Notices notices_;
  BraillePresenter braille_{display_, Cells, notices_.File(), std::chrono::milliseconds(1)};
};

TEST_F(InputWaitTest, KeysOfEitherComeInOneWaitAndRoutingFollowsThePannedWindow) {
  TerminalKeys keys(terminal_[0]);
  InputWait wait(keys, &braille_);
  braille_.ShowBraille(u"ABCDEFGHIJ");  // ten cells on a display of eight
  TaskAction action;

  Press({Command(BRLAPI_KEY_CMD_LNDN), Command(BRLAPI_KEY_CMD_PASSDOTS | 0x25),
         Command(BRLAPI_KEY_CMD_ROUTE | 2)});
  ASSERT_TRUE(wait.Next(action));
  EXPECT_EQ(action.kind, TaskAction::kKey);
  EXPECT_EQ(action.number, static_cast<uint32_t>(CK_NEXT));
  ASSERT_TRUE(wait.Next(action));
  EXPECT_EQ(action.kind, TaskAction::kDots);
  EXPECT_EQ(action.text, CString(u"\x25"));
  ASSERT_TRUE(wait.Next(action));
  EXPECT_EQ(action.kind, TaskAction::kCursor);
  EXPECT_EQ(action.number, 2u);

  // Nothing waits: a key typed at the terminal ends the wait, and one on
  // the display does too.
  std::thread typist([this]() {
    usleep(50000);
    Type("x");
  });
  ASSERT_TRUE(wait.Next(action));
  typist.join();
  EXPECT_EQ(action.kind, TaskAction::kText);
  EXPECT_EQ(action.text, CString(u"x"));
  std::thread reader([this]() {
    usleep(50000);
    Press({Command(BRLAPI_KEY_CMD_FWINRT), Command(BRLAPI_KEY_CMD_ROUTE | 1)});
  });
  ASSERT_TRUE(wait.Next(action));
  reader.join();
  // Panned on by eight: the second cell of the window is the tenth unit.
  EXPECT_EQ(braille_.WindowStart(), 8);
  EXPECT_EQ(action.kind, TaskAction::kCursor);
  EXPECT_EQ(action.number, 9u);

  // Both at once: the terminal's key first, then the display's.
  Type("y");
  Press({Command(BRLAPI_KEY_CMD_LNUP)});
  ASSERT_TRUE(wait.Next(action));
  EXPECT_EQ(action.text, CString(u"y"));
  ASSERT_TRUE(wait.Next(action));
  EXPECT_EQ(action.number, static_cast<uint32_t>(CK_PREV));

  close(terminal_[1]);
  terminal_[1] = -1;
  EXPECT_FALSE(wait.Next(action));  // the end of the terminal's input
  EXPECT_EQ(notices_.Text(), "");
}

// BRLTTY goes away and comes back, first refusing, then taking the
// connection and answering only after a long while: the loss is told, the
// terminal's keys go on while the display is tried again, and once it
// opens the wait wakes, without a key, to show the line on it, told once.
TEST_F(InputWaitTest, KeysComeWhileALostDisplayIsTriedAgainAndItIsTakenOnceItOpens) {
  TerminalKeys keys(terminal_[0]);
  InputWait wait(keys, &braille_);
  braille_.ShowBraille(u"AB");
  display_->keysLost = true;
  display_->Refuse(3);
  display_->Hold();
  ASSERT_EQ(write(displayPipe_[1], "k", 1), 1);  // BRLTTY went away
  // A key typed while the display is tried again, its open hanging.
  std::thread typist([this]() {
    if (display_->AwaitOpening()) Type("a");
  });
  TaskAction action;
  ASSERT_TRUE(wait.Next(action));
  typist.join();
  EXPECT_EQ(action.text, CString(u"a"));
  EXPECT_FALSE(braille_.Connected());

  // Let go, it is refused three times more and then opens; a key is
  // typed only once the line is on the display again.
  display_->Let();
  typist = std::thread([this]() {
    for (int waited = 0; display_->writes < 2 && waited < 10000; waited += 5) usleep(5000);
    Type("\t");
  });
  ASSERT_TRUE(wait.Next(action));
  typist.join();
  EXPECT_EQ(display_->writes, 2);  // before the key, which ends the wait
  EXPECT_EQ(action.number, static_cast<uint32_t>(KEY_NEXT_CTRL));
  EXPECT_TRUE(braille_.Connected());
  EXPECT_EQ(display_->Opened(), 2);  // at the start and now
  EXPECT_EQ(display_->written, (std::vector<std::u16string>{u"⠁⠁", u"⠁⠁"}));
  EXPECT_EQ(notices_.Text(),
            "epwingdict: the Braille display of fake was lost (gone); Braille goes on on the "
            "terminal until it is back\n"
            "epwingdict: the Braille display of fake is back\n");
}

// Ctrl-Z in a process of its own, on a pseudo-terminal: the display is
// given back before the process stops and taken again, showing the line,
// once it is continued; the key typed before goes on to the reader. Once
// the display is lost and its open hangs, Ctrl-Z still stops at once.
TEST(InputWaitStopTest, CtrlZGivesTheDisplayBackUntilTheProcessIsContinued) {
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const int leader = posix_openpt(O_RDWR | O_NOCTTY);
    if (leader < 0 || grantpt(leader) != 0 || unlockpt(leader) != 0) _exit(2);
    const int follower = open(ptsname(leader), O_RDWR | O_NOCTTY);
    auto display = std::make_shared<FakeDisplay>(8);
    Notices notices;
    BraillePresenter braille(display, Cells, notices.File(), std::chrono::milliseconds(1));
    if (follower < 0 || !braille.Start()) _exit(2);
    TerminalKeys keys(follower);
    InputWait wait(keys, &braille);
    braille.ShowBraille(u"AB");
    if (write(leader, "\t", 1) != 1) _exit(2);
    raise(SIGTSTP);  // only noted: the process goes on to its wait
    TaskAction action;
    const bool shown = display->written == std::vector<std::u16string>{u"⠁⠁"};
    const bool next = wait.Next(action) && action.number == KEY_NEXT_CTRL;
    const bool again = display->written == std::vector<std::u16string>{u"⠁⠁", u"(released)", u"⠁⠁"};

    display->Hold();
    display->failAt = 4;
    braille.ShowBraille(u"CD");
    if (braille.Connected() || !display->AwaitOpening() || write(leader, "\t", 1) != 1) _exit(2);
    raise(SIGTSTP);
    const bool stoppedWhileOpening = wait.Next(action) && action.number == KEY_NEXT_CTRL;
    _exit(shown && next && again && stoppedWhileOpening ? 0 : 1);
  }
  int status = 0;
  for (int stop = 0; stop < 2; ++stop) {
    ASSERT_EQ(waitpid(child, &status, WUNTRACED), child);
    ASSERT_TRUE(WIFSTOPPED(status)) << status;
    kill(child, SIGCONT);
  }
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}

}  // namespace
