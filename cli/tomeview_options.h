// tomeview's own options, read in front of the engine's arguments: --help
// and --version (each the only argument), and --sjis or --utf8, which choose
// the encoding of the text that goes out. Everything from the first other
// argument on belongs to the engine, which reads it as it always has.
#ifndef CLI_TOMEVIEW_OPTIONS_H_
#define CLI_TOMEVIEW_OPTIONS_H_

#include <string>

// The encoding of what tomeview writes on its standard streams.
enum class TextEncoding {
  kLocale,    // UTF-8 under a UTF-8 locale, else Shift-JIS
  kShiftJis,  // the engine's bytes as it writes them
  kUtf8,      // the engine's Shift-JIS converted to UTF-8
};

struct TomeviewCall {
  enum Kind { kRun, kHelp, kVersion, kUsageError };
  Kind kind = kRun;                              // what the command line asks for
  TextEncoding encoding = TextEncoding::kLocale;  // as --sjis or --utf8 chose
  int first_engine_arg = 1;                      // index in argv of the engine's first argument
  std::string error;                             // the message of a usage error
};

TomeviewCall read_tomeview_options(int argc, char** argv);

// The exit status of a run: 2 when it met a bad option (the usage was
// wrong, whatever else happened), else 1 when it reported a failure (an
// "error %d." line), else 0.
int tomeview_status(int failures, int bad_options);

extern const char kTomeviewHelp[];

#endif  // CLI_TOMEVIEW_OPTIONS_H_
