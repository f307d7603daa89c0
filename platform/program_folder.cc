#include "platform/program_folder.h"

#include <unistd.h>

std::string ProgramDataFolder() {
  char path[4096];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
  if (length <= 0) return "";
  const std::string exe(path, static_cast<size_t>(length));
  const size_t slash = exe.rfind('/');
  return slash == std::string::npos ? "" : exe.substr(0, slash + 1) + "../share/epwingdict/";
}
