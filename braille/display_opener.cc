#include "braille/display_opener.h"

#include <pthread.h>
#include <signal.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <system_error>
#include <thread>

struct DisplayOpener::Shared {
  ~Shared() {
    if (signal >= 0) close(signal);
  }
  std::mutex mutex;                  // guards what follows but `signal`
  std::condition_variable changed;   // a try ended, or the opener stopped
  bool stopped = false;              // the opener has gone: no more tries
  bool opened = false;               // an Open worked and the thread let go
  int tries = 0;                     // tries ended since Start
  std::string why;                   // why the last of them failed
  int signal = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);  // readable once opened
};

void DisplayOpener::TryToOpen(std::shared_ptr<Shared> shared,
                              std::shared_ptr<BrailleDisplay> display,
                              std::chrono::milliseconds retry, bool now) {
  std::unique_lock<std::mutex> lock(shared->mutex);
  for (bool wait = !now;; wait = true) {
    if (wait) shared->changed.wait_for(lock, retry, [&]() { return shared->stopped; });
    if (shared->stopped) return;
    lock.unlock();
    std::string why;
    const bool opened = display->Open(why);
    if (opened) display.reset();  // the owner's again from here on
    lock.lock();
    ++shared->tries;
    shared->why = opened ? std::string() : why;
    shared->changed.notify_all();
    if (opened) {
      shared->opened = true;
      const uint64_t one = 1;
      (void)!write(shared->signal, &one, sizeof one);  // never full: one write a run
      return;
    }
  }
}

DisplayOpener::DisplayOpener(std::shared_ptr<BrailleDisplay> display,
                             std::chrono::milliseconds retry)
    : shared_(std::make_shared<Shared>()), display_(std::move(display)), retry_(retry) {}

DisplayOpener::~DisplayOpener() {
  std::lock_guard<std::mutex> lock(shared_->mutex);
  shared_->stopped = true;
  shared_->changed.notify_all();
}

bool DisplayOpener::Start(bool now) {
  if (trying_) return true;
  if (shared_->signal < 0) return false;
  {
    std::lock_guard<std::mutex> lock(shared_->mutex);
    shared_->opened = false;
    shared_->tries = 0;
    shared_->why.clear();
  }
  // The thread is made with every signal blocked, so that none is taken
  // on it: they belong to the owner's wait.
  sigset_t all, before;
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &before);
  try {
    std::thread(TryToOpen, shared_, display_, retry_, now).detach();
    trying_ = true;
  } catch (const std::system_error&) {
    trying_ = false;
  }
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return trying_;
}

int DisplayOpener::Descriptor() const { return trying_ ? shared_->signal : -1; }

bool DisplayOpener::Opened() {
  if (!trying_) return false;
  std::lock_guard<std::mutex> lock(shared_->mutex);
  if (!shared_->opened) return false;
  uint64_t count = 0;
  (void)!read(shared_->signal, &count, sizeof count);  // readable no more
  trying_ = false;
  return true;
}

bool DisplayOpener::AwaitFirstTry(std::chrono::milliseconds patience, std::string& why) {
  if (!trying_) return false;
  std::unique_lock<std::mutex> lock(shared_->mutex);
  if (!shared_->changed.wait_for(lock, patience, [&]() { return shared_->tries > 0; }))
    return false;
  why = shared_->why;
  return true;
}
