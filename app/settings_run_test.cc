// The settings file across runs of epwingdict: what the user registered
// comes back exactly, a save cut off by a kill loses nothing of the run
// before, a read-only file is read and never written.
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/utf8_text.h"
#include "platform/wide_string.h"
#include "testing/epwingdict_runner.h"

namespace {

// From the first screen to the dictionary list of the management screen.
const char kToDictionaries[] = "KEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_ENTER\n";
// From the first screen, on the second dictionary: a lookup of a proverb of
// ことわざ小辞典, then closing.
const char kLookUpInTheSecond[] =
    "48\nKEY_NEXT_CTRL\ntext さるもきからおちる\nKEY_ENTER\nKEY_EXIT\nKEY_EXIT\n";

class SettingsRunTest : public EpwingdictRunner {
 protected:
  std::string RunScript(const std::string& script) {
    EXPECT_EQ(Run(script), 0) << ReadWholeFile(work / "stderr.txt");
    return Transcript();
  }
  std::string Settings(const std::string& suffix = "") {
    return ToUtf8(CString(ReadWholeFile(work / ("epwingdict.ini" + suffix)).c_str()));
  }
  // A settings file of `count` registered dictionaries, all of them
  // ことわざ小辞典 of "\SD\epwing\plus", titled "辞書 n".
  void WriteRegistered(int count, const std::string& name) {
    std::string text = "[OPTION_SETTING]\nGAIJI_REPLACE=1\nGAIJI_VISIBLE=0\nSYLLABLE_VISIBLE=0\n"
                       "PH_SIGNS_VISIBLE=0\nLINK_VISIBLE=0\n[DICT_LIST]\nLIST_SIZE=" +
                       std::to_string(count) + "\n";
    for (int n = 0; n < count; ++n) {
      char number[8];
      std::snprintf(number, sizeof number, "%04d", n);
      text += std::string("TITLE_") + number + "=辞書 " + std::to_string(n) + "\nPATH_" + number +
              "=\\SD\\epwing\\plus\nBOOKNUM_" + number + "=1\n";
    }
    std::ofstream(work / name, std::ios::binary) << CString(FromUtf8(text)).ToMultiByte();
  }
};

}  // namespace

TEST_F(SettingsRunTest, AFolderWithABlankIsFoundAfterARestart) {
  std::filesystem::copy(card / "epwing" / "plus", card / "epwing" / "my books",
                        std::filesystem::copy_options::recursive);
  std::string transcript = RunScript(std::string(kToDictionaries) +
                                     "KEY_NEXT_CTRL\nKEY_ENTER\n"    // "追加"
                                     "choose my books\n"             // two books
                                     "KEY_OPTION_DOWN\nKEY_ENTER\n"  // the second, then its name
                                     "32768\ntext  2\nKEY_ENTER\n"   // "ことわざ小辞典 2"
                                     "KEY_EXIT\nKEY_EXIT\n");
  EXPECT_TRUE(HasLinesInOrder(transcript, {"BRL 登録しました", "ENDED"}));
  EXPECT_NE(Settings().find("TITLE_0000=ことわざ小辞典 2\nPATH_0000=\\SD\\epwing\\my books\n"),
            std::string::npos)
      << Settings();

  transcript = RunScript(kLookUpInTheSecond);
  EXPECT_TRUE(HasLinesInOrder(transcript,
                              {"BRL 辞書選択:ことわざ小辞典 2",
                               "BRL 検索結果:さるもきからおちる【猿も木から落ちる】", "ENDED"}));
  EXPECT_EQ(transcript.find("辞書が見つかりませんでした"), std::string::npos);
}

TEST_F(SettingsRunTest, AFileCutShortBesideItsBackupLosesNothing) {
  WriteRegistered(200, "epwingdict.ini.BAK");
  const std::string whole = Settings(".BAK");
  std::filesystem::resize_file(work / "epwingdict.ini.BAK", 8192);
  std::filesystem::rename(work / "epwingdict.ini.BAK", work / "epwingdict.ini");
  WriteRegistered(200, "epwingdict.ini.BAK");

  const std::string transcript = RunScript(kLookUpInTheSecond);
  EXPECT_TRUE(HasLinesInOrder(transcript, {"BRL 辞書選択:辞書 0",
                                           "BRL 検索結果:さるもきからおちる【猿も木から落ちる】",
                                           "ENDED"}));
  EXPECT_EQ(Settings(), whole);
  EXPECT_FALSE(std::filesystem::exists(work / "epwingdict.ini.BAK"));
  EXPECT_NE(ReadWholeFile(work / "stderr.txt").find("its backup was taken back"),
            std::string::npos);
}

TEST_F(SettingsRunTest, AReadOnlyFileIsReadAndNeverWritten) {
  WriteRegistered(1, "epwingdict.ini");
  const std::string before = Settings();
  chmod((work / "epwingdict.ini").c_str(), 0444);
  const std::string transcript = RunScript(std::string(kToDictionaries) +
                                           "48\n48\nKEY_NEXT_CTRL\nKEY_NEXT_CTRL\n"
                                           "KEY_ENTER\n48\nKEY_ENTER\n"  // deleted
                                           "KEY_EXIT\nKEY_EXIT\n");
  EXPECT_TRUE(HasLinesInOrder(
      transcript, {"BRL 辞書 0 を削除しますか？ いいえ", "BRL 削除しました", "ENDED"}));
  EXPECT_EQ(Settings(), before);
  EXPECT_EQ(ReadWholeFile(work / "stderr.txt"),
            "epwingdict: the settings could not be saved: " + (work / "epwingdict.ini").string() +
                " is read-only\n");
}
