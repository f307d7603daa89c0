// The reader at a terminal, as a screen reader user meets it: the built
// epwingdict on a pseudo-terminal, keys typed into it, what it shows read
// back. Looking up はな in the first dictionary of the demo card.
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <vector>

#include "testing/epwingdict_runner.h"

namespace {

class TerminalRunTest : public EpwingdictRunner {
 protected:
  void TearDown() override {
    if (child_ > 0) {
      kill(child_, SIGKILL);
      waitpid(child_, nullptr, 0);
    }
    if (terminal_ >= 0) close(terminal_);
  }

  // Starts the reader on a new terminal, with `show` as its --show value
  // (none when empty) and no speech.
  void Start(const std::string& show) {
    const std::string runtime = (work / "run").string();
    std::filesystem::create_directories(work / "run" / "epwingdict");
    std::vector<std::string> args = {program.string(), "--card", card.string(), "--home",
                                     work.string(), "--speech", "none"};
    if (!show.empty()) args.insert(args.end(), {"--show", show});
    child_ = forkpty(&terminal_, nullptr, nullptr, nullptr);
    ASSERT_GE(child_, 0);
    if (child_ == 0) {
      setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
      std::vector<char*> argv;
      for (std::string& arg : args) argv.push_back(arg.data());
      argv.push_back(nullptr);
      execv(argv[0], argv.data());
      _exit(127);
    }
  }

  // Reads what the terminal shows until `text` has come (true) or the
  // reader has ended or gone quiet for long (false).
  bool ReadUntil(const std::string& text) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (shown_.find(text) == std::string::npos) {
      if (std::chrono::steady_clock::now() > deadline) return false;
      pollfd fd = {terminal_, POLLIN, 0};
      if (poll(&fd, 1, 200) <= 0) continue;
      char buffer[4096];
      const ssize_t got = read(terminal_, buffer, sizeof buffer);
      if (got <= 0) return false;
      for (ssize_t i = 0; i < got; ++i)
        if (buffer[i] != '\r') shown_ += buffer[i];
    }
    return true;
  }

  void Type(const std::string& keys) {
    ASSERT_EQ(write(terminal_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
  }

  // Looks up はな on the first dictionary and leaves at once (Ctrl-D),
  // waiting for the dictionary list, the word typed and the result.
  void LookUpHana(const std::string& list, const std::string& typed, const std::string& result) {
    ASSERT_TRUE(ReadUntil(list)) << shown_;
    Type("\t");
    Type("はな");
    ASSERT_TRUE(ReadUntil(typed)) << shown_;
    Type("\r");
    ASSERT_TRUE(ReadUntil(result)) << shown_;
    Type("\x04");
    ReadUntil("\x04");  // everything up to the end of the run, which never shows ^D
    int status = 0;
    pid_t ended = 0;
    for (int tries = 0; tries < 100 && ended == 0; ++tries) {
      ended = waitpid(child_, &status, WNOHANG);
      if (ended == 0) usleep(50000);
    }
    ASSERT_EQ(ended, child_) << "the reader did not end";
    child_ = -1;
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  }

  size_t Count(const std::string& line) const {
    size_t count = 0;
    for (size_t at = 0; (at = ("\n" + shown_).find("\n" + line + "\n", at)) != std::string::npos; ++at) ++count;
    return count;
  }

  std::string shown_;  // what the terminal showed, line feeds only
  pid_t child_ = -1;
  int terminal_ = -1;
};

TEST_F(TerminalRunTest, EachPresentationComesOutOnceWithoutPrefixes) {
  Start("");
  LookUpHana("辞書選択:プラス辞典/ことわざ小辞典\n", "検索ワード:はな\n", "検索結果:はな【花】\n");
  EXPECT_EQ(Count("辞書選択:プラス辞典/ことわざ小辞典"), 1u) << shown_;
  EXPECT_EQ(Count("検索ワード:はな"), 1u) << shown_;
  EXPECT_EQ(Count("検索結果:はな【花】"), 1u) << shown_;
  EXPECT_EQ(shown_.find("BRL "), std::string::npos) << shown_;
  EXPECT_EQ(shown_.find("TTS "), std::string::npos) << shown_;
  EXPECT_EQ(shown_.find("STARTED"), std::string::npos) << shown_;
}

TEST_F(TerminalRunTest, DotsShowTheHeadWordInJapaneseBraille) {
  Start("dots");
  // 検索結果:はな【花】: the head word はな is ⠥⠅, behind the colon ⠐⠂.
  LookUpHana("⠐⠳⠈⠺⠻⠴⠕⠩⠐⠂", "⠐⠂⠥⠅\n", "⠫⠴⠱⠩⠀⠫⠂⠡⠐⠂⠥⠅⠀⠶⠥⠅⠶\n");
  EXPECT_EQ(Count("⠫⠴⠱⠩⠀⠫⠂⠡⠐⠂⠥⠅⠀⠶⠥⠅⠶"), 1u) << shown_;
}

}  // namespace
