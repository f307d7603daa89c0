// The entries by which the application and the command line enter the
// book engine. Each runs to its end on the caller's thread; the engine is
// not reentrant.
#ifndef COMMAND_ENGINE_H_
#define COMMAND_ENGINE_H_

#include <cstdint>

// One run over an argument vector, as a command would be run: starts from
// the environment and the defaults, treats each argument in turn, closes
// every file at its end, but for book files that stand unchanged: those
// stay open, with what was read of them, for the next run to take up.
void engine_main(int argc, char** argv);

// Lists the titles of the catalog under `drive` into `buffer` ("title\n"
// each). Returns the bytes the whole list needs with its final NUL; a list
// that does not fit leaves the buffer all zeros. 1 means no title.
// This call and the next leave no book file open behind them, so that a
// caller who only lists catalogs and looks at books keeps no card busy
// (engine_output keeps its book's files open for the next lookup).
int32_t engine_catalog(const char* drive, char* buffer, int32_t size);

// 1 when book `book` under `drive` lists a forward-search index, else 0.
int32_t engine_has_forward_index(const char* drive, int32_t book);

// Treats `argument` against book `book` under `drive`, appending what
// comes out to the file at `output_path`.
void engine_output(const char* drive, int32_t book, const char* output_path,
                   const char* argument);

// As engine_output, with `option` (one option argument, such as "-S0x20")
// before `argument`; a null `option` is none.
void engine_output_option(const char* drive, int32_t book, const char* output_path,
                          const char* option, const char* argument);

#endif  // COMMAND_ENGINE_H_
