// The three calls by which the application enters the engine. Each makes up
// an argument vector on its own stack, as a shell would, and runs it; the
// defaults never change, each run starts from the environment.
//
// A drive, output path or argument that doesn't fit its 512-byte buffer is
// refused before it is copied: the call prints the message on a bad option
// for it, runs nothing and gives the result of a book that can't be read
// (engine_catalog 1 with the buffer all zeros, engine_has_forward_index 0,
// engine_output no output file).
#include <charconv>
#include <cstring>

#include "command/engine.h"
#include "command/run.h"
#include "engine/engine_state.h"
#include "engine/file_access.h"

namespace {

constexpr int kBookArgSize = 8;  // "-B%d"

// `option` + `value` into `buffer` of `size` bytes; false, after the
// message on a bad option, when it does not fit.
bool make_arg(char* buffer, int size, const char* option, const char* value) {
  const size_t option_length = strlen(option);
  const size_t value_length = strlen(value);
  if (option_length + value_length >= static_cast<size_t>(size)) {
    print_bad_option(option, value);
    return false;
  }
  memcpy(buffer, option, option_length);
  memcpy(buffer + option_length, value, value_length + 1);
  return true;
}

// "-B%d" into its 8-byte buffer, refused like a path when it does not fit.
bool make_book_arg(char* buffer, int32_t book) {
  char digits[16] = {};
  std::to_chars(digits, digits + sizeof digits - 1, book);
  return make_arg(buffer, kBookArgSize, "-B", digits);
}

}  // namespace

int32_t engine_catalog(const char* drive, char* buffer, int32_t size) {
  bool has_room = buffer && size > 0;
  if (has_room) memset(buffer, 0, size);
  char drive_arg[kPathSize];
  if (!make_arg(drive_arg, kPathSize, "-D", drive)) return 1;
  char program[] = "tomeview";
  char catalog_arg[] = "-C";
  char* argv[] = {program, drive_arg, catalog_arg, nullptr};

  engine.capture = {buffer, size, 0};
  engine_main(3, argv);
  cdclose_parked();
  int32_t result = engine.capture.used + 1;
  // A list that doesn't fit is never left in part.
  if (result > size && has_room) memset(buffer, 0, size);
  engine.capture = {nullptr, 0, 0};
  return result;
}

int32_t engine_has_forward_index(const char* drive, int32_t book) {
  engine.forward_index_seen = 0;
  char drive_arg[kPathSize];
  char book_arg[kBookArgSize];
  if (!make_arg(drive_arg, kPathSize, "-D", drive) || !make_book_arg(book_arg, book)) return 0;
  char program[] = "tomeview";
  char list_arg[] = "-V";
  char* argv[] = {program, drive_arg, book_arg, list_arg, nullptr};
  engine_main(4, argv);
  cdclose_parked();
  return engine.forward_index_seen;
}

void engine_output(const char* drive, int32_t book, const char* output_path,
                   const char* argument) {
  engine_output_option(drive, book, output_path, nullptr, argument);
}

void engine_output_option(const char* drive, int32_t book, const char* output_path,
                          const char* option, const char* argument) {
  char drive_arg[kPathSize];
  char output_arg[kPathSize];
  char book_arg[kBookArgSize];
  char option_arg[kPathSize];
  // The argument gets a buffer of its own as a prompt line does, for a run
  // hands writable texts to engine_arg.
  char argument_copy[kPathSize];
  if (!make_arg(drive_arg, kPathSize, "-D", drive) ||
      !make_arg(output_arg, kPathSize, "-o", output_path) || !make_book_arg(book_arg, book) ||
      !make_arg(option_arg, kPathSize, "", option ? option : "") ||
      !make_arg(argument_copy, kPathSize, "", argument)) {
    return;
  }
  char program[] = "tomeview";
  char* argv[] = {program, drive_arg, output_arg, book_arg, option_arg, argument_copy, nullptr};
  if (option == nullptr) {
    argv[4] = argument_copy;
    argv[5] = nullptr;
  }
  engine_main(option ? 6 : 5, argv);
}
