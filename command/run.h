// The inside of a run: one argument, the usage text, the state dump. The
// entries from outside are in command/engine.h.
#ifndef COMMAND_RUN_H_
#define COMMAND_RUN_H_

// Treats one argument of a run: an option ("-x..." or "/x..."), a position
// (digits) or a keyword. The argument is not written to.
void engine_arg(char* argument);

// Prints the usage text for `program` (its part behind the last '/' or
// '\') to the engine's standard output.
void engine_usage(const char* program);

// The -A dump of the state to output.
void print_state_dump();

// "<option><value>:" and the message on a bad option, to standard output.
// `option` and `value` together are the argument as it was given.
void print_bad_option(const char* option, const char* value);

// True when `path` fits a path buffer (at most kPathSize - 1 bytes). A path
// that doesn't is refused before anything copies it.
bool path_fits(const char* path);

#endif  // COMMAND_RUN_H_
