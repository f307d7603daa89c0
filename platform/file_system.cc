#include "platform/file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace {

RealFileSystem realFileSystem;
FileSystem* current = nullptr;

}  // namespace

FILE* RealFileSystem::Open(const std::string& path, const char* mode) {
  return std::fopen(path.c_str(), mode);
}

bool RealFileSystem::Move(const std::string& from, const std::string& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  // The file system cannot refuse to replace by itself: look first.
  return !Exists(to) && std::rename(from.c_str(), to.c_str()) == 0;
}

bool RealFileSystem::Delete(const std::string& path) { return unlink(path.c_str()) == 0; }

bool RealFileSystem::Exists(const std::string& path) {
  struct stat info;
  return lstat(path.c_str(), &info) == 0;
}

FileSystem& CurrentFileSystem() { return current != nullptr ? *current : realFileSystem; }

FileSystem* SetFileSystem(FileSystem* fileSystem) {
  FileSystem* previous = &CurrentFileSystem();
  current = fileSystem;
  return previous;
}
