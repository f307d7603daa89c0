// Managing dictionaries and the display options in epwingdict runs on a
// card whose "\SD\epwing\plus" holds two books (プラス辞典, ことわざ小辞典)
// and is the one built-in dictionary; what the user registered comes back
// exactly on the next start.
#include <filesystem>
#include <fstream>
#include <string>

#include "testing/epwingdict_runner.h"
#include "platform/utf8_text.h"
#include "platform/wide_string.h"

namespace {

// From the first screen to the dictionary list of the management screen,
// through the button "辞書の追加と削除".
const char kToDictionaries[] = "KEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_ENTER\n";
// From the first screen to the settings screen through the menu's group of
// options and its one entry.
const char kToSettings[] = "KEY_MENU\n74\n74\n";
const char kDefaultOptions[] =
    "[OPTION_SETTING]\nGAIJI_REPLACE=1\nGAIJI_VISIBLE=0\nSYLLABLE_VISIBLE=0\n"
    "PH_SIGNS_VISIBLE=0\nLINK_VISIBLE=0\n";
// From the first screen, on the second dictionary: a lookup of a proverb of
// ことわざ小辞典, then closing.
const char kLookUpInTheSecond[] =
    "48\nKEY_NEXT_CTRL\ntext さるもきからおちる\nKEY_ENTER\nKEY_EXIT\nKEY_EXIT\n";

class ManageRunTest : public EpwingdictRunner {
 protected:
  // The settings file in UTF-8.
  std::string Settings() {
    return ToUtf8(CString(ReadWholeFile(work / "epwingdict.ini").c_str()));
  }
  // A settings file with one registered dictionary.
  void Register(const std::string& title, const std::string& path, int book) {
    std::ofstream(work / "epwingdict.ini")
        << CString(FromUtf8("[DICT_LIST]\nLIST_SIZE=1\nTITLE_0000=" + title + "\nPATH_0000=" +
                            path + "\nBOOKNUM_0000=" + std::to_string(book) + "\n"))
               .ToMultiByte();
  }
};

}  // namespace

TEST_F(ManageRunTest, RegistersABookUnderAnEditedNameAndFindsItAgainAfterARestart) {
  // A folder with a blank in its name.
  std::filesystem::copy(card / "epwing" / "plus", card / "epwing" / "my books",
                        std::filesystem::copy_options::recursive);
  std::string transcript =
      RunScript(std::string(kToDictionaries) +
          "KEY_NEXT_CTRL\nKEY_ENTER\n"           // "追加": the chooser opens in \SD\epwing
          "choose my books\n"                    // two books: the book list
          "KEY_OPTION_DOWN\nKEY_ENTER\n"         // the second book, then its name
          "32768\ntext ・改\nKEY_ENTER\n"        // behind the catalog's title; registered
          "KEY_EXIT\n"                           // back to the search screen's button
          "KEY_PREV_CTRL\nKEY_PREV_CTRL\nKEY_PREV_CTRL\n48\n48\n"  // the new dictionary
          "KEY_NEXT_CTRL\ntext さるもきからおちる\nKEY_ENTER\n"
          "KEY_EXIT\nKEY_EXIT\n");
  EXPECT_TRUE(HasLinesInOrder(
      transcript, {"BRL 辞書フォルダを選択してください", "BRL \\\\SD\\\\epwing このフォルダを選択",
                   "BRL ブック選択:プラス辞典", "BRL ブック選択:ことわざ小辞典",
                   "BRL 辞書名:ことわざ小辞典", "BRL 登録しました", "TTS 登録しました", "BRL 追加",
                   "BRL 辞書選択:ことわざ小辞典・改",
                   "BRL 検索結果:さるもきからおちる【猿も木から落ちる】", "ENDED"}));
  EXPECT_EQ(Settings(), std::string(kDefaultOptions) +
                            "[DICT_LIST]\nLIST_SIZE=1\nTITLE_0000=ことわざ小辞典・改\n"
                            "PATH_0000=\\SD\\epwing\\my books\nBOOKNUM_0000=1\n");

  transcript = RunScript(kLookUpInTheSecond);
  EXPECT_TRUE(HasLinesInOrder(transcript,
                              {"BRL 辞書選択:ことわざ小辞典・改",
                               "BRL 検索結果:さるもきからおちる【猿も木から落ちる】", "ENDED"}));
  EXPECT_EQ(transcript.find("辞書が見つかりませんでした"), std::string::npos);
}

