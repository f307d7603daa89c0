#include "testing/engine_runner.h"

#include <unistd.h>

#include <cstdio>

#include "command/engine.h"
#include "engine/engine_state.h"
#include "engine/find_file.h"
#include "platform/read_file.h"

namespace {

std::string read_all(FILE* file) {
  fflush(file);
  rewind(file);
  return ReadToEnd(file);
}

}  // namespace

EngineCapture::EngineCapture(const std::string& input) {
  in_ = tmpfile();
  fwrite(input.data(), 1, input.size(), in_);
  rewind(in_);
  out_ = tmpfile();
  err_ = tmpfile();
  saved_[0] = engine.std_in;
  saved_[1] = engine.std_out;
  saved_[2] = engine.std_err;
  engine.std_in = in_;
  engine.std_out = out_;
  engine.std_err = err_;
  engine.output = engine.std_out;
}

EngineRun EngineCapture::finish() {
  EngineRun run;
  run.out = read_all(out_);
  run.err = read_all(err_);
  return run;
}

EngineCapture::~EngineCapture() {
  engine.std_in = saved_[0];
  engine.std_out = saved_[1];
  engine.std_err = saved_[2];
  if (engine.output == out_) engine.output = engine.std_out;
  fclose(in_);
  fclose(out_);
  fclose(err_);
}

EngineRun run_engine(const std::vector<std::string>& args, const std::string& input) {
  EngineCapture capture(input);
  std::vector<std::string> words{"tomeview"};
  words.insert(words.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  engine_main(static_cast<int>(words.size()), argv.data());
  return capture.finish();
}

size_t count_of(const std::string& text, const std::string& part) {
  size_t count = 0;
  for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

void wait_until_settled() { usleep(static_cast<useconds_t>(kSettledNanos / 1000 + 100 * 1000)); }
