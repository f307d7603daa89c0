// Windows: objects that receive messages, each known by a handle that is a
// plain number, so that a handle can travel on a command line in decimal.
// A handle is never 0 and is not reused within the process.
//
// Messages reach a window by SendMessage (its handler runs now, on the
// caller's stack, and the result comes back) or PostMessage (queued; the
// message loop hands it over later, in the order of posting). One message
// loop runs the process; a modal run nests a loop of its own inside a
// handler, and that loop hands over every window's messages until it ends.
#ifndef PLATFORM_WINDOW_H_
#define PLATFORM_WINDOW_H_

#include <cstdint>
#include <functional>

#include "platform/window_messages.h"

using HWND = uint32_t;

class CWnd {
 public:
  CWnd() = default;
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;
  // Destroys the window if it still lives (without calling back into a
  // derived class, which is gone by then: WM_DESTROY is not sent).
  virtual ~CWnd();

  // Gives the window a handle and sends it WM_CREATE. A handler result of
  // -1 undoes the creation; false then, and the handle is 0.
  bool CreateWindowObject();
  // Sends WM_DESTROY, then takes the handle away; queued messages to it
  // are dropped. Nothing happens for a window that has no handle.
  void DestroyWindow();
  HWND GetSafeHwnd() const { return hwnd_; }

  // The message handler. This base answers WM_CLOSE by DestroyWindow and
  // everything else with 0; a derived handler passes on what it leaves.
  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  HWND hwnd_ = 0;  // 0 while the window does not exist
};

// The window of a handle, or null for 0 or a window that is gone.
CWnd* FromHandle(HWND hwnd);

// Runs the handler of `hwnd` now; 0 when there is no such window.
LRESULT SendMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
// Queues the message; false when there is no such window.
bool PostMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
// Queues WM_QUIT: the loops end when they reach it.
void PostQuitMessage(int exitCode);

// Where input comes from when the queue is empty (the device's keys). It
// may post messages and returns true, or false when no more input will
// come, which ends the loops. Without a source the loops end when the
// queue is empty.
void SetMessageSource(std::function<bool()> waitForInput);

// The process's loop: hands over queued messages until WM_QUIT, whose code
// it returns, or until the queue is empty and no input will come (-1).
int RunMessageLoop();
// A nested loop, run from inside a handler: hands over messages until
// EndModalLoop is called for it, and returns the code given there. A
// WM_QUIT that it meets ends it with -1 and stays queued for the loop
// outside; so does the end of input.
int RunModalLoop();
// Ends the innermost running modal loop with `result`, once the handler
// that calls it returns. Nothing happens when no modal loop runs.
void EndModalLoop(int result);

// Hands over the first queued message; false when the queue is empty or
// begins with WM_QUIT, which stays for a loop.
bool DispatchOneMessage();

#endif  // PLATFORM_WINDOW_H_
