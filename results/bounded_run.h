// A piece of work run in a child process under limits, so that no book can
// keep the reader waiting or fill the card: the engine runs this way for a
// lookup. The child shares the files of the caller (what it writes stays)
// but not its memory (nothing it changes there comes back).
#ifndef RESULTS_BOUNDED_RUN_H_
#define RESULTS_BOUNDED_RUN_H_

#include <cstdint>
#include <functional>

struct RunLimits {
  int32_t milliseconds;  // the longest the work may run
  int64_t fileBytes;     // the largest any file it writes may grow
};

enum class RunEnd {
  kFinished,   // the work came to its end
  kTimedOut,   // stopped when its time was up
  kFileLimit,  // stopped when a file it wrote reached fileBytes
  kFailed,     // the child ended otherwise (a crash), or none could start
};

// Runs `work` in a child with standard input at /dev/null and `limits`,
// and waits for it. When no child can be made, runs it here, unbounded.
RunEnd RunBounded(const std::function<void()>& work, const RunLimits& limits);

#endif  // RESULTS_BOUNDED_RUN_H_
