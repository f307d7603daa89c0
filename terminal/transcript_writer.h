// The transcript: what the user got, one event a line, UTF-8 (format in
// docs/TRANSCRIPT.md):
//
//   BRL <text>    the Braille display shows <text> after a presentation
//   DOTS <cells>  (asked for) the same line in Japanese Braille cells
//   TTS <text>    an utterance
//   SAY <reading> (asked for) the reading speech is given for it
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

// The lines a transcript adds behind those of the controls' texts.
struct TranscriptExtras {
  bool dots = false;      // a DOTS line behind each BRL line
  bool readings = false;  // a SAY line behind each TTS line
};

// The events of a run written as lines. Other forms of the terminal's
// lines (console_lines.h) write the same events their own way.
class TranscriptWriter {
 public:
  // Writes to `stream`, which stays the caller's; each line is flushed.
  explicit TranscriptWriter(FILE* stream, TranscriptExtras extras = {})
      : stream_(stream), extras_(extras) {}
  virtual ~TranscriptWriter() = default;
  virtual void Braille(const CString& text);
  virtual void Speech(const CString& text);
  virtual void Beep(int code);
  virtual void Started();
  virtual void Ended();

 protected:
  // Writes `line` and a line feed, and flushes.
  void WriteLine(const std::string& line);
  FILE* stream() const { return stream_; }

 private:
  FILE* stream_;             // where the lines go
  TranscriptExtras extras_;  // lines added behind BRL and TTS
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
