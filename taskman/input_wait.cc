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

// A display that has opened meanwhile is taken first, so that it is given
// back on Ctrl-Z and shows what the next key does. The display's keys are
// taken before each wait as well as after it: the library may already
// hold keys that came while the reader wrote to the display, with nothing
// left to read on its descriptor.
bool InputWait::Next(TaskAction& action) {
  for (;;) {
    if (braille_ != nullptr) braille_->Reconnect();
    if (keyboard_.StopPending()) Stop();
    if (const int ready = keyboard_.Ready(action); ready != 0) return ready > 0;
    if (braille_ != nullptr && NextBrailleAction(*braille_, action)) return true;
    pollfd waits[4];
    nfds_t count = 0;
    waits[count++] = {keyboard_.Descriptor(), POLLIN, 0};
    if (const int stops = keyboard_.StopDescriptor(); stops >= 0) waits[count++] = {stops, POLLIN, 0};
    if (braille_ != nullptr)
      for (const int display : {braille_->KeyDescriptor(), braille_->ReconnectDescriptor()})
        if (display >= 0) waits[count++] = {display, POLLIN, 0};
    if (poll(waits, count, -1) < 0 && errno != EINTR) return false;
  }
}
