// The reader's speech: utterances go to the first of its channels that
// works, in the order given (speech-dispatcher, then the espeak-ng library).
// A channel that cannot be opened, or that is lost in the middle of a run,
// is left for the next one, which takes over with the utterance that found
// the loss; with none left, speech is silent. Each such change is told
// once, as one line on `notices` (standard error), and never again for the
// same channel. Braille is not this presenter's business: pair it with
// the Braille presenters (controls/presenter_pair.h).
#ifndef SPEECH_SPEECH_PRESENTER_H_
#define SPEECH_SPEECH_PRESENTER_H_

#include <cstdio>
#include <string>
#include <vector>

#include "controls/presenter.h"
#include "speech/speech_channel.h"

class SpeechPresenter : public Presenter {
 public:
  // The channels stay the caller's and must outlive the presenter.
  SpeechPresenter(std::vector<SpeechChannel*> channels, FILE* notices);
  SpeechPresenter(const SpeechPresenter&) = delete;
  SpeechPresenter& operator=(const SpeechPresenter&) = delete;

  // Opens the first channel that opens. False when none did (speech is
  // then silent, and that has been told).
  bool Start();

  void ShowBraille(const CString&) override {}
  void Speak(const CString& text, bool sync) override;
  void StopSpeech() override;
  // A beep made audible: the channel's sound, if it has one.
  void Beep();

  // The channel speaking now, or null when speech is silent.
  SpeechChannel* Current() const;

 private:
  // Leaves the channel in use, which failed for `why`, and opens the next
  // one that opens, telling the change in one line.
  void FallBack(const std::string& why);
  // Opens channels from next_ on; the reasons of those that failed are
  // added to `failures`.
  bool OpenNext(std::string& failures);

  std::vector<SpeechChannel*> channels_;  // in order of preference
  size_t current_ = 0;                    // index in channels_; size() when silent
  FILE* notices_;                         // where the changes are told
};

#endif  // SPEECH_SPEECH_PRESENTER_H_
