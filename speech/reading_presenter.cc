#include "speech/reading_presenter.h"

#include "reading/reading.h"

void ReadingPresenter::Speak(const CString& text, bool sync) {
  speech_.Speak(CString(SpeechReading(text.Units())), sync);
}
