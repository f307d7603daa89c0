#include "testing/temp_tree.h"

#include <unistd.h>

std::filesystem::path fresh_directory(const std::string& name) {
  const std::filesystem::path path = std::filesystem::temp_directory_path() /
                                     ("tomeview-" + std::to_string(getpid())) / name;
  std::filesystem::remove_all(path);
  std::filesystem::create_directories(path);
  return path;
}
