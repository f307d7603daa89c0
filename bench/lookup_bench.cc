// lookup_bench BOOK WORDS WORKFILE [COUNT [FILE_ROUNDS]]: lookups the way the application
// makes them: engine_output of a word of WORDS (Shift-JIS, one a line, taken
// in turn) into WORKFILE, which is deleted before and read back after each
// run. Prints "name value unit" lines: lookups per second, median and 99th
// percentile latency, user and system time per lookup, and their sum as the
// lookups one core would make per second: on a shared machine the wall
// clock counts other programs' time too, the process's own time does not.
// Then FILE_ROUNDS (by default COUNT) rounds of the work file alone
// (deleted, written with as many bytes as a lookup wrote on average, read
// back): the part of that CPU time which the engine does not spend.
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "command/engine.h"
#include "platform/read_file.h"

namespace {

// Reads the work file back as the application does, by ReadRegularFile.
// Gives the bytes read.
size_t read_back(const char* path) {
  FILE* work = fopen(path, "r");
  if (!work) return 0;
  const size_t bytes = ReadRegularFile(work).size();
  fclose(work);
  return bytes;
}

double micros_between(const timeval& from, const timeval& to) {
  return (to.tv_sec - from.tv_sec) * 1e6 + (to.tv_usec - from.tv_usec);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    fputs("usage: lookup_bench BOOK WORDS WORKFILE [COUNT [FILE_ROUNDS]]\n", stderr);
    return 2;
  }
  const int count = argc > 4 ? atoi(argv[4]) : 10000;
  const int file_rounds = argc > 5 ? atoi(argv[5]) : count;
  std::vector<std::string> words;
  std::ifstream list(argv[2], std::ios::binary);
  for (std::string word; std::getline(list, word);) {
    if (!word.empty()) words.push_back(word);
  }
  if (words.empty() || count < 1) {
    fputs("lookup_bench: no words\n", stderr);
    return 2;
  }
  // The engine writes its failures to standard output: keep them out of the figures.
  if (freopen("/dev/null", "w", stdout) == nullptr) return 1;

  std::vector<double> micros;
  size_t bytes = 0;
  rusage before_all;
  getrusage(RUSAGE_SELF, &before_all);
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < count; ++i) {
    const auto before = std::chrono::steady_clock::now();
    remove(argv[3]);
    engine_output(argv[1], 0, argv[3], words[static_cast<size_t>(i) % words.size()].c_str());
    bytes += read_back(argv[3]);
    micros.push_back(std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - before).count());
  }
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  rusage after_all;
  getrusage(RUSAGE_SELF, &after_all);
  std::sort(micros.begin(), micros.end());
  fprintf(stderr, "inprocess_lookups_per_s %.0f lookups/s\n", count / seconds);
  fprintf(stderr, "inprocess_median_latency %.1f us\n", micros[micros.size() / 2]);
  fprintf(stderr, "inprocess_p99_latency %.1f us\n", micros[micros.size() * 99 / 100]);
  const double user = micros_between(before_all.ru_utime, after_all.ru_utime) / count;
  const double system = micros_between(before_all.ru_stime, after_all.ru_stime) / count;
  fprintf(stderr, "inprocess_user_time_per_lookup %.1f us\n", user);
  fprintf(stderr, "inprocess_system_time_per_lookup %.1f us\n", system);
  fprintf(stderr, "inprocess_cpu_time_per_lookup %.1f us\n", user + system);
  fprintf(stderr, "inprocess_cpu_lookups_per_s %.0f lookups/s\n", 1e6 / (user + system));
  fprintf(stderr, "inprocess_bytes_read %zu bytes\n", bytes);

  if (file_rounds < 1) return 0;
  const std::string text(bytes / static_cast<size_t>(count), 'x');
  rusage before_files;
  getrusage(RUSAGE_SELF, &before_files);
  for (int i = 0; i < file_rounds; ++i) {
    remove(argv[3]);
    if (FILE* work = fopen(argv[3], "a")) {
      fwrite(text.data(), 1, text.size(), work);
      fclose(work);
    }
    read_back(argv[3]);
  }
  rusage after_files;
  getrusage(RUSAGE_SELF, &after_files);
  const double files = (micros_between(before_files.ru_utime, after_files.ru_utime) +
                        micros_between(before_files.ru_stime, after_files.ru_stime)) / file_rounds;
  fprintf(stderr, "inprocess_work_file_cpu_time_per_lookup %.1f us\n", files);
  fprintf(stderr, "inprocess_engine_cpu_time_per_lookup %.1f us\n", user + system - files);
  return 0;
}
