// Texts as speech says them: words, never the characters that only stand
// between them in writing. The Braille display goes on showing the text
// as it is.
#ifndef CONTROLS_SPOKEN_TEXT_H_
#define CONTROLS_SPOKEN_TEXT_H_

#include "platform/wide_string.h"

// The lines of `text` (ended by CR LF, CR or LF) one after the other,
// parted by a blank, which speech takes as a pause; empty lines go.
CString SpokenLines(const CString& text);
// A device path ("\SD\epwing") as its folders named one by one
// ("SD、epwing"); "\" and "/" both part folders.
CString SpokenPath(const CString& path);

#endif  // CONTROLS_SPOKEN_TEXT_H_
