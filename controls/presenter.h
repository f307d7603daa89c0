// What the user gets from the reader: one Braille line and utterances.
// Every control presents through the process-wide presenter, so a test can
// put a recording one in place and a program a terminal or speech one.
#ifndef CONTROLS_PRESENTER_H_
#define CONTROLS_PRESENTER_H_

#include "platform/wide_string.h"

class Presenter {
 public:
  virtual ~Presenter() = default;
  // The Braille display now shows `line`, in place of what it showed.
  virtual void ShowBraille(const CString& line) = 0;
  // The edit field's cursor stands before unit `position` of the line just
  // shown (its length: behind its end). A display with a cursor shows it;
  // the other presenters leave it.
  virtual void ShowBrailleCursor(int position) { (void)position; }
  // Speaks `text`. With `sync` the call returns once the text is spoken;
  // without it the call returns at once, and a later utterance cuts this
  // one short, as a screen reader does when the user moves on.
  virtual void Speak(const CString& text, bool sync) = 0;
  // Silences the utterance under way, if any.
  virtual void StopSpeech() = 0;
};

// The presenter the controls use: a silent one until a program or a test
// sets another. SetPresenter returns the one it replaces (null when that
// was the silent one); null puts the silent one back. The caller keeps
// ownership and keeps the presenter alive while it is set.
Presenter& CurrentPresenter();
Presenter* SetPresenter(Presenter* presenter);

#endif  // CONTROLS_PRESENTER_H_
