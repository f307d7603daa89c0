// What every program says of itself: --help, --version from the project's
// one version number, and the status of an option it doesn't know.
#include <gtest/gtest.h>

#include <string>

#include "project_version.h"
#include "testing/command_run.h"

namespace {

TEST(Programs, HelpVersionAndBadOptions) {
  for (const std::string program : {"tomeview", "mkbook", "epwingdict", "tenji"}) {
    const std::string path = built_programs() + program;
    const CommandResult version = run_command(path + " --version");
    EXPECT_EQ(version.status, 0) << program;
    EXPECT_EQ(version.out, program + " (tomeview reader) " + kProjectVersion + "\n");

    const CommandResult help = run_command(path + " --help </dev/null");
    EXPECT_EQ(help.status, 0) << program;
    EXPECT_EQ(help.out.rfind("usage: " + program + " ", 0), 0u) << help.out;
  }
  EXPECT_EQ(run_command(built_programs() + "mkbook --frob 2>/dev/null").status, 2);
  EXPECT_EQ(run_command(built_programs() + "epwingdict --frob 2>/dev/null").status, 2);
  EXPECT_EQ(run_command(built_programs() + "tomeview --frob").status, 2);
  EXPECT_EQ(run_command(built_programs() + "tenji --frob 2>/dev/null").status, 2);
}

}  // namespace
