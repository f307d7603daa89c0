// Closings killed at random moments: a child process saves the settings
// and is killed with SIGKILL after a random delay within the time a save
// takes; after each kill the next start must find either the settings it
// had before or those the child was saving, whole.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <thread>

#include "store/settings_file.h"
#include "store/settings_folder_for_test.h"

namespace {

constexpr int kKills = 200;

class SettingsKillTest : public SettingsFolderTest {
 protected:
  // What generation `g` of the settings holds: 150 to 200 dictionaries
  // whose titles and paths carry the generation.
  static void Generation(int g, DisplayOptions& options, DictionaryEntryArray& list) {
    options = DisplayOptions();
    options.gaijiVisible = g;
    list.clear();
    for (int n = 0; n < 150 + g % 3 * 25; ++n) {
      CString text;
      text.Format(u"gen %d entry %d ", g, n);
      list.push_back({text + CString(u'辞', 20), u"\\SD\\my books\\" + text, n % 3});
    }
  }
  // True when the file loads as generation `g`, whole.
  bool Holds(int g) {
    DisplayOptions options, expected;
    DictionaryEntryArray list, expectedList;
    LoadSettings(path_, options, list);
    Generation(g, expected, expectedList);
    return options.gaijiVisible == expected.gaijiVisible && SameEntries(list, expectedList);
  }
  // Runs the save of generation `g` in a child, killed `delay` after it
  // starts; true when the child was killed before it finished.
  bool KilledSave(int g, std::chrono::microseconds delay) {
    DisplayOptions options;
    DictionaryEntryArray list;
    Generation(g, options, list);
    int ready[2];
    if (pipe(ready) != 0) return false;
    const pid_t child = fork();
    if (child == 0) {
      close(ready[0]);
      char byte = 1;
      if (write(ready[1], &byte, 1) != 1) _exit(2);
      _exit(SaveSettings(path_, options, list, 0) ? 0 : 1);
    }
    close(ready[1]);
    char byte;
    const bool started = read(ready[0], &byte, 1) == 1;
    close(ready[0]);
    if (started) std::this_thread::sleep_for(delay);
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status);
  }
};

TEST_F(SettingsKillTest, EveryKilledCloseLeavesTheOldOrTheNewSettings) {
  DisplayOptions options;
  DictionaryEntryArray list;
  Generation(0, options, list);
  ASSERT_TRUE(SaveSettings(path_, options, list, 0));
  // How long a save takes here, so that the kills fall within one.
  const auto start = std::chrono::steady_clock::now();
  ASSERT_TRUE(SaveSettings(path_, options, list, 0));
  const auto span = std::chrono::duration_cast<std::chrono::microseconds>(
      std::chrono::steady_clock::now() - start);

  std::mt19937 random(20261123);
  std::uniform_int_distribution<int64_t> delay(0, span.count() * 3 / 2 + 1000);
  int generation = 0, killedDuring = 0;
  testing::internal::CaptureStderr();  // a start that takes the backup back says so
  for (int kill = 0; kill < kKills; ++kill) {
    killedDuring += KilledSave(generation + 1, std::chrono::microseconds(delay(random)));
    if (Holds(generation + 1)) {
      ++generation;
    } else if (!Holds(generation)) {
      ADD_FAILURE() << "kill " << kill << " left neither generation " << generation << " nor "
                    << generation + 1;
      break;
    }
  }
  testing::internal::GetCapturedStderr();
  // Whether the kills fell where they matter.
  std::printf("%d of %d kills fell within a save (%lld us each); %d saves finished\n",
              killedDuring, kKills, static_cast<long long>(span.count()), generation);
}

}  // namespace
