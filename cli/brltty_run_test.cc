// The reader against a real BRLTTY that the test starts, with its Virtual
// driver standing for the display: BRLTTY connects to a socket of the test
// and sends it each line of cells it shows ("Braille "1246|356| |..."");
// the test sends it display keys back ("LnDn", "Route 2", "PassDots 37").
// The reader runs at a terminal of its own with --braille brlapi, reaching
// BRLTTY through BrlAPI on a private TCP port with no key. Skipped, saying
// why, where BRLTTY is not installed.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "testing/background_process.h"
#include "testing/epwingdict_runner.h"
#include "testing/terminal_session.h"

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kPatience = std::chrono::seconds(20);  // for anything to come, on a loaded machine

const char* const kBrlttyPaths[] = {"/usr/sbin/brltty", "/usr/bin/brltty", "/sbin/brltty",
                                    "/bin/brltty"};
constexpr int kBrlapiBasePort = 4101;  // BrlAPI's "host:N" is TCP port 4101 + N

sockaddr_in Loopback(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<uint16_t>(port));
  return address;
}

// A listening TCP socket on the loopback; 0 as `port` takes any free one.
int Listen(int port) {
  const int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address = Loopback(port);
  if (fd < 0 || bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
      listen(fd, 1) != 0) {
    if (fd >= 0) close(fd);
    return -1;
  }
  return fd;
}

int PortOf(int fd) {
  sockaddr_in address{};
  socklen_t size = sizeof address;
  getsockname(fd, reinterpret_cast<sockaddr*>(&address), &size);
  return ntohs(address.sin_port);
}

// True when something listens on `port` of the loopback.
bool Accepts(int port) {
  const int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address = Loopback(port);
  const bool connected = connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
  close(fd);
  return connected;
}

// A cell of the Virtual driver's lines, "1246" or " ", as a Unicode
// Braille pattern; dots 7 and 8 (BRLTTY's cursor) go to `cursor`.
char16_t CellOf(const std::string& dots, bool& cursor) {
  unsigned bits = 0;
  for (char dot : dots)
    if (dot >= '1' && dot <= '8') bits |= 1u << (dot - '1');
  cursor = (bits & 0xC0) != 0;
  return static_cast<char16_t>(0x2800 + (bits & 0x3F));
}

// The display as the Virtual driver's client: what BRLTTY shows on it,
// and its keys.
class VirtualDisplay {
 public:
  ~VirtualDisplay() {
    for (int fd : {listener_, connection_})
      if (fd >= 0) close(fd);
  }
  // Listens on a free port of the loopback; 0 when it cannot.
  int Listen() {
    listener_ = ::Listen(0);
    return listener_ < 0 ? 0 : PortOf(listener_);
  }
  // Takes BRLTTY's connection (a new one when BRLTTY has started again)
  // and tells it the display's width.
  bool Connect(int width) {
    if (connection_ >= 0) close(connection_);
    connection_ = -1;
    pending_.clear();
    seen_ = false;
    pollfd wait{listener_, POLLIN, 0};
    if (poll(&wait, 1, static_cast<int>(kPatience / std::chrono::milliseconds(1))) != 1) return false;
    connection_ = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    return connection_ >= 0 && Send("cells " + std::to_string(width));
  }
  bool Send(const std::string& command) {
    const std::string line = command + "\n";
    return write(connection_, line.data(), line.size()) == static_cast<ssize_t>(line.size());
  }
  // Reads BRLTTY's lines until the cells shown satisfy `shows` (true), or
  // until BRLTTY has gone or shown nothing that does for long (false).
  bool WaitUntil(const std::function<bool(const std::u16string& cells, int cursor)>& shows) {
    const auto deadline = Clock::now() + kPatience;
    while (!(seen_ && shows(cells_, cursor_))) {
      const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
      if (left.count() <= 0 || !ReadLine(static_cast<int>(left.count()))) return false;
    }
    return true;
  }
  // Waits for these cells, as many as fit, the rest of the display blank.
  bool WaitForCells(const std::u16string& cells) {
    return WaitUntil([&](const std::u16string& shown, int) {
      std::u16string expected = cells.substr(0, shown.size());
      expected.resize(shown.size(), u'\u2800');
      return shown == expected;
    });
  }
  const std::u16string& Cells() const { return cells_; }

