// Speech that speaks readings: each utterance reaches the wrapped speech
// presenter as its katakana reading (reading/reading.h), so that any
// Japanese synthesizer says words, not the names of kanji. The Braille
// line and stops pass through unchanged; cutting speech short stays the
// wrapped presenter's business.
#ifndef SPEECH_READING_PRESENTER_H_
#define SPEECH_READING_PRESENTER_H_

#include "controls/presenter.h"

class ReadingPresenter : public Presenter {
 public:
  // `speech` stays the caller's and must outlive this presenter.
  explicit ReadingPresenter(Presenter& speech) : speech_(speech) {}
  void ShowBraille(const CString& line) override { speech_.ShowBraille(line); }
  void Speak(const CString& text, bool sync) override;
  void StopSpeech() override { speech_.StopSpeech(); }

 private:
  Presenter& speech_;  // the synthesizer's presenter
};

#endif  // SPEECH_READING_PRESENTER_H_
