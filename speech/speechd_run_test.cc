// The reader against a real speech-dispatcher that the test starts: its own
// configuration, socket and logs in the test's folder, and an output
// module that writes each utterance it gets to a file instead of sounding
// it. Skipped, saying why, where the server is not installed.
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "platform/utf8_text.h"
#include "reading/reading.h"
#include "testing/background_process.h"
#include "testing/epwingdict_runner.h"

namespace {

const char kServer[] = "/usr/bin/speech-dispatcher";

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// The utterances of a transcript, a line each, in order, as the
// synthesizer is handed them: their readings.
std::string Utterances(const std::string& transcript) {
  std::string said;
  for (const std::string& line : Lines(transcript))
    if (line.rfind("TTS ", 0) == 0)
      said += ToUtf8(CString(SpeechReading(FromUtf8(line.substr(4)).Units()))) + "\n";
  return said;
}

class SpeechdRunTest : public EpwingdictRunner {
 protected:
  void SetUp() override {
    EpwingdictRunner::SetUp();
    if (IsSkipped()) return;
    if (access(kServer, X_OK) != 0)
      GTEST_SKIP() << kServer << " is not installed (scripts/install-deps.sh installs it)";
    server = work / "speechd";
    std::filesystem::create_directories(server / "modules");
    socket = server / "socket";
    said = server / "said.txt";
    pidFile = server / "pid";
  }
  // Starts the server; its module records each utterance in `said`, and
  // with `dieAfter` > 0 kills the server once that many have come.
  void StartServer(int dieAfter = 0) {
    std::ofstream(server / "speechd.conf")
        << "LogLevel 3\nLogDir \"" << server.string() << "\"\n"
        << "AudioOutputMethod \"alsa\"\nAudioALSADevice \"null\"\n"
        << "AddModule \"recorder\" \"sd_generic\" \"recorder.conf\"\n"
        << "DefaultModule recorder\nDefaultLanguage \"ja\"\n";
    std::string command = "printf '%s\\\\n' \\'$DATA\\' >> " + said.string();
    if (dieAfter > 0)
      command += "; if [ $(wc -l < " + said.string() + ") -ge " + std::to_string(dieAfter) +
                 " ]; then kill -9 $(cat " + pidFile.string() + "); fi";
    std::ofstream(server / "modules" / "recorder.conf")
        << "GenericExecuteSynth \"" << command << "\"\n"
        << "GenericLanguage \"ja\" \"ja\" \"utf-8\"\nAddVoice \"ja\" \"MALE1\" \"ja\"\n";
    const std::string log = (server / "server.log").string();
    const std::vector<std::string> args = {kServer, "-s", "-t", "0", "-C", server.string(),
                                           "-S", socket.string(), "-P", pidFile.string(),
                                           "-L", server.string()};
    ASSERT_TRUE(process.Start(args, log));
    // Ready once it listens: a few seconds at most.
    for (int tries = 0; tries < 100 && !std::filesystem::exists(socket); ++tries)
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    ASSERT_TRUE(std::filesystem::exists(socket)) << ReadWholeFile(log);
    environment = "SPEECHD_ADDRESS=unix_socket:" + socket.string();
    options = "--speech speechd";
  }

  // What the module has been handed, once `last` is among it or a second
  // has gone by.
  std::vector<std::string> Said(const std::string& last) {
    for (int tries = 0; tries < 20; ++tries) {
      const std::vector<std::string> lines = Lines(ReadWholeFile(said));
      if (!lines.empty() && lines.back() == last) return lines;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return Lines(ReadWholeFile(said));
  }

  std::filesystem::path server, socket, said, pidFile;  // the server's folder and files
  BackgroundProcess process;                            // the server, once started
};

}  // namespace

TEST_F(SpeechdRunTest, TheUtterancesOfALookupReachTheServerInOrder) {
  StartServer();
  const std::string transcript = RunScript("KEY_NEXT_CTRL\ntext はな\nKEY_ENTER\n");
  const std::vector<std::string> spoken = Lines(Utterances(transcript));
  ASSERT_TRUE(HasLinesInOrder(transcript, {"TTS はな", "TTS 検索開始", "TTS 検索結果:はな【花】"}));
  // Each utterance cancels the one before, so the server may drop one that
  // came close behind another; what it got came in order, the last one
  // surely.
  const std::vector<std::string> got = Said(spoken.back());
  EXPECT_TRUE(HasLinesInOrder(Utterances(transcript), got));
  ASSERT_FALSE(got.empty());
  EXPECT_EQ(got.back(), spoken.back());
  EXPECT_EQ(ReadWholeFile(work / "stderr.txt"), "");
}

TEST_F(SpeechdRunTest, AServerThatDiesIsToldOnceAndNoKeyIsLost) {
  StartServer(1);
  // The server is killed at the first utterance it gets, well before the
  // reader goes on.
  ASSERT_EQ(Run("KEY_NEXT_CTRL\ntext は\npause 300\ntext な\nKEY_ENTER\nKEY_EXIT\nKEY_EXIT\n"), 0);
  process.Reap();
  // Every key had its effect, to the close that saves the settings.
  EXPECT_TRUE(HasLinesInOrder(Transcript(), {"BRL 検索ワード:はな", "TTS 検索結果:はな【花】",
                                             "ENDED"}));
  EXPECT_TRUE(HasLinesInOrder(Utterances(Transcript()), Lines(ReadWholeFile(said))));
  const std::vector<std::string> told = Lines(ReadWholeFile(work / "stderr.txt"));
  ASSERT_EQ(told.size(), 1u) << ReadWholeFile(work / "stderr.txt");
  EXPECT_EQ(told[0].rfind("epwingdict: speech-dispatcher was lost (", 0), 0u) << told[0];
}

TEST_F(SpeechdRunTest, WithNoServerTheReaderGoesOnAndSaysSoOnce) {
  environment = "SPEECHD_ADDRESS=unix_socket:" + socket.string();
  options = "--speech speechd";
  ASSERT_EQ(Run("KEY_NEXT_CTRL\ntext はな\nKEY_ENTER\nKEY_EXIT\nKEY_EXIT\n"), 0);
  EXPECT_TRUE(HasLinesInOrder(Transcript(), {"TTS 検索開始", "ENDED"}));
  const std::vector<std::string> told = Lines(ReadWholeFile(work / "stderr.txt"));
  ASSERT_EQ(told.size(), 1u) << ReadWholeFile(work / "stderr.txt");
  // The line goes on with espeak-ng: speaking through it, or it too failing
  // where there is no sound device.
  EXPECT_NE(told[0].find("speech-dispatcher cannot be used ("), std::string::npos) << told[0];
}
