#include "speech/espeak_channel.h"

#include <espeak-ng/espeak_ng.h>
#include <fcntl.h>
#include <unistd.h>


namespace {

// The library's words for `status`, for a failure line.
std::string Reason(const char* what, espeak_ng_STATUS status) {
  char message[256] = "";
  espeak_ng_GetStatusCodeMessage(status, message, sizeof message);
  return std::string(what) + ": " + message;
}

// Standard error goes to /dev/null while one of these lives. The sound
// libraries under the synthesizer write their complaints there line upon
// line when there is no sound device; the failure is told once, by the
// presenter, instead.
class QuietStandardError {
 public:
  QuietStandardError() : saved_(dup(STDERR_FILENO)), quiet_(open("/dev/null", O_WRONLY)) {
    if (saved_ >= 0 && quiet_ >= 0) dup2(quiet_, STDERR_FILENO);
  }
  ~QuietStandardError() {
    if (saved_ >= 0 && quiet_ >= 0) dup2(saved_, STDERR_FILENO);
    if (quiet_ >= 0) close(quiet_);
    if (saved_ >= 0) close(saved_);
  }
  QuietStandardError(const QuietStandardError&) = delete;
  QuietStandardError& operator=(const QuietStandardError&) = delete;

 private:
  int saved_;  // standard error as it was
  int quiet_;  // /dev/null
};

// Whether the sound output works: a moment of silence played and waited for.
espeak_ng_STATUS ProbeSound() {
  static const char kSilence[] = "<speak><break time=\"10ms\"/></speak>";
  QuietStandardError quiet;
  espeak_ng_STATUS status = espeak_ng_InitializeOutput(
      static_cast<espeak_ng_OUTPUT_MODE>(ENOUTPUT_MODE_SYNCHRONOUS | ENOUTPUT_MODE_SPEAK_AUDIO), 0,
      nullptr);
  if (status == ENS_OK)
    status = espeak_ng_Synthesize(kSilence, sizeof kSilence, 0, POS_CHARACTER, 0,
                                  espeakCHARS_UTF8 | espeakSSML, nullptr, nullptr);
  return status;
}

}  // namespace

EspeakChannel::~EspeakChannel() {
  if (!opened_) return;
  espeak_ng_Cancel();
  espeak_ng_Terminate();
}

bool EspeakChannel::Open(std::string& why) {
  espeak_ng_InitializePath(nullptr);
  espeak_ng_ERROR_CONTEXT context = nullptr;
  espeak_ng_STATUS status = espeak_ng_Initialize(&context);
  espeak_ng_ClearErrorContext(&context);
  if (status != ENS_OK) {
    why = Reason("no voice data", status);
    return false;
  }
  status = espeak_ng_SetVoiceByName("ja");
  if (status != ENS_OK) {
    why = Reason("no Japanese voice", status);
    espeak_ng_Terminate();
    return false;
  }
  status = ProbeSound();
  if (status == ENS_OK) status = espeak_ng_InitializeOutput(ENOUTPUT_MODE_SPEAK_AUDIO, 0, nullptr);
  if (status != ENS_OK) {
    why = Reason("no sound output", status);
    QuietStandardError quiet;  // closing tries the sound device once more
    espeak_ng_Terminate();
    return false;
  }
  opened_ = true;
  return true;
}

bool EspeakChannel::Say(const std::string& utf8, bool wait, std::string& why) {
  if (!opened_) {
    why = "not started";
    return false;
  }
  espeak_ng_Cancel();
  const espeak_ng_STATUS status =
      espeak_ng_Synthesize(utf8.c_str(), utf8.size() + 1, 0, POS_CHARACTER, 0, espeakCHARS_UTF8,
                           nullptr, nullptr);
  if (status != ENS_OK) {
    why = Reason("cannot speak", status);
    return false;
  }
  if (wait) espeak_ng_Synchronize();
  return true;
}

bool EspeakChannel::Stop(std::string& why) {
  if (!opened_) {
    why = "not started";
    return false;
  }
  espeak_ng_Cancel();
  return true;
}
