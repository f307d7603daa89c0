#include "terminal/console_lines.h"

#include <gtest/gtest.h>

#include <string>

#include "testing/notice_stream.h"

namespace {

// A presentation as the controls make them, and a beep as the frame asks.
void PresentALookup(ConsoleLines& lines) {
  for (TranscriptWriter* writer : lines.writers()) writer->Started();
  lines.presenter().ShowBraille(u"はな【花】");
  lines.presenter().Speak(u"はな【花】", false);
  lines.presenter().ShowBraille(u"終了");
  lines.presenter().Speak(u"終了 ボタン", false);
  lines.presenter().Speak(u"読み取り専用", false);
  for (TranscriptWriter* writer : lines.writers()) writer->Beep(32);
  lines.presenter().ShowBraille(u"一行目\r\n二行目");
  lines.presenter().Speak(u"", false);
  lines.presenter().Speak(u"\r\t\\SD\x01", false);  // controls a terminal would act on
  // An article read after its head line: what it adds comes out.
  lines.presenter().ShowBraille(u"はな【花】");
  lines.presenter().Speak(u"はな【花】 (n) flower\nbloom 文末", false);
  for (TranscriptWriter* writer : lines.writers()) writer->Ended();
}

// At the keyboard each presentation comes out once, a beep as the bell;
// a transcript file beside it gets the transcript, escapes and all.
TEST(ConsoleLinesTest, AtTheKeyboardEachPresentationComesOutOnce) {
  Notices console, file;
  ConsoleLines lines(console.File(), file.File(), ConsoleOptions{}, true);
  PresentALookup(lines);
  EXPECT_EQ(console.Text(), "はな【花】\n終了\n読み取り専用\n\a一行目 二行目\n  \\SD \n"
                            "はな【花】\n(n) flower bloom 文末\n");
  EXPECT_EQ(file.Text(),
            "STARTED\nBRL はな【花】\nTTS はな【花】\nBRL 終了\nTTS 終了 ボタン\n"
            "TTS 読み取り専用\nBEEP 32\nBRL 一行目\\n二行目\nTTS \nTTS \\n\\t\\\\SD\\x01\n"
            "BRL はな【花】\nTTS はな【花】 (n) flower\\nbloom 文末\nENDED\n");
}

TEST(ConsoleLinesTest, ModesAndExtras) {
  Notices dots;
  ConsoleOptions options;
  options.show = ShowMode::kDots;
  ConsoleLines cells(dots.File(), dots.File(), options, true);
  cells.presenter().ShowBraille(u"はな");
  cells.presenter().Speak(u"はな", false);
  EXPECT_EQ(dots.Text(), "⠥⠅\n");

  // A key script keeps the transcript, with dots and readings added.
  Notices script;
  options = ConsoleOptions{};
  options.extras = {true, true};
  ConsoleLines transcript(script.File(), script.File(), options, false);
  transcript.presenter().ShowBraille(u"はな");
  transcript.presenter().Speak(u"私は\n花", false);
  EXPECT_EQ(script.Text(), "BRL はな\nDOTS ⠥⠅\nTTS 私は\\n花\nSAY ワタシワ\\nハナ\n");

  // With a key script and a file, the terminal stays quiet unless --show
  // asks for it.
  Notices quiet, file;
  ConsoleLines scripted(quiet.File(), file.File(), ConsoleOptions{}, false);
  scripted.presenter().ShowBraille(u"はな");
  EXPECT_EQ(quiet.Text(), "");
  EXPECT_EQ(file.Text(), "BRL はな\n");
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
