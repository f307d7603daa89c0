// Runs the built epwingdict program on a key script, with its own program
// folder (--home) and the demo card of the build unless a test names
// another, for tests of whole walks through the reader.
#ifndef APP_EPWINGDICT_RUNNER_FOR_TEST_H_
#define APP_EPWINGDICT_RUNNER_FOR_TEST_H_

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "testing/temp_tree.h"

inline std::string ReadWholeFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
}

class EpwingdictRunner : public ::testing::Test {
 protected:
  void SetUp() override {
    const char* bin = std::getenv("TOMEVIEW_BIN");
    if (bin == nullptr) GTEST_SKIP() << "TOMEVIEW_BIN is not set";
    program = std::filesystem::path(bin) / "epwingdict";
    card = std::filesystem::path(bin) / ".." / "card";
    work = fresh_directory("epwingdict_runner");
  }
  // Runs the program on `script`; its exit status. The transcript and
  // standard error are left in work.
  int Run(const std::string& script) {
    std::ofstream(work / "script.txt") << script;
    const std::string command = program.string() + " --keys " + (work / "script.txt").string() +
                                " --card " + card.string() + " --home " + work.string() +
                                " --transcript " + (work / "transcript.txt").string() + " 2>" +
                                (work / "stderr.txt").string();
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  // A card of its own holding only the demo card's folder epwing/`name`,
  // so that the dictionary list doesn't depend on what else the build put
  // on the demo card.
  void UseDemoFolder(const std::string& name) {
    const std::filesystem::path own = work / "card";
    std::filesystem::create_directories(own / "epwing");
    std::filesystem::copy(card / "epwing" / name, own / "epwing" / name,
                          std::filesystem::copy_options::recursive);
    card = own;
  }
  std::string Transcript() const { return ReadWholeFile(work / "transcript.txt"); }

  std::filesystem::path program, card, work;  // the program, "\SD", the program folder
};

#endif  // APP_EPWINGDICT_RUNNER_FOR_TEST_H_
