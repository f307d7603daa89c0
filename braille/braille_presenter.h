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
// as one line on `notices` (standard error). A missing display is opened
// again on a thread of its own (display_opener.h), every few seconds, so
// that a BRLTTY that does not answer never holds up the keys: once one
// opens, ReconnectDescriptor() is readable, and Reconnect takes the
// display back, shows the line at once, and tells so once too.
#ifndef BRAILLE_BRAILLE_PRESENTER_H_
#define BRAILLE_BRAILLE_PRESENTER_H_

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "braille/braille_display.h"
#include "braille/display_opener.h"
#include "controls/presenter.h"

// Text to Unicode Braille cells, with in `sources` the unit of the text that
// each cell comes from (never falling from one cell to the next).
using CellTranslator =
    std::function<std::u16string(std::u16string_view text, std::vector<int>& sources)>;

class BraillePresenter : public Presenter {
 public:
  // The display is shared with the thread that opens it again; a missing
  // one is tried every `retry`.
  BraillePresenter(std::shared_ptr<BrailleDisplay> display, CellTranslator translate,
                   FILE* notices, std::chrono::milliseconds retry = std::chrono::seconds(3));
  BraillePresenter(const BraillePresenter&) = delete;
  BraillePresenter& operator=(const BraillePresenter&) = delete;

  // Opens the display, waiting for it no longer than `patience`; false,
  // told, when there is none or it has not answered by then (it is tried
  // again meanwhile).
  bool Start(std::chrono::milliseconds patience = std::chrono::seconds(2));
  // True while the display is there to write to.
  bool Connected() const { return connected_; }
  // Readable once a missing display has opened; -1 while none is tried.
  int ReconnectDescriptor() const { return opener_.Descriptor(); }
  // Without waiting: takes a missing display that has opened meanwhile;
  // true, told, and the line shown on it, when it has.
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

  std::shared_ptr<BrailleDisplay> display_;  // used only while connected_
  CellTranslator translate_;
  FILE* notices_;            // where a loss is told
  DisplayOpener opener_;     // opens the display while it is missing
  bool connected_ = false;   // the display is open and ours
  CString line_;             // the line shown
  std::u16string cells_;     // its cells
  std::vector<int> sources_;  // the unit of line_ each cell comes from
  int cursorCell_ = -1;      // the cell of the cursor in cells_, -1 none
  int window_ = 0;           // the first cell of cells_ in the window
};

#endif  // BRAILLE_BRAILLE_PRESENTER_H_