TEST_F(ManageRunTest, DeletesOnlyAfterYesAndNeverABuiltInOne) {
  // The registered one is second, behind the built-in one.
  const std::string toDelete = std::string(kToDictionaries) + "48\n48\nKEY_NEXT_CTRL\nKEY_NEXT_CTRL\n";
  Register("私の辞書", "\\SD\\epwing\\wadai", 0);
  std::string transcript = RunScript(toDelete +
                               "KEY_ENTER\nKEY_BACK\n"      // closed with no answer
                               "KEY_ENTER\n48\nKEY_EXIT\n"  // yes in view, closed with no answer
                               "KEY_ENTER\nKEY_ENTER\n"     // answered no
                               "KEY_EXIT\nKEY_EXIT\n");
  EXPECT_EQ(CountLines(transcript, "BRL 私の辞書 を削除しますか？ いいえ"), 3u) << transcript;
  EXPECT_EQ(transcript.find("削除しました"), std::string::npos);
  EXPECT_NE(Settings().find("LIST_SIZE=1\nTITLE_0000=私の辞書\n"), std::string::npos);

  transcript = RunScript(toDelete +
                   "KEY_ENTER\n48\nKEY_ENTER\n"  // answered yes: gone, the focus stays
                   "KEY_PREV_CTRL\nKEY_PREV_CTRL\n"  // the list, on the new last entry
                   "KEY_NEXT_CTRL\nKEY_NEXT_CTRL\nKEY_ENTER\n"  // "削除" of a built-in one beeps
                   "KEY_EXIT\nKEY_EXIT\n");
  EXPECT_NE(transcript.find("BRL 削除しました\nTTS 削除しました\nBRL 削除\n"), std::string::npos)
      << transcript;
  // The selection moved to the new last entry, the built-in one.
  EXPECT_NE(transcript.find("BRL 辞書選択:プラス辞典/ことわざ小辞典\n"), std::string::npos);
  EXPECT_NE(transcript.find("BEEP 32\n"), std::string::npos);
  EXPECT_NE(Settings().find("[DICT_LIST]\nLIST_SIZE=0\n"), std::string::npos);
}

TEST_F(ManageRunTest, AppliedOptionsReachTheFileAndGivenUpOnesDoNot) {
  // Replacement off, visible external characters on, then applied.
  std::string transcript =
      RunScript(std::string(kToSettings) + "KEY_OPTION_VALUE\nKEY_OPTION_DOWN\nKEY_OPTION_VALUE\n"
                                     "KEY_ENTER\nKEY_EXIT\n");
  EXPECT_NE(transcript.find("BRL 外字の置換:置換しない\n"), std::string::npos) << transcript;
  EXPECT_NE(transcript.find("BRL 外字の表示:表示する\n"), std::string::npos);
  EXPECT_NE(transcript.find("BRL 設定しました\n"), std::string::npos);
  EXPECT_EQ(Settings().rfind(
                "[OPTION_SETTING]\nGAIJI_REPLACE=0\nGAIJI_VISIBLE=1\nSYLLABLE_VISIBLE=0\n"
                "PH_SIGNS_VISIBLE=0\nLINK_VISIBLE=0\n",
                0),
            0u)
      << Settings();

  std::filesystem::remove(work / "epwingdict.ini");
  transcript = RunScript(std::string(kToSettings) +
                   "KEY_OPTION_VALUE\nKEY_OPTION_DOWN\nKEY_OPTION_VALUE\nKEY_BACK\nKEY_EXIT\n");
  EXPECT_EQ(transcript.find("設定しました"), std::string::npos);
  EXPECT_EQ(Settings().rfind(kDefaultOptions, 0), 0u) << Settings();
}
