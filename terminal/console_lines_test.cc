#include "terminal/console_lines.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

// A stream in memory, read back as a string.
class MemoryStream {
 public:
  MemoryStream() : stream_(open_memstream(&buffer_, &size_)) {}
  ~MemoryStream() {
    if (stream_ != nullptr) std::fclose(stream_);
    std::free(buffer_);
  }
  FILE* get() { return stream_; }
  std::string Text() {
    std::fflush(stream_);
    return std::string(buffer_, size_);
  }

 private:
  char* buffer_ = nullptr;
  size_t size_ = 0;
  FILE* stream_;
};

// A presentation as the controls make them, and a beep as the frame asks.
void PresentALookup(ConsoleLines& lines) {
  for (TranscriptWriter* writer : lines.writers()) writer->Started();
  lines.presenter().ShowBraille(u"はな【花】");
  lines.presenter().Speak(u"はな【花】", false);
  lines.presenter().ShowBraille(u"終了");
  lines.presenter().Speak(u"終了 ボタン", false);
  lines.presenter().Speak(u"読み取り専用", false);
  for (TranscriptWriter* writer : lines.writers()) writer->Beep(32);
  lines.presenter().ShowBraille(u"一行目\n二行目");
  lines.presenter().Speak(u"", false);
  // An article read after its head line: what it adds comes out.
  lines.presenter().ShowBraille(u"はな【花】");
  lines.presenter().Speak(u"はな【花】 (n) flower\nbloom 文末", false);
  for (TranscriptWriter* writer : lines.writers()) writer->Ended();
}

// What the terminal shows of it: each presentation once, a beep as the bell.
const char kLookupAtTheTerminal[] =
    "はな【花】\n終了\n読み取り専用\n\a一行目 二行目\nはな【花】\n(n) flower bloom 文末\n";

TEST(ConsoleLinesTest, AtTheKeyboardEachPresentationComesOutOnce) {
  MemoryStream console;
  ConsoleLines lines(console.get(), console.get(), ConsoleOptions{}, true);
  PresentALookup(lines);
  EXPECT_EQ(console.Text(), kLookupAtTheTerminal);
}

TEST(ConsoleLinesTest, DotsShowTheBrailleCells) {
  MemoryStream console;
  ConsoleOptions options;
  options.show = ShowMode::kDots;
  ConsoleLines lines(console.get(), console.get(), options, true);
  lines.presenter().ShowBraille(u"はな");
  lines.presenter().Speak(u"はな", false);
  EXPECT_EQ(console.Text(), "⠥⠅\n");
}

TEST(ConsoleLinesTest, KeyScriptsKeepTheTranscriptWithDotsAndReadingsAdded) {
  MemoryStream console;
  ConsoleOptions options;
  options.extras = {true, true};
  ConsoleLines lines(console.get(), console.get(), options, false);
  lines.presenter().ShowBraille(u"はな");
  lines.presenter().Speak(u"私は\n花", false);
  EXPECT_EQ(console.Text(), "BRL はな\nDOTS ⠥⠅\nTTS 私は\\n花\nSAY ワタシワ\\nハナ\n");
}

TEST(ConsoleLinesTest, ATranscriptFileGetsTheTranscriptBesideTheTerminal) {
  MemoryStream console, file;
  ConsoleLines lines(console.get(), file.get(), ConsoleOptions{}, true);
  PresentALookup(lines);
  EXPECT_EQ(console.Text(), kLookupAtTheTerminal);
  EXPECT_EQ(file.Text(),
            "STARTED\nBRL はな【花】\nTTS はな【花】\nBRL 終了\nTTS 終了 ボタン\n"
            "TTS 読み取り専用\nBEEP 32\nBRL 一行目\\n二行目\nTTS \nBRL はな【花】\n"
            "TTS はな【花】 (n) flower\\nbloom 文末\nENDED\n");

  // With a key script and a file, the terminal stays quiet unless --show
  // asks for it.
  MemoryStream quiet, file2;
  ConsoleLines scripted(quiet.get(), file2.get(), ConsoleOptions{}, false);
  scripted.presenter().ShowBraille(u"はな");
  EXPECT_EQ(quiet.Text(), "");
  EXPECT_EQ(file2.Text(), "BRL はな\n");
}

TEST(ConsoleLinesTest, OptionsAreReadAndBadModesNamed) {
  const char* args[] = {"p", "--show", "dots", "--dots", "--readings", "--keys", "--show", "loud", "--show"};
  char** argv = const_cast<char**>(args);
  ConsoleOptions options;
  std::string error;
  int i = 1;
  EXPECT_EQ(ReadConsoleOption(9, argv, i, options, error), 1);
  EXPECT_EQ(i, 2);
  EXPECT_EQ(options.show, ShowMode::kDots);
  EXPECT_EQ(ReadConsoleOption(9, argv, ++i, options, error), 1);
  EXPECT_EQ(ReadConsoleOption(9, argv, ++i, options, error), 1);
  EXPECT_TRUE(options.extras.dots && options.extras.readings);
  EXPECT_EQ(ReadConsoleOption(9, argv, ++i, options, error), 0);
  EXPECT_EQ(ReadConsoleOption(9, argv, ++i, options, error), -1);
  EXPECT_EQ(error, "--show takes text, dots or transcript, not 'loud'");
  EXPECT_EQ(ReadConsoleOption(9, argv, ++i, options, error), -1);
  EXPECT_EQ(error, "--show needs a value");
}

}  // namespace
