// A presenter that keeps what it is given, in order, for tests: each event
// as the transcript line it would make ("BRL ...", "TTS ..."), and a stop
// of speech as "STOP".
#ifndef TESTING_RECORDING_PRESENTER_H_
#define TESTING_RECORDING_PRESENTER_H_

#include <string>
#include <vector>

#include "controls/presenter.h"

class RecordingPresenter : public Presenter {
 public:
  void ShowBraille(const CString& line) override;
  void Speak(const CString& text, bool sync) override;
  void StopSpeech() override;

  // The events so far, UTF-8, one a string; a synchronous utterance reads
  // "TTS! ..." so that tests can tell it apart.
  const std::vector<std::string>& Events() const { return events_; }
  // The last Braille line and the last utterance, UTF-8; empty if none.
  std::string LastBraille() const;
  std::string LastSpeech() const;
  void Clear() { events_.clear(); }

 private:
  std::vector<std::string> events_;  // in the order they came
};

// Sets a RecordingPresenter for the life of a scope, and puts back the one
// it replaced.
class ScopedRecordingPresenter : public RecordingPresenter {
 public:
  ScopedRecordingPresenter() : previous_(SetPresenter(this)) {}
  ~ScopedRecordingPresenter() override { SetPresenter(previous_); }

 private:
  Presenter* previous_;  // restored at the end of the scope
};

#endif  // TESTING_RECORDING_PRESENTER_H_
