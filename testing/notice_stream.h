// A stream that a presenter tells its notices on ("no speech: ..."), kept
// in a temporary file so that a test can read back what was told.
#ifndef TESTING_NOTICE_STREAM_H_
#define TESTING_NOTICE_STREAM_H_

#include <cstdio>
#include <string>

class Notices {
 public:
  Notices() : file_(std::tmpfile()) {}
  ~Notices() { std::fclose(file_); }
  Notices(const Notices&) = delete;
  Notices& operator=(const Notices&) = delete;
  FILE* File() { return file_; }
  // Everything told so far.
  std::string Text() {
    std::fflush(file_);
    std::rewind(file_);
    std::string text;
    for (int ch; (ch = std::fgetc(file_)) != EOF;) text += static_cast<char>(ch);
    return text;
  }

 private:
  FILE* file_;  // the temporary file, removed when closed
};

#endif  // TESTING_NOTICE_STREAM_H_
