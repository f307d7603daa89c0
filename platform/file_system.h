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
  // True when a file stands at `path` that is not to be written: it has the
  // read-only attribute (no write permission for anyone), or this process
  // may not write it.
  virtual bool ReadOnly(const std::string& path) = 0;
  // Pushes what was written to `file` through to the disk (fflush and
  // fsync), so that a rename behind it never shows a file with less in it.
  virtual bool Sync(FILE* file) = 0;
  // Makes the renames and deletions in `folder` last (fsync of the folder).
  virtual bool SyncFolder(const std::string& folder) = 0;
};

// The host's own calls.
class RealFileSystem : public FileSystem {
 public:
  FILE* Open(const std::string& path, const char* mode) override;
  bool Move(const std::string& from, const std::string& to) override;
  bool Delete(const std::string& path) override;
  bool Exists(const std::string& path) override;
  bool ReadOnly(const std::string& path) override;
  bool Sync(FILE* file) override;
  bool SyncFolder(const std::string& folder) override;
};

// The file system that the device file calls use; the real one unless a
// test has set another. SetFileSystem returns the one it replaces; null
// puts the real one back.
FileSystem& CurrentFileSystem();
FileSystem* SetFileSystem(FileSystem* fileSystem);

#endif  // PLATFORM_FILE_SYSTEM_H_