 private:
  // One more line from BRLTTY; false when none came in `timeoutMs` or the
  // connection ended.
  bool ReadLine(int timeoutMs) {
    size_t end;
    while ((end = pending_.find('\n')) == std::string::npos) {
      pollfd wait{connection_, POLLIN, 0};
      if (poll(&wait, 1, timeoutMs) != 1) return false;
      char bytes[4096];
      const ssize_t got = read(connection_, bytes, sizeof bytes);
      if (got <= 0) return false;
      pending_.append(bytes, static_cast<size_t>(got));
    }
    const std::string line = pending_.substr(0, end);
    pending_.erase(0, end + 1);
    const std::string prefix = "Braille \"";
    if (line.rfind(prefix, 0) != 0) return true;
    std::istringstream cells(line.substr(prefix.size(), line.size() - prefix.size() - 1));
    cells_.clear();
    cursor_ = -1;
    for (std::string cell; std::getline(cells, cell, '|');) {
      bool cursor = false;
      cells_ += CellOf(cell, cursor);
      if (cursor) cursor_ = static_cast<int>(cells_.size()) - 1;
    }
    seen_ = true;
    return true;
  }

  int listener_ = -1;     // where BRLTTY connects
  int connection_ = -1;   // BRLTTY, once connected
  std::string pending_;   // bytes of a line not yet complete
  std::u16string cells_;  // the cells shown last, without the cursor's dots
  int cursor_ = -1;       // the cell of the cursor in cells_, -1 none (or blinked off)
  bool seen_ = false;     // a line of cells has come
};

class BrlttyRunTest : public EpwingdictRunner {
 protected:
  void SetUp() override {
    EpwingdictRunner::SetUp();
    if (IsSkipped()) return;
    for (const char* path : kBrlttyPaths)
      if (access(path, X_OK) == 0) brltty_ = path;
    if (brltty_.empty())
      GTEST_SKIP() << "brltty is not installed (scripts/install-deps.sh installs it)";
  }

  // Starts BRLTTY with the Virtual driver on a display of `width` cells,
  // then the reader at a terminal, on its first screen.
  void Start(int width) {
    StartServer(width);
    if (!HasFatalFailure()) StartReader();
  }

  // Starts BRLTTY on a display of `width` cells and a free BrlAPI port.
  void StartServer(int width) {
    width_ = width;
    displayPort_ = display_.Listen();
    ASSERT_NE(displayPort_, 0);
    // BrlAPI's port: the first free one from a number of this process's.
    for (int tries = 0; tries < 200 && server_ < 0; ++tries) {
      const int number = 100 + (getpid() + tries) % 800;
      const int probe = Listen(kBrlapiBasePort + number);
      if (probe >= 0) {
        close(probe);
        server_ = number;
      }
    }
    ASSERT_GE(server_, 0) << "no free port for BrlAPI";
    StartBrltty();
  }

  // Starts the reader at a terminal of its own, using BRLTTY's display,
  // and waits for its first screen.
  void StartReader() {
    std::filesystem::create_directories(work / "run" / "epwingdict");
    ASSERT_TRUE(terminal_.Start({program.string(), "--card", card.string(), "--home", work.string(),
                                 "--speech", "none", "--braille", "brlapi"},
                                {"XDG_RUNTIME_DIR=" + (work / "run").string(),
                                 "BRLAPI_HOST=127.0.0.1:" + std::to_string(server_),
                                 "BRLAPI_AUTH=none"}));
    ASSERT_TRUE(terminal_.ReadUntil("辞書選択:プラス辞典/ことわざ小辞典\n")) << Shown();
  }

