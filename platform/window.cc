#include "platform/window.h"

#include <deque>
#include <unordered_map>
#include <vector>

namespace {

struct QueuedMessage {
  HWND hwnd;       // receiver; 0 for WM_QUIT
  UINT message;    // message number
  WPARAM wParam;   // first parameter
  LPARAM lParam;   // second parameter
};

struct ModalRun {
  bool ended;  // EndModalLoop was called for this run
  int result;  // the code given to EndModalLoop
};

std::unordered_map<HWND, CWnd*> liveWindows;
HWND nextHandle = 1;
std::deque<QueuedMessage> queue;
std::function<bool()> inputSource;
std::vector<ModalRun> modalRuns;

// The next message, waiting on the input source while the queue is empty;
// false when none will come.
bool NextMessage(QueuedMessage& message) {
  while (queue.empty()) {
    if (!inputSource || !inputSource()) return false;
  }
  message = queue.front();
  queue.pop_front();
  return true;
}

void Deliver(const QueuedMessage& message) {
  if (CWnd* window = FromHandle(message.hwnd))
    window->WindowProc(message.message, message.wParam, message.lParam);
}

}  // namespace

CWnd::~CWnd() {
  if (hwnd_ != 0) liveWindows.erase(hwnd_);
}

bool CWnd::CreateWindowObject() {
  if (hwnd_ != 0) return true;
  hwnd_ = nextHandle++;
  liveWindows[hwnd_] = this;
  if (WindowProc(WM_CREATE, 0, 0) == -1) {
    liveWindows.erase(hwnd_);
    hwnd_ = 0;
    return false;
  }
  return true;
}

void CWnd::DestroyWindow() {
  if (hwnd_ == 0) return;
  WindowProc(WM_DESTROY, 0, 0);
  liveWindows.erase(hwnd_);
  hwnd_ = 0;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM /*wParam*/, LPARAM /*lParam*/) {
  if (message == WM_CLOSE) DestroyWindow();
  return 0;
}

CWnd* FromHandle(HWND hwnd) {
  auto found = liveWindows.find(hwnd);
  return found != liveWindows.end() ? found->second : nullptr;
}

LRESULT SendMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  CWnd* window = FromHandle(hwnd);
  return window != nullptr ? window->WindowProc(message, wParam, lParam) : 0;
}

bool PostMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  if (FromHandle(hwnd) == nullptr) return false;
  queue.push_back({hwnd, message, wParam, lParam});
  return true;
}

void PostQuitMessage(int exitCode) {
  queue.push_back({0, WM_QUIT, static_cast<WPARAM>(exitCode), 0});
}

void SetMessageSource(std::function<bool()> waitForInput) { inputSource = std::move(waitForInput); }

int RunMessageLoop() {
  QueuedMessage message;
  while (NextMessage(message)) {
    if (message.message == WM_QUIT) return static_cast<int>(message.wParam);
    Deliver(message);
  }
  return -1;
}

int RunModalLoop() {
  modalRuns.push_back({false, 0});
  size_t depth = modalRuns.size();
  int result = -1;
  QueuedMessage message;
  for (;;) {
    if (modalRuns[depth - 1].ended) {
      result = modalRuns[depth - 1].result;
      break;
    }
    if (!NextMessage(message)) break;
    if (message.message == WM_QUIT) {
      queue.push_front(message);  // the loop outside ends on it too
      break;
    }
    Deliver(message);
  }
  modalRuns.pop_back();
  return result;
}

void EndModalLoop(int result) {
  if (modalRuns.empty()) return;
  modalRuns.back() = {true, result};
}

bool DispatchOneMessage() {
  if (queue.empty() || queue.front().message == WM_QUIT) return false;
  QueuedMessage message = queue.front();
  queue.pop_front();
  Deliver(message);
  return true;
}
