// A book from another writer, made with fpwmake (FreePWING): every entry
// starts with its head word's code 0x1F41 and none has an end code, so an
// article would run on into the following entries. Through the built
// epwingdict each article stands alone.
#include <cstdlib>
#include <fstream>
#include <string>

#include "testing/epwingdict_runner.h"

namespace {

// A FreePWING parser: each line of its file is "head<TAB>keys<TAB>lines",
// keys parted by "," and lines by "|". The head line starts the entry's
// text between the keyword marks, as that writer's documents ask.
const char kParser[] = R"(use FreePWING::FPWUtils::FPWParser;
$word2 = FreePWING::FPWUtils::Word2->new();
$heading = FreePWING::FPWUtils::Heading->new();
$text = FreePWING::FPWUtils::Text->new();
$word2->open() && $heading->open() && $text->open() || die "open\n";
while (<>) {
  chomp;
  ($head, $keys, $lines) = split(/\t/);
  $text->new_entry() && $heading->new_entry() && $heading->add_text($head) || die "entry\n";
  $text->add_keyword_start() && $text->add_text($head) && $text->add_keyword_end()
    && $text->add_newline() || die "head\n";
  foreach $line (split(/\|/, $lines)) { $text->add_text($line) && $text->add_newline() || die "text\n"; }
  foreach $key (split(/,/, $keys)) {
    $word2->add_entry($key, $heading->entry_position(), $text->entry_position()) || die "key\n";
  }
}
$word2->close() && $heading->close() && $text->close() || die "close\n";
)";

const char kEntries[] =
    "ice cream\tice cream\tA frozen sweet.|Made of milk.\n"
    "apple\tapple\tA round fruit.\n"
    "ア・ラ・カルト\tア・ラ・カルト\t一品料理。\n"
    "はな【花】\tはな,花\t植物の花。\n";

const char kCatalog[] =
    "[Catalog]\nFileName = catalogs\nType = EPWING1\nBooks = 1\n\n"
    "[Book]\nTitle = \"続き辞書\"\nBookType = 6001\nDirectory = \"RUNON\"\n";

class RunOnBookRunTest : public EpwingdictRunner {
 protected:
  // Makes the book with fpwmake in its own folder and puts it on the card
  // in the place of the demo dictionary; false when fpwmake is missing.
  bool MakeBook() {
    if (std::system("command -v fpwmake >/dev/null 2>&1") != 0) return false;
    const std::filesystem::path source = work / "fpw";
    std::filesystem::create_directories(source);
    std::ofstream(source / "parser.pl") << kParser;
    std::ofstream(source / "entries.txt") << kEntries;
    std::ofstream(source / "catalogs.utf8") << kCatalog;
    std::ofstream(source / "Makefile")
        << "FPWPARSER = parser.pl\nFPWPARSERFLAGS = entries.euc\nDIR = runon\n"
           "include fpwutils.mk\n";
    // FreePWING reads EUC-JP.
    const std::string command = "cd " + source.string() +
                                " && iconv -f UTF-8 -t EUC-JP entries.txt >entries.euc"
                                " && iconv -f UTF-8 -t EUC-JP catalogs.utf8 >catalogs.txt"
                                " && fpwmake >make.log 2>&1 && fpwmake catalogs >>make.log 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << ReadWholeFile(source / "make.log");
    const std::filesystem::path book = card / "epwing" / "plus";
    std::filesystem::remove_all(book);
    std::filesystem::create_directories(book / "runon" / "data");
    std::filesystem::copy_file(source / "catalogs", book / "catalogs");
    std::filesystem::copy_file(source / "honmon", book / "runon" / "data" / "honmon");
    return true;
  }
};

// Looks `word` up, opens the first article and reads four lines down.
std::string ReadFirstArticle(const std::string& word) {
  return "KEY_NEXT_CTRL\ntext " + word +
         "\nKEY_ENTER\nKEY_ENTER\n48\n48\n48\n48\nKEY_EXIT\nKEY_EXIT\nKEY_EXIT\n";
}

}  // namespace

TEST_F(RunOnBookRunTest, EachArticleStandsAlone) {
  if (!MakeBook()) GTEST_SKIP() << "fpwmake is missing: install the freepwing package";
  const std::string transcript = RunScript(ReadFirstArticle("ice cream"));
  // The head line, the two lines of the article, and its end: the last
  // line again, never the next entry.
  EXPECT_TRUE(HasLinesInOrder(
      transcript, {"BRL 辞書選択:続き辞書", "TTS 検索開始", "BRL 「icecream」で見つかりました",
                   "BRL 検索結果:ice cream", "BRL 検索結果:ice cream", "BRL A frozen sweet.",
                   "BRL Made of milk.", "BRL Made of milk.", "BRL Made of milk.", "ENDED"}));
  EXPECT_EQ(transcript.find("BRL apple"), std::string::npos) << transcript;

  // The last entry's article ends at the end of the text.
  EXPECT_TRUE(HasLinesInOrder(RunScript(ReadFirstArticle("hana")),
                              {"BRL 「はな」で見つかりました", "BRL 検索結果:はな【花】",
                               "BRL 植物の花。", "BRL 植物の花。", "ENDED"}));
}
