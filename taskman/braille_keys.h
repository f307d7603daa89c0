// The keys of a Braille display, as BrlAPI hands them over (BRLTTY's
// commands and keyboard symbols, brlapi_keycodes.h), and what each is to
// the reader: the map that docs/epwingdict.md ("The Braille display") and
// the man page give, as taskman/terminal_keys.h is the map of a terminal's
// keyboard.
#ifndef TASKMAN_BRAILLE_KEYS_H_
#define TASKMAN_BRAILLE_KEYS_H_

#include <cstdint>

#include "braille/braille_presenter.h"
#include "taskman/task_script.h"

struct DisplayInput {
  enum Kind {
    kNone,      // a key with no meaning here
    kKey,       // a key code of the reader (controls/control_keys.h, app/frame_ids.h)
    kRoute,     // a cursor-routing key over a cell of the display
    kDots,      // a cell typed on the Braille keyboard
    kText,      // a character typed (BRLTTY's own translation of the dots)
    kPanLeft,   // the display's window one width back along the line
    kPanRight,  // and on
  };
  Kind kind = kNone;
  uint32_t value = 0;  // key code, cell of the display from 0, dots (bit 0 dot 1), or character
};

DisplayInput MapDisplayKey(uint64_t key);

// The next key waiting on the display of `braille` that means something
// to the reader, as the task manager's action: a key code, a routing key
// as the unit of the line under its cell, a cell typed, or text. Panning
// is done here. False when no such key waits.
bool NextBrailleAction(BraillePresenter& braille, TaskAction& action);

#endif  // TASKMAN_BRAILLE_KEYS_H_
