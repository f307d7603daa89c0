// CTaskManagerWnd: a stand-in for the device's task manager, a window in
// the reader's own process. It starts the application with "0 <its own
// window handle>" on the command line and then plays the device's part:
// keys as WM_VEK_KEY_IN, cursor-routing keys as WM_VEK_CURSOR_IN, typed
// text (and the kana typed in Braille) as Japanese text data by WM_COPYDATA, device settings and mute, and
// the reading messages (read-all, and where a reading stopped). It writes
// what it is told (STARTED, ENDED, BEEP <code>) to the transcripts.
#ifndef TASKMAN_TASK_MANAGER_H_
#define TASKMAN_TASK_MANAGER_H_

#include <chrono>
#include <cstdint>
#include <functional>
#include <vector>

#include "braille/kana_keyboard.h"
#include "terminal/transcript_writer.h"
#include "platform/wide_string.h"
#include "platform/window.h"

class CVekWinApp;

class CTaskManagerWnd : public CWnd {
 public:
  // Its events go to `writer` too; the writer stays the caller's.
  void AddTranscript(TranscriptWriter* writer) { transcripts_.push_back(writer); }
  // Each beep is also handed to `sound`, which makes it heard.
  void SetBeepSound(std::function<void(int32_t code)> sound) { beepSound_ = std::move(sound); }

  // Creates this window and starts `app`; false when the application did
  // not start.
  bool StartApplication(CVekWinApp& app);
  // The application's window from WM_VEK_APP_STARTED until WM_VEK_APP_ENDED;
  // 0 outside that time.
  HWND AppWindow() const { return appWnd_; }
  // True once the application has told of its end.
  bool AppEnded() const { return ended_; }

  // Posted to the application's window, as the device's keys are.
  void DeliverKey(uint32_t key);
  void DeliverCursor(uint32_t cell);
  void DeliverSetting(uint32_t setting, int32_t value);
  void DeliverMute(bool mute);
  // Sent at once: the record lives only for the call. Text typed elsewhere
  // drops a Braille sign that waits for its kana, as a key does.
  void DeliverText(const CString& text);
  // Read-all of the text in view begins (WM_VEK_READ_ALL, wParam 0).
  void DeliverReadAll();
  // The reading stopped `offset` units of the text behind where it began
  // (WM_VEK_READ_STOP).
  void DeliverReadStop(uint32_t offset);
  // The same, at the point the speech has reached by now. The reading is
  // taken to have begun with the action delivered last (a read-all, or
  // the key that opened a text, which reads it out), and to go on at
  // kUnitsPerSecond: this stand-in hears no speech, so it reckons.
  void DeliverReadStopWhereSpeechGot();
  static constexpr double kUnitsPerSecond = 8.0;
  // A cell typed on the Braille keyboard (bit 0 dot 1): the kana it
  // completes go as typed text. A key or cursor-routing key between drops
  // a sign that waits for its kana (so do typed text and read-all).
  void DeliverDots(uint8_t dots);

  // Answers the open folder chooser as a user would: types `folder`
  // (relative to the folder in view, or a device name from "\"), then
  // presses CK_ENTER, which chooses it.
  void AnswerFolderChooser(const CString& folder);

  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  // Japanese text data to the application (WM_COPYDATA).
  void SendText(const CString& text);

  std::vector<TranscriptWriter*> transcripts_;  // where STARTED, ENDED, BEEP go
  KanaKeyboard kana_;                            // the Braille keyboard's signs and numbers
  std::function<void(int32_t)> beepSound_;     // makes a beep heard, if set
  HWND appWnd_ = 0;                              // the application's window while it runs
  bool ended_ = false;                           // WM_VEK_APP_ENDED has come
  std::chrono::steady_clock::time_point lastAction_;  // when the latest action was delivered
};

#endif  // TASKMAN_TASK_MANAGER_H_
