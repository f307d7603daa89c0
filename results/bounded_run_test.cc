#include "results/bounded_run.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "testing/temp_tree.h"

namespace {

constexpr RunLimits kSmall = {300, 64 * 1024};

TEST(BoundedRun, EachWayARunEnds) {
  const std::string path = scratch_path("bounded_run_output");
  std::filesystem::remove(path);
  const auto run = [](const std::function<void()>& work) { return RunBounded(work, kSmall); };
  // The work's files stay; its memory does not come back.
  int changed = 0;
  EXPECT_EQ(run([&] {
              changed = 1;
              std::ofstream(path) << "written";
            }),
            RunEnd::kFinished);
  EXPECT_EQ(changed, 0);
  EXPECT_EQ(std::filesystem::file_size(path), 7u);

  // Standard input reads as empty, whatever the caller's holds.
  char byte;
  EXPECT_EQ(run([&] { std::ofstream(path) << read(STDIN_FILENO, &byte, 1); }), RunEnd::kFinished);
  EXPECT_EQ(ReadWholeFile(path), "0");

  // A file grows to the limit and no further.
  EXPECT_EQ(run([&] {
              FILE* file = std::fopen(path.c_str(), "w");
              const std::string block(4096, 'x');
              for (;;) std::fwrite(block.data(), 1, block.size(), file);
            }),
            RunEnd::kFileLimit);
  EXPECT_EQ(std::filesystem::file_size(path), static_cast<uintmax_t>(kSmall.fileBytes));

  EXPECT_EQ(run([] { for (;;) pause(); }), RunEnd::kTimedOut);
  EXPECT_EQ(run([] { std::abort(); }), RunEnd::kFailed);
}

}  // namespace
