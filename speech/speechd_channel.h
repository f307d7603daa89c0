// Speech through speech-dispatcher, the speech server of the user's desktop
// and screen reader: the user's voice, rate and output module. The address
// is the library's default (SPEECHD_ADDRESS, else the user's own socket,
// where the library may start the server as it does for any client). The
// language is Japanese; each utterance cancels this client's utterance
// under way. An utterance to be waited for is waited for until the server
// tells its end or cancel, or for a time after which it surely ended.
#ifndef SPEECH_SPEECHD_CHANNEL_H_
#define SPEECH_SPEECHD_CHANNEL_H_

#include <condition_variable>
#include <cstddef>
#include <mutex>

#include <libspeechd.h>

#include "speech/speech_channel.h"

class SpeechdChannel : public SpeechChannel {
 public:
  SpeechdChannel() = default;
  SpeechdChannel(const SpeechdChannel&) = delete;
  SpeechdChannel& operator=(const SpeechdChannel&) = delete;
  // Closes the connection; what was said goes on being spoken.
  ~SpeechdChannel() override;

  const char* Name() const override { return "speech-dispatcher"; }
  bool Open(std::string& why) override;
  bool Say(const std::string& utf8, bool wait, std::string& why) override;
  bool Stop(std::string& why) override;
  // The sound icon "bell".
  bool Sound(std::string& why) override;

  // The server has ended or cancelled message `messageId`: called on the
  // library's own thread.
  void MarkDone(size_t messageId);

 private:
  // Waits until message `id` has ended, as long as it could take to speak
  // `bytes` bytes; false when the server went away meanwhile.
  bool WaitFor(int id, size_t bytes);
  bool Lost(const char* what, std::string& why);

  SPDConnection* connection_ = nullptr;  // null until opened and once lost
  std::mutex mutex_;                     // guards doneId_
  std::condition_variable done_;         // signalled when doneId_ grows
  size_t doneId_ = 0;                    // the latest message that ended or was cancelled
};

#endif  // SPEECH_SPEECHD_CHANNEL_H_
