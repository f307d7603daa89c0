#include "testing/command_run.h"

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>

#include "platform/read_file.h"

CommandResult run_command(const std::string& command_line) {
  CommandResult result{"", -1};
  FILE* pipe = popen(command_line.c_str(), "r");
  if (pipe == nullptr) return result;
  result.out = ReadToEnd(pipe);
  const int status = pclose(pipe);
  if (status != -1 && WIFEXITED(status)) result.status = WEXITSTATUS(status);
  return result;
}

std::string built_programs() {
  const char* bin = getenv("TOMEVIEW_BIN");
  return std::string(bin ? bin : "bin") + "/";
}
