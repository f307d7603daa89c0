// A Braille display for tests: it keeps what was written, hands out the
// keys it is given, and can fail, go away, refuse to open or hang in its
// Open on cue. Open runs on the presenter's thread that opens a missing
// display: what it shares with the test is guarded.
#ifndef TESTING_FAKE_BRAILLE_DISPLAY_H_
#define TESTING_FAKE_BRAILLE_DISPLAY_H_

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

#include "braille/braille_display.h"

// A display of `width` cells that fails from the write numbered `failAt`
// on (0: never). Its descriptor, when a test sets one, is the read end of a
// pipe that the test writes to when it hands out keys; ReadKey drains it
// once the keys are gone.
class FakeDisplay : public BrailleDisplay {
 public:
  explicit FakeDisplay(int width, bool opens = true) : width_(width) {
    if (!opens) refusals_ = 1 << 30;
  }
  const char* Name() const override { return "fake"; }
  // Hangs while held; a connection that opens is a new one: its keys are
  // not lost.
  bool Open(std::string& why) override {
    std::unique_lock<std::mutex> lock(mutex_);
    ++opening_;
    changed_.notify_all();
    changed_.wait(lock, [this]() { return !held_; });
    --opening_;
    why = "no server";
    if (refusals_ > 0) {
      --refusals_;
      return false;
    }
    ++opened_;
    keysLost = false;
    return true;
  }
  // The next `count` opens fail; those after work.
  void Refuse(int count) {
    std::lock_guard<std::mutex> lock(mutex_);
    refusals_ = count;
  }
  // Opens hang from now on, until Let.
  void Hold() {
    std::lock_guard<std::mutex> lock(mutex_);
    held_ = true;
  }
  void Let() {
    std::lock_guard<std::mutex> lock(mutex_);
    held_ = false;
    changed_.notify_all();
  }
  // Waits (a while at most) until an Open is under way: true when one is.
  bool AwaitOpening() {
    std::unique_lock<std::mutex> lock(mutex_);
    return changed_.wait_for(lock, std::chrono::seconds(10), [this]() { return opening_ > 0; });
  }
  // Opens that worked.
  int Opened() {
    std::lock_guard<std::mutex> lock(mutex_);
    return opened_;
  }
  int Width() const override { return width_; }
  bool Write(const std::u16string& cells, int cursor, std::string& why) override {
    if (failAt > 0 && static_cast<int>(written.size()) + 1 >= failAt) {
      why = "gone";
      return false;
    }
    written.push_back(cells.substr(0, static_cast<size_t>(width_)));
    cursors.push_back(cursor);
    ++writes;
    return true;
  }
  int KeyDescriptor() const override { return descriptor; }
  int ReadKey(uint64_t& key, std::string& why) override {
    if (keys.empty()) {
      char drained[64];
      while (descriptor >= 0 && read(descriptor, drained, sizeof drained) > 0) {
      }
      why = "gone";
      return keysLost ? -1 : 0;
    }
    key = keys.front();
    keys.erase(keys.begin());
    return 1;
  }
  void Release() override { written.push_back(u"(released)"); }
  bool Retake(std::string&) override { return true; }

  std::vector<std::u16string> written;  // each write, as many cells as fit
  std::atomic<int> writes{0};           // writes that worked, for another thread to see
  std::vector<int> cursors;             // the cursor of each write
  std::vector<uint64_t> keys;           // keys to hand out
  bool keysLost = false;                // no keys left means lost
  int failAt = 0;                       // the first write that fails
  int descriptor = -1;                  // readable when keys wait (non-blocking), or -1

 private:
  int width_;
  std::mutex mutex_;                    // guards what Open shares with the test
  std::condition_variable changed_;     // an Open began, or it is let go
  bool held_ = false;                   // opens hang
  int opening_ = 0;                     // opens under way
  int refusals_ = 0;                    // opens that fail before one works
  int opened_ = 0;                      // opens that worked
};

#endif  // TESTING_FAKE_BRAILLE_DISPLAY_H_
