// The host's file calls behind one small interface, so that tests can put
// a recording or failing one in the place of the real one. Paths here are
// host paths (UTF-8, "/" separated); device names are mapped before they
// get here (platform/device_path.h).
#ifndef PLATFORM_FILE_SYSTEM_H_
#define PLATFORM_FILE_SYSTEM_H_

#include <cstdio>
#include <string>

class FileSystem {
 public:
  virtual ~FileSystem() = default;
  // fopen: a stream, or null.
  virtual FILE* Open(const std::string& path, const char* mode) = 0;
  // Renames a file or folder; fails, changing nothing, when `to` exists.
  virtual bool Move(const std::string& from, const std::string& to) = 0;
  // Deletes a file; fails for a folder or a missing file.
  virtual bool Delete(const std::string& path) = 0;
  // True when something (file or folder) stands at `path`.
  virtual bool Exists(const std::string& path) = 0;
};

// The host's own calls.
class RealFileSystem : public FileSystem {
 public:
  FILE* Open(const std::string& path, const char* mode) override;
  bool Move(const std::string& from, const std::string& to) override;
  bool Delete(const std::string& path) override;
  bool Exists(const std::string& path) override;
};

// The file system that the device file calls use; the real one unless a
// test has set another. SetFileSystem returns the one it replaces; null
// puts the real one back.
FileSystem& CurrentFileSystem();
FileSystem* SetFileSystem(FileSystem* fileSystem);

#endif  // PLATFORM_FILE_SYSTEM_H_