  // Starts BRLTTY (again) on the display and BrlAPI port of the test,
  // and waits until it shows cells.
  void StartBrltty() {
    const std::filesystem::path folder = work / "brltty";
    std::filesystem::create_directories(folder);
    brlttyLog_ = folder / "log.txt";
    // No configuration file, no speech, no screen; writes go to its folder.
    ASSERT_TRUE(brlttyProcess_.Start(
        {brltty_, "-n", "-q", "-e", "-l", "warning", "-f", "/dev/null", "-P",
         (folder / "pid").string(), "-W", folder.string(), "-U", folder.string(), "-s", "no",
         "-x", "no", "-b", "vr", "-d", "client:127.0.0.1:" + std::to_string(displayPort_), "-A",
         "host=127.0.0.1:" + std::to_string(server_) + ",auth=none"},
        brlttyLog_));
    ASSERT_TRUE(display_.Connect(width_)) << "BRLTTY did not connect: " << BrlttyLog();
    const auto deadline = Clock::now() + kPatience;
    while (!Accepts(kBrlapiBasePort + server_) && Clock::now() < deadline)
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    ASSERT_TRUE(Accepts(kBrlapiBasePort + server_)) << "BrlAPI does not listen: " << BrlttyLog();
    // BrlAPI may listen before the driver has its cells: the first line of
    // cells on the display says it has.
    ASSERT_TRUE(display_.WaitUntil([](const std::u16string&, int) { return true; }))
        << "BRLTTY shows nothing: " << BrlttyLog();
  }

  // Leaves at once (Ctrl-D), as the reader ends well.
  void Leave() {
    terminal_.Type("\x04");
    EXPECT_EQ(terminal_.Wait(), 0) << Shown();
  }

  std::string BrlttyLog() const { return ReadWholeFile(brlttyLog_); }
  // What the terminal showed (and shows within a moment more), the
  // display's last cells and BRLTTY's log, for a failure.
  std::string Shown() {
    terminal_.ReadFor(200);
    std::string cells;
    for (char16_t cell : display_.Cells())
      cells += {static_cast<char>(0xE2), static_cast<char>(0x80 | ((cell >> 6) & 0x3F)),
                static_cast<char>(0x80 | (cell & 0x3F))};
    return terminal_.Shown() + "\n[DISPLAY] " + cells + "\n[BRLTTY]\n" + BrlttyLog();
  }

  // The cells `tenji` gives for `text`.
  std::u16string Tenji(const std::string& text) {
    const std::string command = (program.parent_path() / "tenji").string() + " '" + text + "'";
    FILE* output = popen(command.c_str(), "r");
    std::string bytes;
    for (int ch; output != nullptr && (ch = std::fgetc(output)) != EOF;) bytes += static_cast<char>(ch);
    if (output != nullptr) pclose(output);
    std::u16string cells;  // three UTF-8 bytes a pattern
    for (size_t at = 0; at + 2 < bytes.size(); at += 3)
      cells += static_cast<char16_t>(((bytes[at] & 0x0F) << 12) | ((bytes[at + 1] & 0x3F) << 6) |
                                     (bytes[at + 2] & 0x3F));
    return cells;
  }

  std::string brltty_;                  // the program, when installed
  int width_ = 0;                       // cells of the display
  int displayPort_ = 0;                 // where the display waits for BRLTTY
  int server_ = -1;                     // BrlAPI's server number
  std::filesystem::path brlttyLog_;     // its messages
  BackgroundProcess brlttyProcess_;     // BRLTTY while it runs
  VirtualDisplay display_;              // the display BRLTTY shows on
  TerminalSession terminal_;            // the reader's terminal
};

}  // namespace

