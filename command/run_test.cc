// A run over argument vectors: the option table, the prompt loop, the
// environment, the usage text and the -A dump, byte for byte.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "command/engine.h"
#include "engine/engine_state.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"

namespace {

const char* const kVariables[] = {"CDDRIVE", "CDFILE",  "CDDEBUG",  "CDBOOK", "CDKEY",     "CDLINES",
                                  "CDWIDTH", "CDLENGTH", "CDGAIJI", "CDHANKAKU", "CDFILES"};

class Run : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : kVariables) unsetenv(name);
    // Fields a run leaves alone, possibly set by an earlier test.
    engine.search_string = nullptr;
    engine.normalized_key = nullptr;
    engine.index_pages = 0;
  }
  void TearDown() override { SetUp(); }
};

std::string bad_option(const std::string& argument) { return argument + ":オプション指定が間違っています\n"; }

const std::string kPrompt = "\nTOMEVIEW> ";

TEST_F(Run, OptionLettersActInEitherCaseAfterDashOrSlash) {
  run_engine({"-b3", "/w7", "-l", "-Z0x10", "/y012"});
  EXPECT_EQ(engine.book_number, 3);
  EXPECT_EQ(engine.width, 7);
  EXPECT_EQ(engine.lines, 20);
  EXPECT_EQ(engine.key_length, 16);
  EXPECT_EQ(engine.cut_length, 10);
  EXPECT_EQ(run_engine({"-", "/", "-1", "-!", "--help", "-D"}).out,
            bad_option("-") + bad_option("/") + bad_option("-1") + bad_option("-!") + bad_option("--help"));
}

TEST_F(Run, FlagsOfModesAndSearchSelection) {
  run_engine({"-E", "-S"});
  EXPECT_EQ(engine.flags, DF_ENGLISH) << "-S keeps the mode bits";
  run_engine({"-E", "-S0x1000003"});
  EXPECT_EQ(engine.flags, DF_ENGLISH | 0x1000003u) << "the value is ORed in whole";
  run_engine({"-E0"});
  EXPECT_EQ(engine.flags & DF_ENGLISH, 0u);
  run_engine({"-E2"});
  EXPECT_NE(engine.flags & DF_ENGLISH, 0u);

  run_engine({"-X2", "-I"});
  EXPECT_EQ(engine.index_id, 0xA0);
  EXPECT_EQ(engine.multi_index, 0);
  EXPECT_NE(engine.flags & DF_SYNONYM_INDEX, 0u);
  for (const char* ends_synonym_mode : {"-J", "-K", "-R", "-X1"}) {
    run_engine({"-I", ends_synonym_mode});
    EXPECT_EQ(engine.flags & DF_SYNONYM_INDEX, 0u) << ends_synonym_mode;
  }
  run_engine({"-K0x91", "-X3"});
  EXPECT_EQ(engine.index_id, 0x91) << "-X leaves the index";
  EXPECT_EQ(engine.multi_index, 3);
  run_engine({"-X3", "-R"});
  EXPECT_EQ(engine.index_id, -2);
  EXPECT_EQ(engine.multi_index, 0);
}

TEST_F(Run, OutputFileIsAppendedToAndLeftAgain) {
  std::filesystem::path file = fresh_directory("run_output") / "out.txt";
  std::ofstream(file) << "before\n";
  EngineRun run = run_engine({"-o" + file.string(), "-Y5", "-A", "-O", "-A"});
  const std::string written = ReadWholeFile(file);
  EXPECT_EQ(written.rfind("before\n-D/CDDRIVE = \n", 0), 0u);
  EXPECT_EQ(written.substr(7), run.out);
  EXPECT_EQ(engine.output, engine.std_out);

  engine.host_errno = 0;
  run = run_engine({"-O/nonexistent/dir/out", "-Y"});
  EXPECT_EQ(run.err, "/nonexistent/dir/out: No error\n") << "the word is host_errno's, not errno's";
  EXPECT_EQ(run.out, "");
}

TEST_F(Run, PromptLoopReadsOneArgumentALineUntilEndOfInput) {
  EXPECT_EQ(run_engine({"--", "--"}).out, kPrompt + kPrompt);
  EXPECT_EQ(run_engine({"--", "-Y"}, "\n--\n-y9 and more\n").out,
            kPrompt + kPrompt + bad_option("--") + kPrompt + kPrompt);
  EXPECT_EQ(engine.cut_length, 0) << "the argument after the loop comes last";
  run_engine({"--"}, "-Y 0x20");
  EXPECT_EQ(engine.cut_length, 32) << "a last line without line feed counts";
}

