#include "speech/speech_presenter.h"

#include "platform/utf8_text.h"

SpeechPresenter::SpeechPresenter(std::vector<SpeechChannel*> channels, FILE* notices)
    : channels_(std::move(channels)), current_(channels_.size()), notices_(notices) {}

SpeechChannel* SpeechPresenter::Current() const {
  return current_ < channels_.size() ? channels_[current_] : nullptr;
}

bool SpeechPresenter::OpenNext(std::string& failures) {
  for (; current_ < channels_.size(); ++current_) {
    std::string why;
    if (channels_[current_]->Open(why)) return true;
    failures += std::string(failures.empty() ? "" : "; ") + channels_[current_]->Name() +
                " cannot be used (" + why + ")";
  }
  return false;
}

bool SpeechPresenter::Start() {
  current_ = 0;
  std::string failures;
  const bool opened = OpenNext(failures);
  if (opened && !failures.empty()) {
    std::fprintf(notices_, "epwingdict: %s; speaking through %s\n", failures.c_str(),
                 Current()->Name());
  } else if (!opened && !channels_.empty()) {
    std::fprintf(notices_, "epwingdict: no speech: %s\n", failures.c_str());
  }
  std::fflush(notices_);
  return opened;
}

void SpeechPresenter::FallBack(const std::string& why) {
  std::string failures = std::string(Current()->Name()) + " was lost (" + why + ")";
  ++current_;
  if (OpenNext(failures)) {
    std::fprintf(notices_, "epwingdict: %s; speaking through %s\n", failures.c_str(),
                 Current()->Name());
  } else {
    std::fprintf(notices_, "epwingdict: %s; no speech from now on\n", failures.c_str());
  }
  std::fflush(notices_);
}

void SpeechPresenter::Speak(const CString& text, bool sync) {
  if (text.IsEmpty()) {
    StopSpeech();
    return;
  }
  const std::string utf8 = ToUtf8(text);
  std::string why;
  while (Current() != nullptr && !Current()->Say(utf8, sync, why)) FallBack(why);
}

void SpeechPresenter::StopSpeech() {
  std::string why;
  while (Current() != nullptr && !Current()->Stop(why)) FallBack(why);
}

void SpeechPresenter::Beep() {
  std::string why;
  while (Current() != nullptr && !Current()->Sound(why)) FallBack(why);
}
