// What the reader writes on the terminal it runs in, and in the transcript
// file, chosen by the options --show, --dots and --readings.
//
// At the keyboard the terminal shows each presentation once, with no
// prefix, so that a screen reader says it once: the Braille line's text
// (--show text, the default) or its Japanese Braille cells (--show dots);
// an utterance that only repeats the Braille line before it leaves no line,
// and a beep rings the terminal's bell. --show transcript gives the
// transcript's lines instead, the default with a key script. The
// transcript, on the terminal or in its file, gets a DOTS line behind each
// BRL line with --dots and a SAY line behind each TTS line with --readings.
#ifndef TERMINAL_CONSOLE_LINES_H_
#define TERMINAL_CONSOLE_LINES_H_

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "controls/presenter.h"
#include "controls/presenter_pair.h"
#include "terminal/transcript_writer.h"

enum class ShowMode { kDefault, kText, kDots, kTranscript };

struct ConsoleOptions {
  ShowMode show = ShowMode::kDefault;  // --show
  TranscriptExtras extras;             // --dots, --readings
};

// The options' lines for a program's --help.
extern const char kConsoleOptionsHelp[];

// When argv[i] is one of the options above, reads it (and its value,
// moving i past it) and answers 1, or -1 with `error` set when its value
// is wrong; 0 when it is another option.
int ReadConsoleOption(int argc, char** argv, int& i, ConsoleOptions& options, std::string& error);

// Writes each presentation once, as a line of the Braille line's text or
// of its cells, and a beep as the bell; the start and end of the reader
// leave no line.
class ConsoleWriter : public TranscriptWriter {
 public:
  ConsoleWriter(FILE* stream, bool dots) : TranscriptWriter(stream), dots_(dots) {}
  void Braille(const CString& text) override;
  void Speech(const CString& text) override;
  void Beep(int code) override;
  void Started() override {}
  void Ended() override {}

 private:
  void Show(const CString& text);
  bool dots_;              // cells in place of text
  CString lastBraille_;    // the Braille line just written
  bool afterBraille_ = false;  // the last event was a Braille line
};

// The writers of a run and the presenter over them: `console` in its mode,
// and `transcriptFile`, when it is another stream, in transcript lines. At
// the keyboard, or when --show names a mode, the console shows the lines;
// otherwise the transcript file alone gets them.
class ConsoleLines {
 public:
  ConsoleLines(FILE* console, FILE* transcriptFile, const ConsoleOptions& options, bool keyboard);
  // Presents on every writer.
  Presenter& presenter() { return *presenter_; }
  // Where the task manager writes STARTED, ENDED and BEEP.
  const std::vector<TranscriptWriter*>& writers() const { return writers_; }

 private:
  std::vector<std::unique_ptr<TranscriptWriter>> owned_;
  std::vector<std::unique_ptr<TranscriptPresenter>> presenters_;
  std::unique_ptr<PresenterPair> pair_;
  std::vector<TranscriptWriter*> writers_;
  Presenter* presenter_ = nullptr;
};

#endif  // TERMINAL_CONSOLE_LINES_H_
