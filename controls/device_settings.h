// Device settings that reach the controls from the task manager and are
// kept, not interpreted: reading grade, advance voice, Japanese language
// and key mode.
#ifndef CONTROLS_DEVICE_SETTINGS_H_
#define CONTROLS_DEVICE_SETTINGS_H_

#include <cstdint>

// The Japanese language mode; its values are the device's.
using LANMODE = int32_t;

struct DeviceSettings {
  unsigned readingGrade = 0;  // Braille grade of the display
  int advanceVoice = 0;       // speech voice setting
  LANMODE jpnLangMode = 0;    // Japanese language mode
  int jpnKeyMode = 0;         // Japanese key mode
};

#endif  // CONTROLS_DEVICE_SETTINGS_H_