TEST_F(Run, EnvironmentGivesTheStartingValues) {
  setenv("CDDRIVE", "\\SD\\epwing\\plus", 1);
  setenv("CDDEBUG", "0x20800", 1);
  setenv("CDBOOK", "2", 1);
  setenv("CDKEY", "0x71", 1);
  setenv("CDLINES", "5", 1);
  run_engine({"-Y"});
  EXPECT_STREQ(engine.drive_path, "/SD/epwing/plus/") << "DF_NO_BACKSLASH of CDDEBUG comes too late";
  EXPECT_EQ(engine.flags, 0x20800u);
  EXPECT_EQ(engine.book_number, 2);
  EXPECT_EQ(engine.index_id, 0x71);
  EXPECT_EQ(engine.lines, 5);
  run_engine({"-D" + std::string(kPathSize, 'x')});
  EXPECT_STREQ(engine.drive_path, "/SD/epwing/plus/") << "a path too long is refused";
}

TEST_F(Run, UsageTextComesWithoutArguments) {
  std::string usage = run_engine({}).out;
  EXPECT_EQ(usage.substr(0, usage.find('\n') + 1), "tomeview [--][-option][keyword][number]…\n");
  EXPECT_NE(usage.find("\t-M\tメニュー検索\t\t: -U\t  （Ｃ）表示\n\n\t-D[path]ＣＤ－ＲＯＭ"), std::string::npos);
  EXPECT_NE(usage.find("（-E0 で日本語モード）\n\n\t-L[lines]"), std::string::npos);
  const std::string last = "\t-F[file.tbl]\tファイル定義テーブル\t\t[CDFILES]\n\t-O[outputfile]\t出力ファイル指定\n";
  EXPECT_EQ(usage.substr(usage.size() - last.size()), last);
  EXPECT_EQ(std::count(usage.begin(), usage.end(), '\n'), 20);
  // The CP932 bytes of "ＣＤ－ＲＯＭ", "…" and "∞".
  EXPECT_NE(usage.find("\x82\x62\x82\x63\x81\x7C\x82\x71\x82\x6E\x82\x6C"), std::string::npos);
  EXPECT_NE(usage.find("]\x81\x63\n"), std::string::npos);
  EXPECT_NE(usage.find(":\x81\x87)"), std::string::npos);

  EngineCapture capture("");
  char* argv[] = {const_cast<char*>("C:\\bin\\tv.exe"), nullptr};
  engine_main(1, argv);
  EXPECT_EQ(capture.finish().out.rfind("tv.exe [--]", 0), 0u);
}

TEST_F(Run, StateDumpListsSettingsThenEveryFlag) {
  std::string dump = run_engine({"-Dbooks", "-B1", "-K0x91", "-X2", "-Z8", "-S0x2001", "-Y40", "-E", "-A"}).out;
  EXPECT_EQ(dump.substr(0, dump.find("-E:")),
            "-D/CDDRIVE = books/\n-B/CDBOOK  = 1\n-X2: 複合検索(0x91)\n"
            "-L/CDLINES = 20\n-W/CDWIDTH = 0\n-Z/CDLENGTH = 8\n");
  EXPECT_NE(dump.find("-E: 英語モード\n検索文字列=\n正規化文字列=\nIndex Pages=0\n切出し長=40\n"
                      "-S/CDDEBUG=0x00042001\n\tＥＰＷＩＮＧ（12cmＣＤ）\n"
                      "\t0x00000001:項目区切り抑制する\n\t0x00000002:仮名を半角にする\n"),
            std::string::npos);
  EXPECT_NE(dump.find("\t0x00001000:止る\n\t0x00002000:ダンプ\n"), std::string::npos);
  const std::string last = "\t0x00010000:-T で、初期値を設定する\n\t0x00020000:パス区切に \\ を許す\n";
  EXPECT_EQ(dump.substr(dump.size() - last.size()), last);
  EXPECT_EQ(std::count(dump.begin(), dump.end(), '\n'), 13 + 16);

  std::string modes;
  for (const char* mode : {"-K", "-R", "-J", "-I", "-K0x70", "-X1"}) {
    std::string one = run_engine({"-Nbook.dat", mode, "-A"}).out;
    modes += one.substr(0, one.find("-L/"));
  }
  EXPECT_EQ(modes,
            "-N/CDFILE = book.dat\n-K: 前方一致検索\n-N/CDFILE = book.dat\n-R: 後方一致検索\n"
            "-N/CDFILE = book.dat\n-J: 条件検索\n-N/CDFILE = book.dat\n-I: 類語インデックス\n"
            "-N/CDFILE = book.dat\n-K/CDKEY = 0x70\n-N/CDFILE = book.dat\n-X1: 複合検索\n");
}

}  // namespace
