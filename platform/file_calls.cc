#include "platform/file_calls.h"

#include <algorithm>
#include <cstring>

#include "platform/device_path.h"
#include "platform/file_system.h"

FILE* OpenDeviceFile(const CString& name, const char* mode) {
  return CurrentFileSystem().Open(HostPath(name), mode);
}

bool MoveFileW(const CString& from, const CString& to) {
  return CurrentFileSystem().Move(HostPath(from), HostPath(to));
}

bool DeleteFileW(const CString& name) { return CurrentFileSystem().Delete(HostPath(name)); }

int GetModuleFileNameW(void* /*module*/, char16_t* buffer, int size) {
  if (buffer == nullptr || size <= 0) return 0;
  CString program = CString(kProgramFolder) + u"\\epwingdict.exe";
  int length = std::min(program.GetLength(), size - 1);
  std::memcpy(buffer, program.GetString(), static_cast<size_t>(length) * sizeof(char16_t));
  buffer[length] = 0;
  return length;
}
