// A run of the engine (engine_main): the defaults and the environment, each
// argument in turn, the prompt loop, and the close-down.
#include <cstring>

#include "command/engine.h"
#include "command/run.h"
#include "engine/catalog.h"
#include "engine/file_access.h"
#include "engine/host.h"
#include "engine/number.h"
#include "text/gaiji.h"

namespace {

// A number from the environment, or `fallback` when the variable is unset.
int32_t number_from_env(const char* name, int32_t fallback) {
  const char* value = host_getenv(name);
  return value ? parse_number(value) : fallback;
}

// A path from the environment into a path buffer; empty when unset. A value
// too long for the buffer counts as unset. True when a value was copied.
bool path_from_env(const char* name, char* path) {
  const char* value = host_getenv(name);
  path[0] = '\0';
  if (!value || !path_fits(value)) return false;
  strcpy(path, value);
  return true;
}

// The variables, in their fixed order. CDDRIVE is normalised before CDDEBUG
// is read, so that DF_NO_BACKSLASH from CDDEBUG never reaches the drive
// path; the flags are cleared first so that no flag of the last run does,
// and every run starts as a new command would.
void read_environment() {
  engine.flags = 0;
  if (path_from_env("CDDRIVE", engine.drive_path)) normalize_drive(engine.drive_path);
  path_from_env("CDFILE", engine.single_file);
  engine.flags = static_cast<uint32_t>(number_from_env("CDDEBUG", 0));
  engine.book_number = number_from_env("CDBOOK", 0);
  engine.index_id = number_from_env("CDKEY", -1);
  engine.lines = number_from_env("CDLINES", 20);
  engine.width = number_from_env("CDWIDTH", 0);
  engine.key_length = number_from_env("CDLENGTH", 0);
  // Unset gives the built-in table; the last run's tables are freed either way.
  cdgaijiload(host_getenv("CDGAIJI"), &engine.gaiji_table);
  cdgaijiload(host_getenv("CDHANKAKU"), &engine.hankaku_table);
}

// Reads one option or keyword a line from standard input until its end.
// Lines are read 511 bytes at most; the rest of a longer line is the next.
void prompt_loop() {
  char line[kPathSize];
  for (;;) {
    fputs("\nTOMEVIEW> ", engine.std_out);
    fflush(engine.std_out);
    if (!fgets(line, sizeof line, engine.std_in)) return;
    char* line_feed = strchr(line, '\n');
    if (line_feed) *line_feed = '\0';
    if (line[0] != '\0') engine_arg(line);
  }
}

}  // namespace

void engine_main(int argc, char** argv) {
  engine.output = engine.std_out;
  engine.current_file = nullptr;
  engine.failure_count = 0;
  engine.bad_option_count = 0;
  read_environment();
  engine.cut_length = 0;
  engine.multi_index = 0;
  const char* file_table = host_getenv("CDFILES");
  engine.file_table = load_file_table(file_table && path_fits(file_table) ? file_table : nullptr);

  if (argc <= 1) engine_usage(argc == 1 && argv[0] ? argv[0] : "");
  for (int i = 1; i < argc; ++i) {
    if (strcmp(argv[i], "--") == 0) prompt_loop();
    else engine_arg(argv[i]);
  }

  cdclose();
  if (engine.output != engine.std_out) {
    fclose(engine.output);
    engine.output = engine.std_out;
  }
  fflush(engine.std_out);
}
