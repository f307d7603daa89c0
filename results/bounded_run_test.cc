#include "results/bounded_run.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "testing/temp_tree.h"

namespace {

constexpr RunLimits kSmall = {300, 64 * 1024};

TEST(BoundedRun, EachWayARunEnds) {
  const std::string path = scratch_path("bounded_run_output");
  std::filesystem::remove(path);
  // The work's files stay; its memory does not come back.
  int changed = 0;
  EXPECT_EQ(RunBounded(
                [&] {
                  changed = 1;
                  std::ofstream(path) << "written";
                },
                kSmall),
            RunEnd::kFinished);
  EXPECT_EQ(changed, 0);
  EXPECT_EQ(std::filesystem::file_size(path), 7u);

  // Standard input reads as empty, whatever the caller's holds.
  EXPECT_EQ(RunBounded(
                [&] {
                  char byte;
                  std::ofstream(path) << read(STDIN_FILENO, &byte, 1);
                },
                kSmall),
            RunEnd::kFinished);
  std::ifstream input(path);
  std::string got;
  input >> got;
  EXPECT_EQ(got, "0");

  // A file grows to the limit and no further.
  EXPECT_EQ(RunBounded(
                [&] {
                  FILE* file = std::fopen(path.c_str(), "w");
                  const std::string block(4096, 'x');
                  for (;;) std::fwrite(block.data(), 1, block.size(), file);
                },
                kSmall),
            RunEnd::kFileLimit);
  EXPECT_EQ(std::filesystem::file_size(path), static_cast<uintmax_t>(kSmall.fileBytes));

  EXPECT_EQ(RunBounded([] { for (;;) pause(); }, kSmall),
            RunEnd::kTimedOut);
  EXPECT_EQ(RunBounded([] { std::abort(); }, kSmall), RunEnd::kFailed);
}

}  // namespace
