// The five display options that the settings file keeps and the display
// filters obey. Each is an integer: 0 is off, anything else on, and the
// value is written back as it was read (a 2 stays a 2).
#ifndef BOOKS_DISPLAY_OPTIONS_H_
#define BOOKS_DISPLAY_OPTIONS_H_

#include <cstdint>

struct DisplayOptions {
  int32_t gaijiReplace = 1;     // replace external characters through the Braille gaiji table
  int32_t gaijiVisible = 0;     // show the external character codes that remain
  int32_t syllableVisible = 0;  // syllable marks show as hyphens instead of vanishing
  int32_t phSignsVisible = 0;   // show phonetic signs between slashes
  int32_t linkVisible = 0;      // show link wrappers; set in the settings file alone
};

#endif  // BOOKS_DISPLAY_OPTIONS_H_
