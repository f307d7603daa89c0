#include "taskman/input_wait.h"

#include <poll.h>

#include <cerrno>

#include "taskman/braille_keys.h"

InputWait::InputWait(TerminalKeys& keyboard, BraillePresenter* braille,
                     std::chrono::milliseconds retry)
    : keyboard_(keyboard), braille_(braille), retry_(retry) {
  keyboard_.DeferStops();
}

void InputWait::Stop() {
  if (braille_ != nullptr) braille_->Release();
  keyboard_.StopHere();
  if (braille_ != nullptr) braille_->Retake();
}

int InputWait::RetryMissingDisplay() {
  using Clock = std::chrono::steady_clock;
  if (braille_ == nullptr || !braille_->Missing()) {
    nextTry_ = Clock::time_point();
    return -1;
  }
  const Clock::time_point now = Clock::now();
  if (nextTry_ == Clock::time_point()) nextTry_ = now + retry_;
  if (now >= nextTry_) {
    if (braille_->Reconnect()) {
      nextTry_ = Clock::time_point();
      return 0;  // its keys are read before the next wait
    }
    nextTry_ = now + retry_;
  }
  // Rounded up, so that the wait does not wake just before the time.
  return static_cast<int>(std::chrono::ceil<std::chrono::milliseconds>(nextTry_ - now).count());
}

// The display's keys are taken before each wait as well as after it: the
// library may already hold keys that came while the reader wrote to the
// display, with nothing left to read on its descriptor.
bool InputWait::Next(TaskAction& action) {
  for (;;) {
    if (keyboard_.StopPending()) Stop();
    if (const int ready = keyboard_.Ready(action); ready != 0) return ready > 0;
    if (braille_ != nullptr && NextBrailleAction(*braille_, action)) return true;
    pollfd waits[3];
    nfds_t count = 0;
    waits[count++] = {keyboard_.Descriptor(), POLLIN, 0};
    if (const int stops = keyboard_.StopDescriptor(); stops >= 0) waits[count++] = {stops, POLLIN, 0};
    if (braille_ != nullptr && braille_->KeyDescriptor() >= 0)
      waits[count++] = {braille_->KeyDescriptor(), POLLIN, 0};
    const int timeout = RetryMissingDisplay();
    if (timeout == 0) continue;
    if (poll(waits, count, timeout) < 0 && errno != EINTR) return false;
  }
}
