#include "platform/window.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// Writes down what it receives; a handler can be hooked to one message.
class RecordingWindow : public CWnd {
 public:
  explicit RecordingWindow(std::vector<std::string>& log, std::string name)
      : log_(log), name_(std::move(name)) {}
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    log_.push_back(name_ + ":" + std::to_string(message) + "/" + std::to_string(wParam));
    if (message == hookedMessage && hook) return hook(wParam, lParam);
    return CWnd::WindowProc(message, wParam, lParam);
  }
  UINT hookedMessage = 0;
  std::function<LRESULT(WPARAM, LPARAM)> hook;

 private:
  std::vector<std::string>& log_;
  std::string name_;
};

}  // namespace

TEST(Window, HandlesAreNumbersAndCreationCanFail) {
  std::vector<std::string> log;
  RecordingWindow frame(log, "frame");
  ASSERT_TRUE(frame.CreateWindowObject());
  HWND handle = frame.GetSafeHwnd();
  EXPECT_NE(handle, 0u);
  EXPECT_EQ(FromHandle(static_cast<HWND>(std::stoul(std::to_string(handle)))), &frame);
  EXPECT_EQ(log, std::vector<std::string>{"frame:1/0"});

  RecordingWindow refused(log, "refused");
  refused.hookedMessage = WM_CREATE;
  refused.hook = [](WPARAM, LPARAM) { return LRESULT{-1}; };
  EXPECT_FALSE(refused.CreateWindowObject());
  EXPECT_EQ(refused.GetSafeHwnd(), 0u);
  EXPECT_FALSE(PostMessage(0, WM_CLOSE, 0, 0));
  EXPECT_EQ(SendMessage(0, WM_CLOSE, 0, 0), 0);

  PostMessage(handle, WM_CLOSE, 0, 0);
  EXPECT_EQ(RunMessageLoop(), -1);  // the queue ran dry
  EXPECT_EQ(FromHandle(handle), nullptr);
  EXPECT_EQ(log.back(), "frame:2/0");  // WM_CLOSE destroyed it
}

TEST(Window, NestedModalLoops) {
  std::vector<std::string> log;
  RecordingWindow frame(log, "f");
  frame.CreateWindowObject();
  HWND handle = frame.GetSafeHwnd();
  std::vector<int> results;
  // Key 1 opens a modal run, key 2 a second one inside it; key 9 ends the
  // innermost with its lParam.
  frame.hookedMessage = WM_VEK_KEY_MODAL;
  frame.hook = [&](WPARAM key, LPARAM value) {
    if (key == 9) EndModalLoop(static_cast<int>(value));
    else results.push_back(RunModalLoop());
    return LRESULT{0};
  };
  PostMessage(handle, WM_VEK_KEY_MODAL, 1, 0);
  PostMessage(handle, WM_VEK_KEY_MODAL, 2, 0);
  PostMessage(handle, WM_VEK_KEY_MODAL, 9, 20);
  PostMessage(handle, WM_VEK_KEY_MODAL, 9, 10);
  PostMessage(handle, WM_VEK_KEY_MODAL, 1, 0);
  PostQuitMessage(3);
  PostMessage(handle, WM_VEK_KEY_MAIN, 0, 0);
  EXPECT_EQ(RunMessageLoop(), 3);
  EXPECT_EQ(results, (std::vector<int>{20, 10, -1}));  // the quit ended the last run
  EXPECT_TRUE(DispatchOneMessage());  // behind the quit, still queued
  EXPECT_FALSE(DispatchOneMessage());
  EndModalLoop(5);  // no modal run: nothing happens
}
