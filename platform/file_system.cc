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

bool RealFileSystem::ReadOnly(const std::string& path) {
  // The mode bits as well as access(): root may write any file, and a file
  // made read-only by its owner is to stay as it is all the same.
  struct stat info;
  if (stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return false;
  return (info.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0 || access(path.c_str(), W_OK) != 0;
}

bool RealFileSystem::Sync(FILE* file) { return std::fflush(file) == 0 && fsync(fileno(file)) == 0; }

bool RealFileSystem::SyncFolder(const std::string& folder) {
  int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return false;
  bool synced = fsync(descriptor) == 0;
  close(descriptor);
  return synced;
}

FileSystem& CurrentFileSystem() { return current != nullptr ? *current : realFileSystem; }

FileSystem* SetFileSystem(FileSystem* fileSystem) {
  FileSystem* previous = &CurrentFileSystem();
  current = fileSystem;
  return previous;
}
