// One argument of a run (engine_arg): the option letters, positions and
// keywords. Options are dispatched on their upper-cased letter, each in a
// case of its own.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>

#include "command/run.h"
#include "engine/catalog.h"
#include "engine/file_access.h"
#include "engine/host.h"
#include "engine/index_directory.h"
#include "engine/number.h"
#include "search/index_search.h"
#include "search/inspection.h"
#include "text/decoder.h"
#include "text/gaiji.h"

namespace {

// -M, -P, -U: the record at the head of `page` of the book.
void show_page(int32_t page) {
  cdseekpage(page);
  cdtext(0);
}

// Upper case for ASCII letters only; Shift-JIS bytes stay as they are.
char ascii_upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

int descriptor_of(void* cookie) { return static_cast<int>(reinterpret_cast<intptr_t>(cookie)); }

// The stream's writes to its file: all of `size` bytes, or as many as went
// before a failure (0 tells the stream of the failure).
ssize_t write_all(void* cookie, const char* bytes, size_t size) {
  size_t done = 0;
  while (done < size) {
    const ssize_t wrote = write(descriptor_of(cookie), bytes + done, size - done);
    if (wrote > 0) done += static_cast<size_t>(wrote);
    else if (wrote < 0 && errno == EINTR) continue;
    else break;
  }
  return static_cast<ssize_t>(done);
}

int close_descriptor(void* cookie) { return close(descriptor_of(cookie)); }

// The file at `path` opened for appending, made when missing, as fopen with
// "a" opens it, but without the seek to its end that the stream library
// makes and nothing here needs: every write to a file opened O_APPEND goes
// to its end.
FILE* open_for_appending(const char* path) {
  const int descriptor = open(path, O_WRONLY | O_CREAT | O_APPEND, 0666);
  if (descriptor < 0) return nullptr;
  const cookie_io_functions_t calls{nullptr, write_all, nullptr, close_descriptor};
  FILE* file = fopencookie(reinterpret_cast<void*>(static_cast<intptr_t>(descriptor)), "a", calls);
  if (!file) close(descriptor);
  return file;
}

// -O: back to standard output, then to the end of the file at `path` when
// one is given. The file is opened for appending so that what stands in it
// stays.
void redirect_output(const char* path) {
  if (engine.output != engine.std_out && engine.output) fclose(engine.output);
  engine.output = engine.std_out;
  if (path[0] == '\0') return;
  FILE* file = open_for_appending(path);
  if (!file) {
    host_perror(path);
    return;
  }
  // A buffer of the engine's own: the stream need not ask the system how
  // to buffer the file.
  setvbuf(file, engine.output_buffer, _IOFBF, sizeof engine.output_buffer);
  engine.output = file;
}

// The search-mode rows -I, -J, -K, -R: an index and no multi-search.
void select_index(int32_t index_id, bool synonym) {
  engine.index_id = index_id;
  engine.multi_index = 0;
  if (synonym) engine.flags |= DF_SYNONYM_INDEX;
  else engine.flags &= ~DF_SYNONYM_INDEX;
}

// `argument` starts with '-' or '/'; its second byte is the letter and the
// rest is the value. The path rows refuse a value that no path buffer holds:
// such an argument is a bad option and changes nothing.
void run_option(char* argument) {
  char letter = ascii_upper(argument[1]);
  const char* value = letter == '\0' ? argument + 1 : argument + 2;
  bool has_value = value[0] != '\0';
  switch (letter) {
    case 'A':
      print_state_dump();
      break;
    case 'B':
      engine.book_number = parse_number(value);
      cdclose();
      break;
    case 'C':
      open_catalog(-1);
      break;
    case 'D':
      if (!path_fits(value)) {
        print_bad_option(argument, "");
        break;
      }
      if (has_value) {
        strcpy(engine.drive_path, value);
        normalize_drive(engine.drive_path);
      }
      cdclose();
      break;
    case 'E':
      engine.flags |= DF_ENGLISH;
      if (has_value && parse_number(value) == 0) engine.flags &= ~DF_ENGLISH;
      break;
    case 'F':
      if (!path_fits(value)) print_bad_option(argument, "");
      else engine.file_table = load_file_table(has_value ? value : nullptr);
      break;
    case 'I':
      select_index(0xA0, true);
      break;
    case 'J':
      select_index(0x80, false);
      break;
    case 'K':
      select_index(has_value ? parse_number(value) : -1, false);
      break;
    case 'L':
      engine.lines = has_value ? parse_number(value) : 20;
      break;
    case 'N':
      if (!path_fits(value)) print_bad_option(argument, "");
      else strcpy(engine.single_file, value);
      break;
    case 'O':
      if (!path_fits(value)) print_bad_option(argument, "");
      else redirect_output(value);
      break;
    case 'R':
      select_index(-2, false);
      break;
    case 'S':
      engine.flags = (engine.flags & DF_MODE_MASK) | static_cast<uint32_t>(parse_number(value));
      break;
    case 'W':
      engine.width = parse_number(value);
      break;
    case 'X':
      engine.multi_index = parse_number(value);
      engine.flags &= ~DF_SYNONYM_INDEX;
      break;
    case 'Y':
      engine.cut_length = parse_number(value);
      break;
    case 'Z':
      engine.key_length = parse_number(value);
      break;
    case 'G':
      cdgaijiload(value, &engine.gaiji_table);
      break;
    case 'H':
      cdgaijiload(value, &engine.hankaku_table);
      break;
    case 'V':
      list_indexes();
      break;
    case '#': {
      int32_t page = find_index(has_value ? parse_number(value) : 0xF1);
      if (page != 0) {
        cdseekpage(page);
        cdgaijidump();
      }
      break;
    }
    case '$':
      dump_gaiji_file(value);
      break;
    case 'M':
      show_page(find_index(1));
      break;
    case 'P':
      find_index(-1);
      show_page(parse_number(value));
      break;
    case 'U':
      show_page(find_index(2));
      break;
    case 'Q':
      cdindexdump(has_value ? parse_number(value) : 0x91);
      break;
    case 'T':
      cdtextscan(has_value ? parse_number(value) : 0);
      break;
    default:
      print_bad_option(argument, "");
      break;
  }
}

}  // namespace

bool path_fits(const char* path) { return strlen(path) < static_cast<size_t>(kPathSize); }

void print_bad_option(const char* option, const char* value) {
  ++engine.bad_option_count;
  fprintf(engine.std_out, "%s%s:オプション指定が間違っています\n", option, value);
}

void engine_arg(char* argument) {
  engine.seen_count = 0;
  char first = argument[0];
  if (first == '-' || first == '/') {
    run_option(argument);
    return;
  }
  if (first >= '0' && first <= '9' && (engine.flags & DF_SYNONYM_INDEX) == 0) {
    // A position in the book's address space.
    find_index(-1);
    cdseek(parse_number(argument), 0);
    cdtext(0);
    return;
  }
  cdsearch(argument);
}
