// The Braille display of BRLTTY, through BrlAPI. The server is the
// library's default (BRLAPI_HOST, else the local one) with its usual key
// (BRLAPI_AUTH). The reader takes the terminal it runs on (WINDOWID,
// CONTROLVT or its own tty, as the library finds it), or the whole display
// when it runs on none, and asks for keys as BRLTTY's commands. Cells typed
// on the display's Braille keyboard come as cells (BRLAPI_KEY_CMD_PASSDOTS),
// also where BRLTTY has made characters of them through its text table.
//
// BrlAPI cannot tell such a character from one typed on a keyboard that
// BRLTTY reads (a PC keyboard, a display's typewriter keys): BRLTTY 6.5
// hands both over as the same keyboard symbol, with no flag, and sends
// typed cells as characters even though the parameter asking for dots
// (BRLAPI_PARAM_RETAIN_DOTS) reads back as set. So every character that
// the text table has a cell for is taken as that cell typed; only the
// others come through as characters.
#ifndef BRAILLE_BRLAPI_DISPLAY_H_
#define BRAILLE_BRLAPI_DISPLAY_H_

#include <brlapi.h>

#include <cstdint>
#include <map>

#include "braille/braille_display.h"

// The character a BrlAPI key stands for: a keyboard symbol of a Latin-1
// or Unicode character; 0 for a command or a key such as Enter or an arrow.
uint32_t KeyCharacter(uint64_t key);

class BrlapiDisplay : public BrailleDisplay {
 public:
  BrlapiDisplay() = default;
  BrlapiDisplay(const BrlapiDisplay&) = delete;
  BrlapiDisplay& operator=(const BrlapiDisplay&) = delete;
  // Gives the display back and closes the connection.
  ~BrlapiDisplay() override;

  const char* Name() const override { return "BRLTTY"; }
  bool Open(std::string& why) override;
  int Width() const override { return width_; }
  bool Write(const std::u16string& cells, int cursor, std::string& why) override;
  int KeyDescriptor() const override { return descriptor_; }
  int ReadKey(uint64_t& key, std::string& why) override;
  void Release() override;
  bool Retake(std::string& why) override;

 private:
  // Takes the display: the terminal, or the whole of it.
  bool Take(std::string& why);
  // Closes what is left of a connection that failed; false, with the
  // library's words for the failure in `why`.
  bool Lost(std::string& why);
  // `key`, or, for a character that BRLTTY's text table makes of a cell
  // typed on the Braille keyboard, that cell (BRLAPI_KEY_CMD_PASSDOTS).
  uint64_t TypedCell(uint64_t key);

  int descriptor_ = -1;  // the connection, -1 when there is none
  int width_ = 0;        // cells across the display
  bool taken_ = false;   // the display is ours (tty mode)
  // The cells of BRLTTY's text table, by Unicode row, as far as asked.
  std::map<uint32_t, brlapi_param_computerBrailleRowCells_t> rows_;
};

#endif  // BRAILLE_BRLAPI_DISPLAY_H_
