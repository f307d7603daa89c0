// A way of speaking: a speech server the reader connects to, or a
// synthesizer in the process. SpeechPresenter speaks through the first
// channel that works and falls back to the next when one is lost; fakes in
// the tests stand in for the real ones.
#ifndef SPEECH_SPEECH_CHANNEL_H_
#define SPEECH_SPEECH_CHANNEL_H_

#include <string>

class SpeechChannel {
 public:
  virtual ~SpeechChannel() = default;
  // What the user knows the channel as, for messages ("speech-dispatcher").
  virtual const char* Name() const = 0;
  // Connects or starts up; false, with the reason in `why`, when it can't.
  virtual bool Open(std::string& why) = 0;
  // Cuts short the utterance under way and speaks `utf8`; with `wait`,
  // returns once it is spoken. False, with the reason in `why`, when the
  // channel is lost: the utterance may not have been spoken.
  virtual bool Say(const std::string& utf8, bool wait, std::string& why) = 0;
  // Silences the utterance under way; false as Say.
  virtual bool Stop(std::string& why) = 0;
  // A short sound for a beep; true and silent when the channel has no
  // sound of its own, false as Say.
  virtual bool Sound(std::string& why) = 0;
};

#endif  // SPEECH_SPEECH_CHANNEL_H_
