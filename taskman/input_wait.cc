#include "taskman/input_wait.h"

#include <poll.h>

#include <cerrno>

#include "taskman/braille_keys.h"

InputWait::InputWait(TerminalKeys& keyboard, BraillePresenter* braille)
    : keyboard_(keyboard), braille_(braille) {
  keyboard_.DeferStops();
}

void InputWait::Stop() {
  if (braille_ != nullptr) braille_->Release();
  keyboard_.StopHere();
  if (braille_ != nullptr) braille_->Retake();
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
    if (poll(waits, count, -1) < 0 && errno != EINTR) return false;
  }
}
