// tomeview: one run of the book engine over the command's own arguments and
// environment, exactly as the application runs it in-process. The engine
// writes Shift-JIS; only a UTF-8 terminal sees UTF-8 instead (and may type
// keywords in UTF-8). The options are described in docs/tomeview.md.
#include <unistd.h>

#include <string>
#include <vector>

#include "terminal/terminal_output.h"
#include "engine/engine.h"
#include "engine/engine_state.h"

namespace {

// `stream` converted for a UTF-8 terminal, or null when it is no terminal.
FILE* terminal_stream(FILE* stream, bool utf8, FILE* (*open)(FILE*)) {
  return utf8 && isatty(fileno(stream)) ? open(stream) : nullptr;
}

}  // namespace

int main(int argc, char** argv) {
  bool utf8 = user_locale_is_utf8();
  std::vector<std::string> words;
  for (int i = 0; i < argc; ++i) words.push_back(i == 0 ? argv[i] : shift_jis_keyword(argv[i]));
  std::vector<char*> engine_argv;
  for (std::string& word : words) engine_argv.push_back(word.data());
  engine_argv.push_back(nullptr);

  FILE* in = terminal_stream(stdin, utf8, open_utf8_reader);
  FILE* out = terminal_stream(stdout, utf8, open_utf8_writer);
  FILE* err = terminal_stream(stderr, utf8, open_utf8_writer);
  if (in) engine.std_in = in;
  if (out) engine.std_out = out;
  if (err) engine.std_err = err;

  engine_main(argc, engine_argv.data());

  for (FILE* stream : {in, out, err}) {
    if (stream) fclose(stream);
  }
  return 0;
}
