// Device names onto host paths. The application names its files as the
// device does; this is the one place that says where they are here:
//
//   "\SD\..."          the card folder: set by the program's options, else
//                      $XDG_DATA_HOME/epwingdict/card (~/.local/share/...)
//   "\SD\NAME\..."     a folder mounted on the card (MountCardFolder): a
//                      host folder anywhere, seen as a folder of the card
//   "\windows\..."     the runtime folder: $XDG_RUNTIME_DIR/epwingdict, else
//                      a private folder /tmp/epwingdict-UID (mode 0700)
//   "\epwingdict\..."  the program's folder (kProgramFolder), which holds the
//                      settings: $XDG_CONFIG_HOME/epwingdict, else
//                      ~/.config/epwingdict
//
// "\" and "/" both separate. The first part of a name is compared without
// regard to case; every later part is looked up in its folder and, when no
// entry has that exact name, matches an entry that differs only in the case
// of ASCII letters, the first such in byte order. Parts that match nothing are kept as written, so a file
// can be created. Another name that begins with a separator is a host path
// from the root; a name without one is relative to the working folder.
// The runtime and configuration folders are created when first named.
#ifndef PLATFORM_DEVICE_PATH_H_
#define PLATFORM_DEVICE_PATH_H_

#include <string>
#include <vector>

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

// Makes the host folder `hostFolder` appear as "\SD\<name>", whatever the
// card holds: names under it are host paths under `hostFolder`. `name` is
// one part (no separator); it is matched without regard to ASCII case, and
// a second mount of the same name replaces the first.
void MountCardFolder(const std::string& name, const std::string& hostFolder);
// Drops every folder mounted on the card.
void ClearCardFolders();
// The names of the folders mounted directly in the device folder
// `deviceFolder` (only the card's top "\SD" has any), as they were mounted.
std::vector<std::string> MountedFolderNames(const CString& deviceFolder);

// The host path of a device name.
std::string HostPath(const CString& deviceName);

#endif  // PLATFORM_DEVICE_PATH_H_
