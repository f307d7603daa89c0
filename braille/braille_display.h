// A Braille display the reader writes to and takes keys from: BRLTTY's,
// through BrlAPI (brlapi_display.h), or a fake in the tests.
#ifndef BRAILLE_BRAILLE_DISPLAY_H_
#define BRAILLE_BRAILLE_DISPLAY_H_

#include <cstdint>
#include <string>

class BrailleDisplay {
 public:
  virtual ~BrailleDisplay() = default;
  // What the user knows it as, for messages ("BRLTTY").
  virtual const char* Name() const = 0;
  // Connects and takes the display for this program (anew, when it was
  // connected); false, with the reason in `why`, when it can't.
  virtual bool Open(std::string& why) = 0;
  // Cells across the display, once opened.
  virtual int Width() const = 0;
  // Shows `cells` (Unicode Braille patterns, U+2800 the blank), as many as
  // fit, with the cursor under cell `cursor` (-1: none). False, with the
  // reason in `why`, when the display is lost.
  virtual bool Write(const std::u16string& cells, int cursor, std::string& why) = 0;
  // A descriptor that is readable when a key waits; -1 when there is none.
  virtual int KeyDescriptor() const = 0;
  // Takes a waiting key without waiting: 1 one came (a BrlAPI key code,
  // brlapi_keycodes.h), 0 none waits, -1 the display is lost (`why`).
  virtual int ReadKey(uint64_t& key, std::string& why) = 0;
  // Gives the display back to BRLTTY for a while (Ctrl-Z) and takes it
  // again; false from Retake as from Write.
  virtual void Release() = 0;
  virtual bool Retake(std::string& why) = 0;
};

#endif  // BRAILLE_BRAILLE_DISPLAY_H_
