// The Braille line on a real display. Each line the controls show is
// translated once to kana Braille cells (the translator, reading/reading.h's
// BrailleCellsWithSources in the program) and written to the display, a
// window of its width at a time: a line longer than the display is read by
// panning the window along it, and the window goes where the edit field's
// cursor is. Cursor-routing keys name a cell of the window; UnitAt gives
// the character of the line that cell comes from, for the edit control.
//
// Without a display (BRLTTY not running) or once it is lost, the presenter
// does nothing, and the terminal alone shows the line; that is told once,
// as one line on `notices` (standard error). The input wait calls
// Reconnect now and then while the display is missing: once BRLTTY is
// back, the display is taken again, shows the line at once, and that is
// told once too.
#ifndef BRAILLE_BRAILLE_PRESENTER_H_
#define BRAILLE_BRAILLE_PRESENTER_H_

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "braille/braille_display.h"
#include "controls/presenter.h"

// Text to Unicode Braille cells, with in `sources` the unit of the text that
// each cell comes from (never falling from one cell to the next).
using CellTranslator =
    std::function<std::u16string(std::u16string_view text, std::vector<int>& sources)>;

class BraillePresenter : public Presenter {
 public:
  // The display stays the caller's and must outlive the presenter.
  BraillePresenter(BrailleDisplay& display, CellTranslator translate, FILE* notices);
  BraillePresenter(const BraillePresenter&) = delete;
  BraillePresenter& operator=(const BraillePresenter&) = delete;

  // Opens the display; false, told, when there is none.
  bool Start();
  // True while the display is there to write to.
  bool Connected() const { return connected_; }
  // True when a display was asked for (Start) and is not there.
  bool Missing() const { return started_ && !connected_; }
  // Tries once, quietly, to open a missing display; true, told, and the
  // line shown on it, when it opens.
  bool Reconnect();

  void ShowBraille(const CString& line) override;
  void ShowBrailleCursor(int position) override;
  void Speak(const CString&, bool) override {}
  void StopSpeech() override {}

  // Readable when the display has a key; -1 without a display.
  int KeyDescriptor() const;
  // Takes a waiting key: true, with the key (brlapi_keycodes.h), when one
  // came; false when none waits or the display is lost (told).
  bool ReadKey(uint64_t& key);
  // Moves the window a width back (-1) or on (+1); false at the line's end.
  bool Pan(int direction);
  // The unit of the line that cell `cell` of the window comes from, or the
  // line's length behind its end.
  int UnitAt(int cell) const;
  // The cells of the line and the first one in the window, for the tests.
  const std::u16string& Cells() const { return cells_; }
  int WindowStart() const { return window_; }

  // Gives the display back for a while (Ctrl-Z) and takes it again,
  // showing the line anew.
  void Release();
  void Retake();

 private:
  // The first cell of the character at unit `position` of the line (of
  // the word, where the character has no cells of its own); behind the
  // last cell at the line's end.
  int CellOf(int position) const;
  // Puts the window where the cursor is, at the start without one.
  void FollowCursor();
  void Refresh();
  void Lose(const std::string& why);

  BrailleDisplay& display_;
  CellTranslator translate_;
  FILE* notices_;            // where a loss is told
  bool started_ = false;     // a display was asked for
  bool connected_ = false;   // the display is open and ours
  CString line_;             // the line shown
  std::u16string cells_;     // its cells
  std::vector<int> sources_;  // the unit of line_ each cell comes from
  int cursorCell_ = -1;      // the cell of the cursor in cells_, -1 none
  int window_ = 0;           // the first cell of cells_ in the window
};

#endif  // BRAILLE_BRAILLE_PRESENTER_H_
