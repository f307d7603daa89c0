// The built command as scripts meet it: the bytes it writes into a pipe
// under each locale and option, and its exit status. Literals here are
// UTF-8; Shift-JIS bytes are spelled in hex.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "terminal/terminal_output.h"
#include "testing/command_run.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"

namespace {

const char kHanaSjis[] = "\x82\xCD\x82\xC8";  // はな
const char kFlowerSjis[] = "\x89\xD4";        // 花

class Tomeview : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : {"CDDRIVE", "CDFILE", "CDDEBUG", "CDBOOK", "CDKEY", "CDFILES"}) unsetenv(name);
  }
  // `tomeview ARGS` with LC_ALL=`locale`, standard input `input`.
  static CommandResult Run(const std::string& locale, const std::string& args,
                           const std::string& input = "") {
    return run_command("printf '" + input + "' | LC_ALL=" + locale + " " + built_programs() +
                       "tomeview " + args);
  }
  // The sample dictionary of the demo card, as -D.
  const std::string book = "-D" + built_programs() + "../card/epwing/plus";
};

// What Shift-JIS text written in pieces reaches a UTF-8 reader as.
std::string as_utf8(std::initializer_list<std::string> pieces) {
  FILE* sink = tmpfile();
  FILE* stream = open_utf8_writer(sink);
  for (const std::string& piece : pieces) {
    fwrite(piece.data(), 1, piece.size(), stream);
    fflush(stream);
  }
  fclose(stream);
  rewind(sink);
  std::string text;
  for (int c; (c = fgetc(sink)) != EOF;) text += static_cast<char>(c);
  fclose(sink);
  return text;
}

TEST_F(Tomeview, ExitStatusTellsFailuresAndBadOptions) {
  const CommandResult usage = Run("C", "");
  EXPECT_EQ(usage.status, 0);
  EXPECT_EQ(usage.out, run_engine({}).out);
  EXPECT_EQ(Run("C", book + " はな").status, 0);

  const CommandResult missing = Run("C", "-D/nonexistent はな");
  EXPECT_EQ(missing.status, 1);
  EXPECT_NE(missing.out.find("error 16.\n"), std::string::npos) << missing.out;
  EXPECT_EQ(missing.out, run_engine({"-D/nonexistent", kHanaSjis}).out) << "output unchanged";
  EXPECT_EQ(Run("C", book + " -B9 はな").status, 1) << "a book number not in the catalog";

  const CommandResult bad = Run("C", book + " -9 はな");
  EXPECT_EQ(bad.status, 2);
  EXPECT_EQ(bad.out, run_engine({book, "-9", kHanaSjis}).out);
  EXPECT_EQ(Run("C", "-D/nonexistent -9 はな").status, 2) << "a wrong usage counts first";
  EXPECT_EQ(Run("C", "--help " + book).status, 2) << "--help in company goes to the engine";
  EXPECT_EQ(Run("C", book + " --utf8").status, 2) << "--utf8 behind the engine's arguments";

  const CommandResult both = Run("C", "--sjis --utf8 はな 2>/dev/null");
  EXPECT_EQ(both.status, 2);
  EXPECT_EQ(both.out, "");
  EXPECT_EQ(Run("C", book + " はな >/dev/full 2>/dev/null").status, 1) << "output that can't be written";
  EXPECT_EQ(Run("C", book + " --", "はな\\n-9\\n").status, 2) << "lines of the prompt loop count";
}

TEST_F(Tomeview, TextFollowsTheLocaleInAPipe) {
  const std::string sjis = run_engine({book, kHanaSjis}).out;
  ASSERT_NE(sjis.find(kFlowerSjis), std::string::npos) << "the sample dictionary has 花";
  const std::string utf8 = as_utf8({sjis});
  ASSERT_NE(utf8.find("花"), std::string::npos);

  EXPECT_EQ(Run("C", book + " はな").out, sjis) << "the C locale keeps the engine's bytes";
  EXPECT_EQ(Run("C", book + " " + kHanaSjis).out, sjis) << "a Shift-JIS keyword";
  EXPECT_EQ(Run("ja_JP.eucJP", book + " はな").out, sjis) << "any locale but UTF-8 (or none known)";
  EXPECT_EQ(Run("C.UTF-8", book + " はな").out, utf8);
  EXPECT_EQ(Run("C.UTF-8", "--sjis " + book + " はな").out, sjis);
  EXPECT_EQ(Run("C", "--utf8 " + book + " はな").out, utf8);
  EXPECT_EQ(Run("C.UTF-8", "--utf8 --utf8 " + book + " はな").out, utf8);
  EXPECT_EQ(Run("C.UTF-8", "--utf8").out, as_utf8({run_engine({}).out})) << "the usage text";

  // Failure messages and the prompt loop's lines take the same road.
  EXPECT_EQ(Run("C.UTF-8", "-D/nonexistent はな").out,
            as_utf8({run_engine({"-D/nonexistent", kHanaSjis}).out}));
  const CommandResult prompt = Run("C.UTF-8", book + " --", "はな\\n");
  EXPECT_EQ(prompt.status, 0);
  EXPECT_EQ(prompt.out, as_utf8({run_engine({book, "--"}, std::string(kHanaSjis) + "\n").out}));
}

TEST_F(Tomeview, FilesOfTheEngineStayShiftJis) {
  const std::string file = scratch_path("tomeview_output.txt");
  std::remove(file.c_str());
  EXPECT_EQ(Run("C.UTF-8", book + " -O" + file + " はな").out, "");
  EXPECT_EQ(ReadWholeFile(file), run_engine({book, kHanaSjis}).out);
}

TEST(TerminalOutput, KeywordsTypedInUtf8BecomeShiftJis) {
  EXPECT_EQ(shift_jis_keyword("はな"), kHanaSjis);
  EXPECT_EQ(shift_jis_keyword("ｱ1"), "\xB1" "1");
  EXPECT_EQ(shift_jis_keyword("-Dはな"), "-Dはな") << "option values are paths";
  EXPECT_EQ(shift_jis_keyword("/Nはな"), "/Nはな");
  EXPECT_EQ(shift_jis_keyword(kHanaSjis), kHanaSjis) << "Shift-JIS passes";
  EXPECT_EQ(shift_jis_keyword("\xC3\xB7" "a"), "\xC3\xB7" "a") << "half-width kana that also reads as UTF-8";
  EXPECT_EQ(shift_jis_keyword("한글"), "한글") << "no CP932 form: unchanged";
  EXPECT_EQ(shift_jis_keyword("plain"), "plain");
  EXPECT_EQ(shift_jis_keyword("\xE3\x81"), "\xE3\x81") << "a character cut short: unchanged";
}

TEST(TerminalOutput, ShiftJisBecomesUtf8) {
  EXPECT_EQ(as_utf8({"a\x82\xA0\n"}), "aあ\n");
  EXPECT_EQ(as_utf8({"\x82", "\xA0", "\x82"}), "あ\xEF\xBF\xBD")
      << "a split character is carried over; one left at the close is replaced";
  EXPECT_EQ(as_utf8({"\xFF" "b"}), "\xEF\xBF\xBD" "b");
}

}  // namespace
