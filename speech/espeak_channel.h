// Speech through the espeak-ng library in this process, voice "ja", to the
// sound output of the machine: the fallback when no speech server can be
// reached. The library synthesizes on a thread of its own, so an utterance
// that is not waited for returns at once and the next one cancels it. The
// library holds one voice for the process: make one EspeakChannel.
#ifndef SPEECH_ESPEAK_CHANNEL_H_
#define SPEECH_ESPEAK_CHANNEL_H_

#include "speech/speech_channel.h"

class EspeakChannel : public SpeechChannel {
 public:
  EspeakChannel() = default;
  EspeakChannel(const EspeakChannel&) = delete;
  EspeakChannel& operator=(const EspeakChannel&) = delete;
  // Stops the utterance under way and closes the library.
  ~EspeakChannel() override;

  const char* Name() const override { return "espeak-ng"; }
  bool Open(std::string& why) override;
  bool Say(const std::string& utf8, bool wait, std::string& why) override;
  bool Stop(std::string& why) override;
  // Silent: a beep is the terminal's bell, or speech-dispatcher's.
  bool Sound(std::string&) override { return opened_; }

 private:
  bool opened_ = false;  // the library is initialized, with its output and voice
};

#endif  // SPEECH_ESPEAK_CHANNEL_H_
