// tomeview: one run of the book engine over the command's own arguments and
// environment, exactly as the application runs it in-process. The engine
// writes Shift-JIS; the text goes out in the locale's encoding (or as
// --sjis/--utf8 choose), and keywords typed in UTF-8 are searched as
// Shift-JIS. The exit status tells whether the run reported a failure. The
// options are described in docs/tomeview.md and tomeview(1).
#include <cstdio>
#include <string>
#include <vector>

#include "cli/tomeview_options.h"
#include "command/engine.h"
#include "engine/engine_state.h"
#include "project_version.h"
#include "terminal/terminal_output.h"

int main(int argc, char** argv) {
  const TomeviewCall call = read_tomeview_options(argc, argv);
  switch (call.kind) {
    case TomeviewCall::kHelp:
      std::fputs(kTomeviewHelp, stdout);
      return 0;
    case TomeviewCall::kVersion:
      print_version("tomeview");
      return 0;
    case TomeviewCall::kUsageError:
      std::fprintf(stderr, "tomeview: %s\nTry 'tomeview --help'.\n", call.error.c_str());
      return 2;
    case TomeviewCall::kRun:
      break;
  }
  const bool utf8 = call.encoding == TextEncoding::kLocale ? user_locale_is_utf8()
                                                          : call.encoding == TextEncoding::kUtf8;
  std::vector<std::string> words{argv[0]};
  for (int i = call.first_engine_arg; i < argc; ++i) words.push_back(shift_jis_keyword(argv[i]));
  std::vector<char*> engine_argv;
  for (std::string& word : words) engine_argv.push_back(word.data());
  engine_argv.push_back(nullptr);

  FILE* in = utf8 ? open_utf8_reader(stdin) : nullptr;
  FILE* out = utf8 ? open_utf8_writer(stdout) : nullptr;
  FILE* err = utf8 ? open_utf8_writer(stderr) : nullptr;
  if (in) engine.std_in = in;
  if (out) engine.std_out = out;
  if (err) engine.std_err = err;

  engine_main(static_cast<int>(words.size()), engine_argv.data());

  for (FILE* stream : {in, out, err}) {
    if (stream) std::fclose(stream);
  }
  int status = tomeview_status(engine.failure_count, engine.bad_option_count);
  if (std::fflush(stdout) != 0 || std::ferror(stdout)) {
    std::fputs("tomeview: cannot write the output\n", stderr);
    status = 1;
  }
  return status;
}
