#include "cli/tomeview_options.h"

#include <cstring>

const char kTomeviewHelp[] =
    "usage: tomeview [--sjis|--utf8] [--][-option][keyword][number]...\n"
    "       tomeview --help | --version\n"
    "\n"
    "The book engine as a command: reads EPWING books (and Electronic Book and\n"
    "encyclopedia trees) and treats each argument in turn: an option (-x or /x,\n"
    "its value joined to it), a position (digits) or a keyword to search.\n"
    "tomeview with no argument prints the engine's own usage text (in Japanese).\n"
    "\n"
    "  --sjis     write the engine's Shift-JIS bytes as they are\n"
    "  --utf8     write UTF-8 (standard output, standard error, and the lines\n"
    "             read by the prompt loop \"--\" are taken as UTF-8)\n"
    "             Without either: UTF-8 under a UTF-8 locale (LC_ALL, LC_CTYPE,\n"
    "             LANG), Shift-JIS under any other, the C locale included.\n"
    "             These two come first, in front of the engine's arguments.\n"
    "  --help     this text\n"
    "  --version  the version\n"
    "\n"
    "Keywords typed in UTF-8 are searched as Shift-JIS. Files written by -O stay\n"
    "Shift-JIS.\n"
    "\n"
    "Exit status: 0 when the run reported no failure, 1 when it printed a\n"
    "failure line \"error N.\", 2 when an option was wrong.\n"
    "\n"
    "Example: tomeview -D/path/to/book -C      (the catalog)\n"
    "         tomeview -D/path/to/book -B1 flower (search the second book)\n"
    "See tomeview(1) for every option and environment variable.\n";

TomeviewCall read_tomeview_options(int argc, char** argv) {
  TomeviewCall call;
  if (argc == 2 && strcmp(argv[1], "--help") == 0) {
    call.kind = TomeviewCall::kHelp;
    return call;
  }
  if (argc == 2 && strcmp(argv[1], "--version") == 0) {
    call.kind = TomeviewCall::kVersion;
    return call;
  }
  for (; call.first_engine_arg < argc; ++call.first_engine_arg) {
    const char* arg = argv[call.first_engine_arg];
    TextEncoding chosen;
    if (strcmp(arg, "--sjis") == 0) {
      chosen = TextEncoding::kShiftJis;
    } else if (strcmp(arg, "--utf8") == 0) {
      chosen = TextEncoding::kUtf8;
    } else {
      break;
    }
    if (call.encoding != TextEncoding::kLocale && call.encoding != chosen) {
      call.kind = TomeviewCall::kUsageError;
      call.error = "--sjis and --utf8 exclude each other";
      return call;
    }
    call.encoding = chosen;
  }
  return call;
}

int tomeview_status(int failures, int bad_options) {
  if (bad_options > 0) return 2;
  return failures > 0 ? 1 : 0;
}
