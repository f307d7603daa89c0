// Opens a missing Braille display on a thread of its own, so that an Open
// that blocks for long never holds up the keys: BRLAPI_HOST naming a host
// that drops packets (minutes of TCP connect timeout), a BRLTTY that is
// stopped or hung after taking the connection, a full listen backlog.
//
// The thread tries, waits `retry` after each failure (sleeping, never
// spinning), and tries again until an Open works; then it lets go of the
// display and makes Descriptor() readable, and the owner, on its own
// thread, takes the display back with Opened(). While tries are under way
// the display is the thread's alone: the owner calls nothing of it but
// its Name (BrlAPI keeps one connection for the whole process, not to be
// used by two threads at once).
//
// The thread is never waited for: the opener's end only tells it to stop,
// and an Open under way is left to finish on its own or to the process's
// exit. The thread shares the display, so that it outlives the opener
// while the thread needs it, and takes no signals (Ctrl-Z, the terminal's
// resize), which stay with the owner's wait.
#ifndef BRAILLE_DISPLAY_OPENER_H_
#define BRAILLE_DISPLAY_OPENER_H_

#include <chrono>
#include <memory>
#include <string>

#include "braille/braille_display.h"

class DisplayOpener {
 public:
  DisplayOpener(std::shared_ptr<BrailleDisplay> display, std::chrono::milliseconds retry);
  DisplayOpener(const DisplayOpener&) = delete;
  DisplayOpener& operator=(const DisplayOpener&) = delete;
  // Tells the thread to stop; never waits for it.
  ~DisplayOpener();

  // Starts the tries, the first at once or after one wait of `retry`;
  // nothing when they are under way. False when no thread can be made
  // (the display stays missing).
  bool Start(bool now);
  // True from Start until Opened() has taken the display back.
  bool Trying() const { return trying_; }
  // Readable once an Open has worked, until Opened(); -1 when none can be.
  int Descriptor() const;
  // Without waiting: true once an Open has worked, the display open and
  // the caller's again; the tries are over then.
  bool Opened();
  // Waits up to `patience` for the first try to end: true when it has,
  // with the reason it failed in `why` (empty when it worked).
  bool AwaitFirstTry(std::chrono::milliseconds patience, std::string& why);

 private:
  struct Shared;  // what the thread and the opener both hold
  // The thread: tries until an Open works or the opener stops, holding
  // the display only while it may still open it.
  static void TryToOpen(std::shared_ptr<Shared> shared, std::shared_ptr<BrailleDisplay> display,
                        std::chrono::milliseconds retry, bool now);
  std::shared_ptr<Shared> shared_;
  std::shared_ptr<BrailleDisplay> display_;
  std::chrono::milliseconds retry_;  // between tries
  bool trying_ = false;              // tries are under way on the thread
};

#endif  // BRAILLE_DISPLAY_OPENER_H_
