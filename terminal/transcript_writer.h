// The transcript: what the user got, one event a line, UTF-8 (format in
// docs/TRANSCRIPT.md):
//
//   BRL <text>    the Braille display shows <text> after a presentation
//   TTS <text>    an utterance
//   BEEP <code>   a beep the task manager was asked for
//   STARTED       the application told the task manager it has started
//   ENDED         the application told the task manager it has ended
//
// A line break inside a text is written "\n" (CR LF, CR and LF alike), a
// tab "\t", another control character below U+0020 "\xHH", and a
// backslash "\\", so that each event stays on one line.
#ifndef TERMINAL_TRANSCRIPT_WRITER_H_
#define TERMINAL_TRANSCRIPT_WRITER_H_

#include <cstdio>
#include <string>

#include "controls/presenter.h"

class TranscriptWriter {
 public:
  // Writes to `stream`, which stays the caller's; each line is flushed.
  explicit TranscriptWriter(FILE* stream) : stream_(stream) {}
  void Braille(const CString& text);
  void Speech(const CString& text);
  void Beep(int code);
  void Started();
  void Ended();

 private:
  void WriteLine(const std::string& line);
  FILE* stream_;  // where the lines go
};

// The text of an event as the transcript writes it, escapes included.
std::string TranscriptText(const CString& text);

// A presenter that writes BRL and TTS lines: the terminal presenter (on
// standard output a screen reader follows the lines) and the transcript
// file alike. A stop of speech leaves no line.
class TranscriptPresenter : public Presenter {
 public:
  explicit TranscriptPresenter(TranscriptWriter& writer) : writer_(writer) {}
  void ShowBraille(const CString& line) override { writer_.Braille(line); }
  void Speak(const CString& text, bool) override { writer_.Speech(text); }
  void StopSpeech() override {}

 private:
  TranscriptWriter& writer_;  // the caller's
};

#endif  // TERMINAL_TRANSCRIPT_WRITER_H_
