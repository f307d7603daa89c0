// The tenji command as built: arguments and standard input, bytes that
// are no UTF-8, and a run without MeCab's dictionary.
#include <gtest/gtest.h>

#include <string>

#include "testing/command_run.h"

namespace {

std::string Tenji(const std::string& arguments) { return built_programs() + "tenji " + arguments; }

TEST(Tenji, TranslatesArgumentsOrEachLineOfStandardInput) {
  CommandResult result = run_command(Tenji("はな 私は学校へ -- --x"));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "⠥⠅\n⠄⠕⠳⠄⠀⠐⠡⠂⠪⠒⠋\n⠤⠤⠰⠭\n");

  result = run_command("printf '先生を\\n\\nABC 123\\n' | " + Tenji("--reading"));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "センセイヲ\n\nABC 123\n");

  result = run_command(Tenji("''"));
  EXPECT_EQ(result.out, "\n");
  EXPECT_EQ(run_command(Tenji("</dev/null")).out, "");
}

TEST(Tenji, BytesThatAreNoUtf8AreMarkedAndReported) {
  const CommandResult result =
      run_command("printf 'は\\377な\\nいぬ\\n' | " + Tenji("2>&1 >/dev/null; echo $?"));
  EXPECT_EQ(result.out, "tenji: line 1 holds bytes that are no UTF-8\n1\n");
  EXPECT_EQ(run_command("printf 'は\\377な\\n' | " + Tenji("2>/dev/null")).out, "⠥⠿⠅\n");
}

TEST(Tenji, WithoutTheDictionaryKanaStillPassAndTheReasonIsSaidOnce) {
  // MeCab reads its settings from $MECABRC: a missing file loads nothing.
  const CommandResult result =
      run_command("MECABRC=/nonexistent/mecabrc " + Tenji("はな 花 2>&1"));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out.find("tenji: MeCab or its dictionary cannot be loaded"), 0u) << result.out;
  EXPECT_NE(result.out.find("\n⠥⠅\n⠿\n"), std::string::npos) << result.out;
  EXPECT_EQ(result.out.find("tenji: MeCab", 1), std::string::npos) << result.out;
}

}  // namespace
