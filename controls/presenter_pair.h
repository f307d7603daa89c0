// Hands every presentation to two presenters, in order: a transcript and
// speech, for instance.
#ifndef CONTROLS_PRESENTER_PAIR_H_
#define CONTROLS_PRESENTER_PAIR_H_

#include "controls/presenter.h"

class PresenterPair : public Presenter {
 public:
  PresenterPair(Presenter& first, Presenter& second) : first_(first), second_(second) {}
  void ShowBraille(const CString& line) override {
    first_.ShowBraille(line);
    second_.ShowBraille(line);
  }
  void ShowBrailleCursor(int position) override {
    first_.ShowBrailleCursor(position);
    second_.ShowBrailleCursor(position);
  }
  void Speak(const CString& text, bool sync) override {
    first_.Speak(text, sync);
    second_.Speak(text, sync);
  }
  void StopSpeech() override {
    first_.StopSpeech();
    second_.StopSpeech();
  }

 private:
  Presenter& first_;   // gets each event first
  Presenter& second_;  // gets it behind
};

#endif  // CONTROLS_PRESENTER_PAIR_H_
