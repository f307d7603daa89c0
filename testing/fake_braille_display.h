// A Braille display for tests: it keeps what was written, hands out the
// keys it is given, and can fail or go away on cue.
#ifndef TESTING_FAKE_BRAILLE_DISPLAY_H_
#define TESTING_FAKE_BRAILLE_DISPLAY_H_

#include <unistd.h>

#include <cstdint>
#include <functional>
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
    if (!opens) refusals = 1 << 30;
  }
  const char* Name() const override { return "fake"; }
  // A connection that opens is a new one: its keys are not lost.
  bool Open(std::string& why) override {
    why = "no server";
    if (refusals > 0) {
      --refusals;
      return false;
    }
    ++opened;
    keysLost = false;
    if (onOpen) onOpen();
    return true;
  }
  int Width() const override { return width_; }
  bool Write(const std::u16string& cells, int cursor, std::string& why) override {
    if (failAt > 0 && static_cast<int>(written.size()) + 1 >= failAt) {
      why = "gone";
      return false;
    }
    written.push_back(cells.substr(0, static_cast<size_t>(width_)));
    cursors.push_back(cursor);
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
  std::vector<int> cursors;             // the cursor of each write
  std::vector<uint64_t> keys;           // keys to hand out
  bool keysLost = false;                // no keys left means lost
  int failAt = 0;                       // the first write that fails
  int descriptor = -1;                  // readable when keys wait (non-blocking), or -1
  int refusals = 0;                     // opens that fail before one works
  int opened = 0;                       // opens that worked
  std::function<void()> onOpen;         // called as an open works

 private:
  int width_;
};

#endif  // TESTING_FAKE_BRAILLE_DISPLAY_H_
