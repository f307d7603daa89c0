// The device's file calls, taking device names (platform/device_path.h)
// and going through the current FileSystem (platform/file_system.h).
#ifndef PLATFORM_FILE_CALLS_H_
#define PLATFORM_FILE_CALLS_H_

#include <cstdio>

#include "platform/wide_string.h"

// fopen and _wfopen: a stream, or null.
FILE* OpenDeviceFile(const CString& name, const char* mode);
// Renames; fails when `to` exists, as the device's MoveFileW does.
bool MoveFileW(const CString& from, const CString& to);
// Deletes a file; fails for a folder or a missing file.
bool DeleteFileW(const CString& name);
// GetModuleFileNameW with no module: writes the program's device name
// (kProgramFolder + "\epwingdict.exe") into `buffer`, cut to size - 1
// units and NUL-ended, and returns the units written without the NUL.
// 0 when `buffer` is null or `size` is not positive.
int GetModuleFileNameW(void* module, char16_t* buffer, int size);

#endif  // PLATFORM_FILE_CALLS_H_
