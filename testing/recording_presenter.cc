#include "testing/recording_presenter.h"

#include "terminal/transcript_writer.h"

void RecordingPresenter::ShowBraille(const CString& line) {
  events_.push_back("BRL " + TranscriptText(line));
}

void RecordingPresenter::Speak(const CString& text, bool sync) {
  events_.push_back((sync ? "TTS! " : "TTS ") + TranscriptText(text));
}

void RecordingPresenter::StopSpeech() { events_.push_back("STOP"); }

namespace {

// The text of the latest event whose line starts with one of the prefixes.
std::string LastWith(const std::vector<std::string>& events, const std::string& a,
                     const std::string& b) {
  for (auto it = events.rbegin(); it != events.rend(); ++it) {
    if (it->rfind(a, 0) == 0) return it->substr(a.size());
    if (!b.empty() && it->rfind(b, 0) == 0) return it->substr(b.size());
  }
  return "";
}

}  // namespace

std::string RecordingPresenter::LastBraille() const { return LastWith(events_, "BRL ", ""); }

std::string RecordingPresenter::LastSpeech() const { return LastWith(events_, "TTS ", "TTS! "); }
