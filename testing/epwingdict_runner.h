// Runs the built epwingdict program on a key script, with its own program
// folder (--home) and a card of its own that holds only the demo card's
// folder epwing/plus (the sample dictionary, two books), for tests of whole
// walks through the reader. What else the build puts on the demo card
// (epwing/wadai holds one book or another) never shows in a test.
#ifndef TESTING_EPWINGDICT_RUNNER_H_
#define TESTING_EPWINGDICT_RUNNER_H_

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "testing/temp_tree.h"

class EpwingdictRunner : public ::testing::Test {
 protected:
  void SetUp() override {
    const char* bin = std::getenv("TOMEVIEW_BIN");
    if (bin == nullptr) GTEST_SKIP() << "TOMEVIEW_BIN is not set";
    program = std::filesystem::path(bin) / "epwingdict";
    work = fresh_directory("epwingdict_runner");
    card = work / "card";
    std::filesystem::create_directories(card / "epwing");
    std::filesystem::copy(std::filesystem::path(bin) / ".." / "card" / "epwing" / "plus",
                          card / "epwing" / "plus", std::filesystem::copy_options::recursive);
  }
  // Runs the program on `script`, with `input` as its standard input; its
  // exit status. The transcript and standard error are left in work.
  int Run(const std::string& script, const std::string& input = "") {
    std::ofstream(work / "script.txt") << script;
    std::ofstream(work / "stdin.txt") << input;
    // The work file of a lookup lives in the runtime folder: a private one
    // per run, so runs side by side never read each other's results.
    std::filesystem::create_directories(work / "run" / "epwingdict");
    const std::string command = "XDG_RUNTIME_DIR=" + (work / "run").string() + " " + environment +
                                " " + program.string() + " " + options + " --keys " +
                                (work / "script.txt").string() +
                                " --card " + card.string() + " --home " + work.string() +
                                " --transcript " + (work / "transcript.txt").string() + " <" +
                                (work / "stdin.txt").string() + " 2>" +
                                (work / "stderr.txt").string();
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  std::string Transcript() const { return ReadWholeFile(work / "transcript.txt"); }
  // Runs the program as Run does, expecting it to end well; the transcript.
  std::string RunScript(const std::string& script, const std::string& input = "") {
    EXPECT_EQ(Run(script, input), 0) << ReadWholeFile(work / "stderr.txt");
    return Transcript();
  }

  std::filesystem::path program, card, work;  // the program, "\SD", the program folder
  std::string environment;  // "NAME=value ..." for the program's environment, if any
  std::string options;      // more options for the program, if any
};

// Each line of `lines` stands in `transcript` as a whole line, in this
// order; the lines between don't matter. Names the first one missing.
inline ::testing::AssertionResult HasLinesInOrder(const std::string& transcript,
                                                  const std::vector<std::string>& lines) {
  size_t at = 0;
  for (const std::string& line : lines) {
    const size_t found = ("\n" + transcript).find("\n" + line + "\n", at);
    if (found == std::string::npos)
      return ::testing::AssertionFailure() << "no \"" << line << "\" after byte " << at << " of\n"
                                           << transcript;
    at = found + line.size() + 1;
  }
  return ::testing::AssertionSuccess();
}

// How often `line` stands in `transcript` as a whole line.
inline size_t CountLines(const std::string& transcript, const std::string& line) {
  const std::string text = "\n" + transcript;
  size_t count = 0;
  for (size_t at = text.find("\n" + line + "\n"); at != std::string::npos;
       at = text.find("\n" + line + "\n", at + 1))
    ++count;
  return count;
}

#endif  // TESTING_EPWINGDICT_RUNNER_H_
