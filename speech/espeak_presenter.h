// Speech through the espeak-ng program, voice "ja", when it is installed.
// Each utterance is a child process started without a shell, the text its
// last argument. Braille is not this presenter's business: pair it with a
// transcript (controls/presenter_pair.h).
#ifndef SPEECH_ESPEAK_PRESENTER_H_
#define SPEECH_ESPEAK_PRESENTER_H_

#include <sys/types.h>

#include "controls/presenter.h"

class EspeakPresenter : public Presenter {
 public:
  EspeakPresenter() = default;
  EspeakPresenter(const EspeakPresenter&) = delete;
  EspeakPresenter& operator=(const EspeakPresenter&) = delete;
  // Stops the utterance under way.
  ~EspeakPresenter() override;

  void ShowBraille(const CString&) override {}
  // Stops the utterance under way, then starts this one; with `sync` waits
  // for it. When the program can't be started, speech stays silent for the
  // rest of the run.
  void Speak(const CString& text, bool sync) override;
  void StopSpeech() override;

  // False once starting the program has failed.
  bool Available() const { return available_; }

 private:
  pid_t child_ = -1;       // the utterance under way, or -1
  bool available_ = true;  // false once espeak-ng could not be started
};

#endif  // SPEECH_ESPEAK_PRESENTER_H_
