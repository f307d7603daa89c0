// The built command: exactly the engine into pipes, UTF-8 only for a UTF-8
// terminal. Literals here are UTF-8; Shift-JIS bytes are spelled in hex.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "terminal/terminal_output.h"
#include "testing/engine_runner.h"

namespace {

// What `tomeview ARGS` writes into a pipe.
std::string command_output(const std::string& args) {
  const char* bin = getenv("TOMEVIEW_BIN");
  std::string command = std::string(bin ? bin : "bin") + "/tomeview " + args + " </dev/null";
  FILE* pipe = popen(command.c_str(), "r");
  std::string text;
  char chunk[4096];
  size_t got;
  while ((got = fread(chunk, 1, sizeof chunk, pipe)) > 0) text.append(chunk, got);
  EXPECT_EQ(pclose(pipe), 0) << command;
  return text;
}

// What a Shift-JIS text written in pieces reaches a UTF-8 terminal as.
std::string shown_on_terminal(std::initializer_list<const char*> pieces) {
  FILE* terminal = tmpfile();
  FILE* stream = open_utf8_writer(terminal);
  for (const char* piece : pieces) {
    fputs(piece, stream);
    fflush(stream);
  }
  fclose(stream);
  rewind(terminal);
  std::string text;
  for (int c; (c = fgetc(terminal)) != EOF;) text += static_cast<char>(c);
  fclose(terminal);
  return text;
}

TEST(Tomeview, PipesGetTheEnginesBytes) {
  for (const char* name : {"CDDRIVE", "CDFILE", "CDDEBUG", "CDBOOK", "CDKEY", "CDFILES"}) unsetenv(name);
  const std::string usage = command_output("");
  EXPECT_EQ(usage, run_engine({}).out);
  EXPECT_EQ(usage.rfind("tomeview [--][-option][keyword][number]\x81\x63\n", 0), 0u);
  EXPECT_EQ(command_output("-Y12 -A"), run_engine({"-Y12", "-A"}).out);
  EXPECT_EQ(command_output("--help"), "--help:\x83I\x83v\x83V\x83\x87\x83\x93\x8Ew\x92\xE8\x82\xAA"
                                      "\x8A\xD4\x88\xE1\x82\xC1\x82\xC4\x82\xA2\x82\xDC\x82\xB7\n");
}

TEST(Tomeview, KeywordsTypedInUtf8BecomeShiftJis) {
  EXPECT_EQ(shift_jis_keyword("はな"), "\x82\xCD\x82\xC8");
  EXPECT_EQ(shift_jis_keyword("ｱ1"), "\xB1" "1");
  EXPECT_EQ(shift_jis_keyword("-Dはな"), "-Dはな") << "option values are paths";
  EXPECT_EQ(shift_jis_keyword("/Nはな"), "/Nはな");
  EXPECT_EQ(shift_jis_keyword("\x82\xCD\x82\xC8"), "\x82\xCD\x82\xC8") << "Shift-JIS passes";
  EXPECT_EQ(shift_jis_keyword("\xC3\xB7" "a"), "\xC3\xB7" "a") << "half-width kana that also reads as UTF-8";
  EXPECT_EQ(shift_jis_keyword("한글"), "한글") << "no CP932 form: unchanged";
  EXPECT_EQ(shift_jis_keyword("plain"), "plain");
  EXPECT_EQ(shift_jis_keyword("\xE3\x81"), "\xE3\x81") << "a character cut short: unchanged";
}

TEST(Tomeview, TerminalSeesUtf8) {
  EXPECT_EQ(shown_on_terminal({"a\x82\xA0\n"}), "aあ\n");
  EXPECT_EQ(shown_on_terminal({"\x82", "\xA0", "\x82"}), "あ\xEF\xBF\xBD")
      << "a split character is carried over; one left at the close is replaced";
  EXPECT_EQ(shown_on_terminal({"\xFF" "b"}), "\xEF\xBF\xBD" "b");
}

}  // namespace
