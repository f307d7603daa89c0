#include "testing/temp_tree.h"

#include <unistd.h>

#include <cstdio>

#include "platform/read_file.h"

namespace {

std::filesystem::path private_folder() {
  return std::filesystem::temp_directory_path() / ("tomeview-" + std::to_string(getpid()));
}

}  // namespace

std::string scratch_path(const std::string& name) {
  std::filesystem::create_directories(private_folder());
  return (private_folder() / name).string();
}

std::filesystem::path fresh_directory(const std::string& name) {
  const std::filesystem::path path = private_folder() / name;
  std::filesystem::remove_all(path);
  std::filesystem::create_directories(path);
  return path;
}

std::string ReadWholeFile(const std::filesystem::path& path) {
  FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) return "";
  std::string bytes = ReadToEnd(file);
  std::fclose(file);
  return bytes;
}