TEST_F(BrlttyRunTest, TheHeadLineOfALookupIsOnTheDisplayAsTenjiWritesIt) {
  Start(12);
  terminal_.Type("\t");
  terminal_.Type("はな");
  terminal_.Type("\r");
  ASSERT_TRUE(terminal_.ReadUntil("検索結果:はな【花】\n")) << Shown();
  // Seventeen cells on a display of twelve: the first window, and the rest
  // once the display's key pans it on.
  const std::u16string head = Tenji("検索結果:はな【花】");
  ASSERT_EQ(head.size(), 17u);
  EXPECT_TRUE(display_.WaitForCells(head)) << Shown();
  ASSERT_TRUE(display_.Send("FWinRt"));
  EXPECT_TRUE(display_.WaitForCells(head.substr(12))) << Shown();
  ASSERT_TRUE(display_.Send("FWinLt"));
  EXPECT_TRUE(display_.WaitForCells(head)) << Shown();
  Leave();
}

// The word typed on the display's Braille keyboard, a routing key on the
// panned line, Enter as dot 8 alone.
TEST_F(BrlttyRunTest, TheDisplaysKeysTypeRouteAndLookUp) {
  Start(10);
  terminal_.Type("\t");
  ASSERT_TRUE(terminal_.ReadUntil("検索ワード:\n")) << Shown();
  // は (dots 1 3 6) and な (dots 1 3), each cell its dots as a number.
  ASSERT_TRUE(display_.Send("PassDots 37"));
  ASSERT_TRUE(terminal_.ReadUntil("検索ワード:は\n")) << Shown();
  ASSERT_TRUE(display_.Send("PassDots 5"));
  ASSERT_TRUE(terminal_.ReadUntil("検索ワード:はな\n")) << Shown();
  // 検索ワード:はな is thirteen cells: the cursor behind な puts the second
  // window (⠂⠥⠅) on the display, the cursor on its fourth cell. Its
  // second cell is は, the seventh character of the line, and its third
  // な: the cursor goes where the routing key is, in this window. (The
  // Virtual driver hands the number of a Route on as the cell's.)
  const std::u16string line = Tenji("検索ワード:はな");
  ASSERT_EQ(line.size(), 13u);
  const auto cursorAt = [&](int cell) {
    return [&line, cell](const std::u16string& cells, int cursor) {
      return cursor == cell && cells.substr(0, 3) == line.substr(10);
    };
  };
  ASSERT_TRUE(display_.WaitUntil(cursorAt(3))) << Shown();
  ASSERT_TRUE(display_.Send("Route 1"));
  EXPECT_TRUE(display_.WaitUntil(cursorAt(1))) << Shown();
  ASSERT_TRUE(display_.Send("Route 2"));
  EXPECT_TRUE(display_.WaitUntil(cursorAt(2))) << Shown();
  ASSERT_TRUE(display_.Send("PassDots 128"));
  ASSERT_TRUE(terminal_.ReadUntil("検索結果:はな【花】\n")) << Shown();
  EXPECT_TRUE(display_.WaitForCells(Tenji("検索結果:はな【花】"))) << Shown();
  Leave();
}

