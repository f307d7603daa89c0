// tenji: Japanese text to six-dot Japanese Braille, one line of Unicode
// Braille cells for each text, or its katakana reading with --reading. The
// reader's own translation (reading/reading.h), as a command for trying it
// and for preparing text.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#include "platform/utf8_text.h"
#include "project_version.h"
#include "reading/reading.h"

namespace {

const char kUsage[] =
    "usage: tenji [--reading] [TEXT...]\n"
    "\n"
    "Translates each TEXT, or each line of standard input when no TEXT is given,\n"
    "into Japanese Braille (six dots, kana with word spacing), one line of Unicode\n"
    "Braille cells (U+2800-U+28FF) for each, UTF-8. Kanji are read through MeCab.\n"
    "Bytes that are no UTF-8, and characters Braille has no form for, come out as\n"
    "the full cell; bytes that are no UTF-8 are also reported on standard error.\n"
    "\n"
    "  --reading   print the katakana reading that speech is given instead\n"
    "  --          what follows is TEXT, even when it starts with \"-\"\n"
    "  --help      this text\n"
    "  --version   the program's version\n"
    "\n"
    "Exit status: 0 done, 1 some input was no UTF-8, 2 wrong arguments.\n";

int Fail(const std::string& message) {
  std::fprintf(stderr, "tenji: %s\nTry 'tenji --help'.\n", message.c_str());
  return 2;
}

// Translates one text and prints its line; false when it was no UTF-8.
bool Translate(const std::string& utf8, bool reading, const std::string& where) {
  const CString text = FromUtf8(utf8);
  const bool valid = ToUtf8(text) == utf8;
  if (!valid) std::fprintf(stderr, "tenji: %s holds bytes that are no UTF-8\n", where.c_str());
  const std::u16string out = reading ? SpeechReading(text.Units()) : BrailleCells(text.Units());
  std::string line = ToUtf8(CString(out));
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), stdout);
  return valid;
}

}  // namespace

int main(int argc, char** argv) {
  bool reading = false;
  std::vector<std::string> texts;
  bool optionsEnd = false;
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    if (optionsEnd || arg.empty() || arg[0] != '-' || arg == "-") {
      texts.push_back(arg);
    } else if (arg == "--") {
      optionsEnd = true;
    } else if (arg == "--reading") {
      reading = true;
    } else if (arg == "--help" || arg == "-h") {
      std::fputs(kUsage, stdout);
      return 0;
    } else if (arg == "--version") {
      print_version("tenji");
      return 0;
    } else {
      return Fail("unknown option '" + arg + "'");
    }
  }
  bool allValid = true;
  if (!texts.empty()) {
    for (size_t i = 0; i < texts.size(); ++i)
      allValid &= Translate(texts[i], reading, "argument " + std::to_string(i + 1));
  } else {
    std::string line;
    for (long number = 1; std::getline(std::cin, line); ++number)
      allValid &= Translate(line, reading, "line " + std::to_string(number));
  }
  if (std::fflush(stdout) != 0 || std::ferror(stdout)) {
    std::fprintf(stderr, "tenji: cannot write the output: %s\n", std::strerror(errno));
    return 1;
  }
  return allValid ? 0 : 1;
}
