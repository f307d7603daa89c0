// A reader started by the task manager stand-in on scratch card and home
// folders, with recording controls and a transcript in memory, for the
// frame's tests. FrameTest's reader runs the engine on books written to
// the scratch card; FakeBooksFrameTest's reader asks fake books instead,
// and nothing is written to the card.
#ifndef APP_FRAME_FIXTURE_FOR_TEST_H_
#define APP_FRAME_FIXTURE_FOR_TEST_H_

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "app/reader_app.h"
#include "app/recording_controls_for_test.h"
#include "taskman/task_manager.h"
#include "testing/recording_presenter.h"
#include "platform/device_path.h"
#include "results/engine_books.h"
#include "testing/fake_books.h"
#include "testing/temp_tree.h"

class FrameTest : public ::testing::Test {
 protected:
  void SetUp() override {
    card = fresh_directory("frame_test_card");
    home = fresh_directory("frame_test_home");
    SetDeviceFolder(DeviceFolder::kCard, card.string());
    SetDeviceFolder(DeviceFolder::kConfig, home.string());
    // The work file of a lookup stays private to this process.
    SetDeviceFolder(DeviceFolder::kRuntime, fresh_directory("frame_test_run").string());
    taskManager.AddTranscript(&transcript);
    app.frame = std::make_unique<CMainFrame>(ReaderBooks());
    UseRecordingControls(*app.frame, log);
  }
  void TearDown() override {
    while (RunMessageLoop() != -1) {
    }
    app.frame.reset();
    SetDeviceFolder(DeviceFolder::kCard, "");
    SetDeviceFolder(DeviceFolder::kConfig, "");
    SetDeviceFolder(DeviceFolder::kRuntime, "");
    std::fclose(stream);
    std::free(buffer);
  }
  // Starts the reader and forgets the calls of its creation.
  void Start() {
    ASSERT_TRUE(taskManager.StartApplication(app));
    log.clear();
  }
  // Hands over every queued message.
  void Drain() {
    while (DispatchOneMessage()) {
    }
  }
  CMainFrame& frame() { return *app.frame; }
  // Hands `keys` to the frame one by one, as the task manager does.
  void Keys(std::initializer_list<uint32_t> keys) {
    for (uint32_t key : keys) frame().OnBrailleKeyMessage(key, 0);
  }
  // Whether the frame made `call` on a control since the log was cleared.
  bool Logged(const std::string& call) const {
    return std::find(log.begin(), log.end(), call) != log.end();
  }
  // The books the reader asks.
  virtual Books& ReaderBooks() { return engineBooks; }
  std::string Transcript() {
    std::fflush(stream);
    return std::string(buffer, size);
  }

  std::filesystem::path card, home;  // scratch "\SD" and program folder
  CallLog log;                       // calls on the recording controls
  ScopedRecordingPresenter presenter;
  char* buffer = nullptr;            // the task manager's transcript
  size_t size = 0;
  FILE* stream = open_memstream(&buffer, &size);
  TranscriptWriter transcript{stream};
  CTaskManagerWnd taskManager;
  EngineBooks engineBooks;
  CReaderApp app{u"epwingdict"};
};

class FakeBooksFrameTest : public FrameTest {
 protected:
  Books& ReaderBooks() override { return books; }

  FakeBooks books;  // the card's dictionaries, in memory
};

#endif  // APP_FRAME_FIXTURE_FOR_TEST_H_