// Ctrl-Z gives the display back to BRLTTY until `fg`; BRLTTY stopping in
// the middle leaves the reader at the terminal, told once, no key lost;
// BRLTTY started again gets the line back, and its keys work again.
TEST_F(BrlttyRunTest, TheDisplayIsGivenBackOnCtrlZLostAndTakenAgain) {
  Start(12);
  terminal_.Type("\t");
  ASSERT_TRUE(terminal_.ReadUntil("検索ワード:\n")) << Shown();
  const std::u16string field = Tenji("検索ワード:");
  ASSERT_TRUE(display_.WaitForCells(field)) << Shown();

  terminal_.Type("\x1a");
  int status = 0;
  ASSERT_EQ(waitpid(terminal_.Pid(), &status, WUNTRACED), terminal_.Pid());
  ASSERT_TRUE(WIFSTOPPED(status)) << Shown();
  // BRLTTY shows its own screen again (it redraws at a key of its own).
  ASSERT_TRUE(display_.Send("LnDn"));
  EXPECT_TRUE(display_.WaitUntil([&](const std::u16string& cells, int) {
    return cells.substr(0, field.size()) != field;
  })) << Shown();
  kill(terminal_.Pid(), SIGCONT);
  EXPECT_TRUE(display_.WaitForCells(field)) << Shown();

  brlttyProcess_.Kill();
  terminal_.Type("はな");
  ASSERT_TRUE(terminal_.ReadUntil("検索ワード:はな\n")) << Shown();
  terminal_.Type("\r");
  ASSERT_TRUE(terminal_.ReadUntil("検索結果:はな【花】\n")) << Shown();
  const std::string lost = "epwingdict: the Braille display of BRLTTY was lost (";
  EXPECT_EQ(terminal_.Count(lost), 0u);  // not a whole line: the reason follows
  const std::string& shown = terminal_.Shown();
  const size_t first = shown.find(lost);
  EXPECT_NE(first, std::string::npos) << Shown();
  EXPECT_EQ(shown.find(lost, first + 1), std::string::npos) << Shown();

  StartBrltty();
  ASSERT_FALSE(HasFatalFailure());
  EXPECT_TRUE(display_.WaitForCells(Tenji("検索結果:はな【花】"))) << Shown();
  ASSERT_TRUE(terminal_.ReadUntil("epwingdict: the Braille display of BRLTTY is back\n")) << Shown();
  ASSERT_TRUE(display_.Send("LnDn"));
  ASSERT_TRUE(terminal_.ReadUntil("検索結果:はな【鼻】\n")) << Shown();
  EXPECT_TRUE(display_.WaitForCells(Tenji("検索結果:はな【鼻】"))) << Shown();
  Leave();
}

// A BRLTTY that is stopped (kill -STOP) takes the reader's connection and
// never answers: the reader starts all the same, saying so, the keys typed
// at the terminal reach it, and the display is taken once BRLTTY goes on.
TEST_F(BrlttyRunTest, AStoppedBrlttyHoldsUpNoKey) {
  StartServer(12);
  ASSERT_FALSE(HasFatalFailure());
  ASSERT_EQ(kill(brlttyProcess_.Pid(), SIGSTOP), 0);
  StartReader();
  ASSERT_FALSE(HasFatalFailure());
  EXPECT_EQ(terminal_.Count("epwingdict: no Braille display: BRLTTY cannot be used (it does not "
                            "answer)"),
            1u)
      << Shown();
  terminal_.Type("\t");
  terminal_.Type("はな");
  terminal_.Type("\r");
  ASSERT_TRUE(terminal_.ReadUntil("検索結果:はな【花】\n")) << Shown();

  ASSERT_EQ(kill(brlttyProcess_.Pid(), SIGCONT), 0);
  EXPECT_TRUE(display_.WaitForCells(Tenji("検索結果:はな【花】"))) << Shown();
  ASSERT_TRUE(terminal_.ReadUntil("epwingdict: the Braille display of BRLTTY is back\n")) << Shown();
  ASSERT_TRUE(display_.Send("LnDn"));
  ASSERT_TRUE(terminal_.ReadUntil("検索結果:はな【鼻】\n")) << Shown();
  Leave();
}

// The reader leaves at once while its connection to a stopped BRLTTY
// hangs.
TEST_F(BrlttyRunTest, TheReaderLeavesAtOnceWhileBrlttyIsStopped) {
  StartServer(12);
  ASSERT_FALSE(HasFatalFailure());
  ASSERT_EQ(kill(brlttyProcess_.Pid(), SIGSTOP), 0);
  StartReader();
  ASSERT_FALSE(HasFatalFailure());
  terminal_.Type("\x04");
  EXPECT_EQ(terminal_.Wait(), 0) << Shown();
  kill(brlttyProcess_.Pid(), SIGCONT);
}
