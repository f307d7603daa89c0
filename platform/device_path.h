// Device names onto host paths. The application names its files as the
// device does; this is the one place that says where they are here:
//
//   "\SD\..."          the card folder: set by the program's options, else
//                      $XDG_DATA_HOME/epwingdict/SD (~/.local/share/...)
//   "\windows\..."     the runtime folder: $XDG_RUNTIME_DIR/epwingdict, else
//                      a private folder /tmp/epwingdict-UID (mode 0700)
//   "\epwingdict\..."  the program's folder (kProgramFolder), which holds the
//                      settings: $XDG_CONFIG_HOME/epwingdict, else
//                      ~/.config/epwingdict
//
// "\" and "/" both separate. The first part of a name is compared without
// regard to case; every later part is looked up in its folder and, when no
// entry has that exact name, matches an entry that differs only in the case
// of ASCII letters. Parts that match nothing are kept as written, so a file
// can be created. Another name that begins with a separator is a host path
// from the root; a name without one is relative to the working folder.
// The runtime and configuration folders are created when first named.
#ifndef PLATFORM_DEVICE_PATH_H_
#define PLATFORM_DEVICE_PATH_H_

#include <string>

#include "platform/wide_string.h"

enum class DeviceFolder {
  kCard,     // "\SD"
  kRuntime,  // "\windows"
  kConfig,   // the program's folder
};

// The device name of the program's folder, without a trailing separator.
extern const char16_t kProgramFolder[];

// Points a device folder at `hostFolder`; an empty one restores the default.
void SetDeviceFolder(DeviceFolder folder, const std::string& hostFolder);
// The host folder that a device folder stands for now.
std::string DeviceFolderPath(DeviceFolder folder);

// The host path of a device name.
std::string HostPath(const CString& deviceName);

#endif  // PLATFORM_DEVICE_PATH_H_
