// Runs a shell command line as a user would, for tests of the built
// programs: what it wrote on standard output, and its exit status.
#ifndef TESTING_COMMAND_RUN_H_
#define TESTING_COMMAND_RUN_H_

#include <string>

struct CommandResult {
  std::string out;  // standard output, byte for byte
  int status;       // exit status; -1 when it did not exit normally
};

CommandResult run_command(const std::string& command_line);

// The folder of the built programs ($TOMEVIEW_BIN, else "bin"), with "/".
std::string built_programs();

#endif  // TESTING_COMMAND_RUN_H_
