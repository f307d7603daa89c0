// Runs the book engine in-process with captured standard streams, the way a
// test wants it: arguments in, the bytes of standard output and standard
// error out (Shift-JIS, exactly as written).
#ifndef TESTING_ENGINE_RUNNER_H_
#define TESTING_ENGINE_RUNNER_H_

#include <cstdio>
#include <string>
#include <vector>

struct EngineRun {
  std::string out;  // the engine's standard output (results and failures)
  std::string err;  // the engine's standard error (host error words)
};

// engine_main over {"tomeview", args...}, with `input` as standard input.
// The process environment is left as the caller set it.
EngineRun run_engine(const std::vector<std::string>& args, const std::string& input = "");

// How often `part` stands in `text`: lines of a listing, failures of a run.
size_t count_of(const std::string& text, const std::string& part);

// Runs `body` with the engine's standard streams captured the same way,
// for the in-process calls (engine_catalog, engine_output...).
template <typename Body>
EngineRun capture_engine(Body body);

// Implementation detail of capture_engine.
struct EngineCapture {
  explicit EngineCapture(const std::string& input);
  ~EngineCapture();
  EngineRun finish();

 private:
  FILE* in_;
  FILE* out_;
  FILE* err_;
  FILE* saved_[3];
};

template <typename Body>
EngineRun capture_engine(Body body) {
  EngineCapture capture("");
  body();
  return capture.finish();
}

// Waits until book files written just now have settled, so that a run may
// keep them open and keep their blocks (engine/find_file.h).
void wait_until_settled();

#endif  // TESTING_ENGINE_RUNNER_H_
