#include "terminal/console_lines.h"

#include "platform/utf8_text.h"
#include "reading/reading.h"

const char kConsoleOptionsHelp[] =
    "  --show MODE       what the terminal shows: text (each presentation once,\n"
    "                    the Braille line's text; a beep rings the bell), dots\n"
    "                    (the same in Japanese Braille cells) or transcript (the\n"
    "                    lines above). Default: text at the keyboard, transcript\n"
    "                    with --keys\n"
    "  --dots            the transcript adds \"DOTS <cells>\" behind each BRL line\n"
    "  --readings        the transcript adds \"SAY <reading>\" behind each TTS line,\n"
    "                    the katakana reading that speech is given\n";

int ReadConsoleOption(int argc, char** argv, int& i, ConsoleOptions& options, std::string& error) {
  const std::string option = argv[i];
  if (option == "--dots") {
    options.extras.dots = true;
    return 1;
  }
  if (option == "--readings") {
    options.extras.readings = true;
    return 1;
  }
  if (option != "--show") return 0;
  const std::string mode = i + 1 < argc ? argv[++i] : "";
  if (mode == "text") {
    options.show = ShowMode::kText;
  } else if (mode == "dots") {
    options.show = ShowMode::kDots;
  } else if (mode == "transcript") {
    options.show = ShowMode::kTranscript;
  } else {
    error = mode.empty() ? "--show needs a value" : "--show takes text, dots or transcript, not '" + mode + "'";
    return -1;
  }
  return 1;
}

namespace {

// Whether a text is more than one word: it holds a blank or a break.
bool HasBlank(const CString& text) {
  for (char16_t ch : text.Units())
    if (ch <= u' ' || ch == u'\u3000') return true;
  return false;
}

}  // namespace

void ConsoleWriter::Show(const CString& text) {
  if (dots_) {
    WriteLine(ToUtf8(CString(BrailleCells(text.Units()))));
    return;
  }
  // One line for the screen reader: breaks (CR LF, CR or LF) and other
  // controls (C0, DEL and C1, which a terminal would act on) read as blanks.
  const std::u16string& units = text.Units();
  std::u16string plain;
  for (size_t i = 0; i < units.size(); ++i) {
    const char16_t ch = units[i];
    if (ch == u'\r' && i + 1 < units.size() && units[i + 1] == u'\n') continue;
    plain += ch < 0x20 || (ch >= 0x7F && ch <= 0x9F) ? u' ' : ch;
  }
  WriteLine(ToUtf8(CString(std::move(plain))));
}

void ConsoleWriter::Braille(const CString& text) {
  afterBraille_ = !text.IsEmpty();
  lastBraille_ = text;
  if (!text.IsEmpty()) Show(text);
}

void ConsoleWriter::Speech(const CString& text) {
  // An utterance that says what the Braille line just shown says (a part of
  // it, or all of it with a title or one role word around it: "終了 ボタン")
  // belongs to the same presentation. One that goes on with more (an article
  // read on opening after its head line) shows what it adds, so that the
  // reader at a terminal gets what a listener hears.
  const bool after = afterBraille_;
  afterBraille_ = false;
  if (text.IsEmpty()) return;
  if (after && lastBraille_.Find(text) >= 0) return;
  const int at = after && !lastBraille_.IsEmpty() ? text.Find(lastBraille_) : -1;
  if (at < 0) {
    Show(text);
    return;
  }
  CString rest = text.Mid(at + lastBraille_.GetLength());
  rest.Trim(u" \n\u3000");
  if (HasBlank(rest)) Show(rest);
}

void ConsoleWriter::Beep(int) {
  std::fputc('\a', stream());
  std::fflush(stream());
}

ConsoleLines::ConsoleLines(FILE* console, FILE* transcriptFile, const ConsoleOptions& options,
                           bool keyboard) {
  const ShowMode mode = options.show != ShowMode::kDefault ? options.show
                        : keyboard                         ? ShowMode::kText
                                                           : ShowMode::kTranscript;
  const bool fileOfItsOwn = transcriptFile != console;
  if (fileOfItsOwn) owned_.push_back(std::make_unique<TranscriptWriter>(transcriptFile, options.extras));
  if (!fileOfItsOwn || keyboard || options.show != ShowMode::kDefault) {
    if (mode == ShowMode::kTranscript)
      owned_.push_back(std::make_unique<TranscriptWriter>(console, options.extras));
    else
      owned_.push_back(std::make_unique<ConsoleWriter>(console, mode == ShowMode::kDots));
  }
  for (auto& writer : owned_) {
    writers_.push_back(writer.get());
    presenters_.push_back(std::make_unique<TranscriptPresenter>(*writer));
  }
  if (presenters_.size() == 2) {
    pair_ = std::make_unique<PresenterPair>(*presenters_[1], *presenters_[0]);
    presenter_ = pair_.get();
  } else {
    presenter_ = presenters_[0].get();
  }
}
