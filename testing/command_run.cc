#include "testing/command_run.h"

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>

CommandResult run_command(const std::string& command_line) {
  CommandResult result{"", -1};
  FILE* pipe = popen(command_line.c_str(), "r");
  if (pipe == nullptr) return result;
  char chunk[4096];
  size_t got;
  while ((got = fread(chunk, 1, sizeof chunk, pipe)) > 0) result.out.append(chunk, got);
  const int status = pclose(pipe);
  if (status != -1 && WIFEXITED(status)) result.status = WEXITSTATUS(status);
  return result;
}

std::string built_programs() {
  const char* bin = getenv("TOMEVIEW_BIN");
  return std::string(bin ? bin : "bin") + "/";
}
