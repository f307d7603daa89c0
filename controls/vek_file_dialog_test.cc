#include "controls/vek_file_dialog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <filesystem>
#include <string>
#include <vector>

#include "controls/beep_window_for_test.h"
#include "controls/control_keys.h"
#include "controls/jpn_data.h"
#include "testing/recording_presenter.h"
#include "platform/utf8_text.h"
#include "platform/device_path.h"
#include "testing/temp_tree.h"

namespace {

// The main window: notes the modal target it is given, and keeps it
// while set.
class MainWindow : public CWnd {
 public:
  MainWindow() { CreateWindowObject(); }
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == WM_VEK_SET_MODAL) {
      modalTarget = reinterpret_cast<CWnd*>(wParam);
      events.push_back("set");
    } else if (message == WM_VEK_CLEAR_MODAL) {
      modalTarget = nullptr;
      events.push_back("clear");
    }
    return CWnd::WindowProc(message, wParam, lParam);
  }
  CWnd* modalTarget = nullptr;
  std::vector<std::string> events;
};

// One input of the user while the chooser runs: a key, or typed text.
struct Input {
  Input(uint32_t pressed) : key(pressed) {}
  Input(const char* text) : typed(text) {}
  uint32_t key = 0;             // 0 for typed text
  const char* typed = nullptr;  // the text when key is 0
};

class FileDialogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    card = fresh_directory("file_dialog_card");
    for (const char* folder : {"epwing/plus/PLUS", "epwing/wadai", "other", ".hidden"})
      std::filesystem::create_directories(card / folder);
    SetDeviceFolder(DeviceFolder::kCard, card.string());
    dialog.SetMainWnd(main.GetSafeHwnd());
    dialog.SetInitDlg(task.GetSafeHwnd(), u"110", 1);
  }
  void TearDown() override {
    SetMessageSource(nullptr);
    SetDeviceFolder(DeviceFolder::kCard, "");
  }
  // The modal run from `start`, with the inputs given to the modal target
  // one by one as the queue runs dry; the path chosen, or "-" for none.
  std::string Walk(const char16_t* start, std::deque<Input> inputs, unsigned maxLength = 600) {
    SetMessageSource([&]() {
      if (inputs.empty() || main.modalTarget == nullptr) return false;
      const Input input = inputs.front();
      inputs.pop_front();
      if (input.key != 0) {
        PostMessage(main.modalTarget->GetSafeHwnd(), WM_VEK_KEY_MODAL, input.key, 0);
      } else {
        std::vector<uint32_t> record = MakeJpnData(FromUtf8(input.typed));
        tagCOPYDATASTRUCT data{JPNDATA_COPYDATA_ID, static_cast<uint32_t>(record.size() * 4),
                               record.data()};
        dialog.OnCopyData(nullptr, &data);
      }
      return true;
    });
    dialog.SetInitPath(start, maxLength);
    const int result = dialog.DoModal();
    EXPECT_EQ(result, dialog.GetSize() == 1 ? 1 : 2);
    EXPECT_EQ(main.modalTarget, nullptr);
    if (dialog.GetSize() == 0) return "-";
    dialog.SetPos(0);
    return ToUtf8(dialog.GetPathName());
  }
  // The Braille lines presented.
  std::vector<std::string> Lines() {
    std::vector<std::string> lines;
    for (const std::string& event : presenter.Events())
      if (event.rfind("BRL ", 0) == 0) lines.push_back(event.substr(4));
    return lines;
  }

  std::filesystem::path card;
  MainWindow main;
  BeepWindow task;
  CVekFileDialog dialog{nullptr};
  ScopedRecordingPresenter presenter;
};

}  // namespace

TEST_F(FileDialogTest, WalksDownAndUpAndChoosesTheFolderOrTheItemInView) {
  // Into plus, back up onto plus, then choose it with the yes key.
  EXPECT_EQ(Walk(u"\\SD\\epwing", {48, 256, 48, 48, 88, 234}), "\\SD\\epwing\\plus");
  // (Backslashes come doubled, as in a transcript.)
  EXPECT_EQ(Lines(), (std::vector<std::string>{
                         R"(\\SD\\epwing このフォルダを選択)", R"(\\SD\\epwing plus)",
                         R"(\\SD\\epwing\\plus このフォルダを選択)", R"(\\SD\\epwing\\plus PLUS)",
                         R"(\\SD\\epwing\\plus PLUS)",  // the last item stays
                         R"(\\SD\\epwing plus)"}));
  EXPECT_EQ(main.events, (std::vector<std::string>{"set", "clear"}));
  EXPECT_EQ(task.beeps, 1);  // at the last item

  // Up from the start folder goes on to the card's top, on the folder
  // left; hidden folders don't show; enter on item 0 chooses the folder.
  presenter.Clear();
  EXPECT_EQ(Walk(u"\\SD\\epwing\\", {88, 48, 24, 24, 256}), "\\SD");
  EXPECT_EQ(Lines(), (std::vector<std::string>{R"(\\SD\\epwing このフォルダを選択)",
                                               R"(\\SD epwing)", R"(\\SD other)",
                                               R"(\\SD epwing)", R"(\\SD このフォルダを選択)"}));
}

TEST_F(FileDialogTest, SpeechNamesTheFoldersAndTellsThePosition) {
  EXPECT_EQ(Walk(u"\\SD\\epwing", {24, 48, CK_POSITION, "nowhere", 256, 218}), "-");
  EXPECT_EQ(task.beeps, 1);  // at the first item
  std::vector<std::string> speech;
  for (const std::string& event : presenter.Events())
    if (event.rfind("TTS ", 0) == 0) speech.push_back(event.substr(4));
  EXPECT_EQ(speech, (std::vector<std::string>{
                        "SD、epwing このフォルダを選択", "このフォルダを選択", "plus", "2/3",
                        "フォルダがありません SD、epwing、nowhere"}));
}

TEST_F(FileDialogTest, TypedFoldersAreChosenWhenTheyExistAndFit) {
  EXPECT_EQ(Walk(u"\\SD\\epwing", {"wadai", 256}), "\\SD\\epwing\\wadai");
  EXPECT_EQ(Walk(u"\\SD\\epwing", {"/SD/other/../epwing/plus/", 256}),
            "\\SD\\epwing\\plus");
  // A folder that isn't there, and typing dropped by a move, choose nothing.
  presenter.Clear();
  EXPECT_EQ(Walk(u"\\SD\\epwing", {"nowhere", 256, "wadai", 48, 218}), "-");
  EXPECT_NE(Lines()[1].find("フォルダがありません"), std::string::npos);
  // Too long for the caller's buffer; 88 at the top ends the run.
  EXPECT_EQ(Walk(u"\\SD\\epwing", {"wadai", 256, 88, 88}, 16), "-");
  const std::vector<std::string> lines = Lines();
  EXPECT_NE(std::find(lines.begin(), lines.end(), "パスが長すぎます"), lines.end());
}

TEST_F(FileDialogTest, AStartFolderThatIsGoneOpensAtTheNearestOneAbove) {
  EXPECT_EQ(Walk(u"\\SD\\epwing\\gone\\deeper", {256}), "\\SD\\epwing");
  EXPECT_EQ(Walk(nullptr, {256}), "\\SD");
  // The end of input inside the run ends it with nothing chosen.
  EXPECT_EQ(Walk(u"\\SD", {}), "-");
  EXPECT_EQ(main.events.size(), 6u);
}

// A folder mounted at the card's top shows there once, in place of the
// card's own folder of that name.
TEST_F(FileDialogTest, AMountedFolderShowsOnceAtTheCardsTop) {
  const std::filesystem::path outside = fresh_directory("file_dialog_outside");
  std::filesystem::create_directories(outside / "KOJIEN");
  MountCardFolder("Other", outside.string());
  EXPECT_EQ(Walk(u"\\SD", {48, 48, 48, 24, 256, 48, 234}), "\\SD\\Other\\KOJIEN");
  EXPECT_EQ(Lines(), (std::vector<std::string>{
                         R"(\\SD このフォルダを選択)", R"(\\SD Other)", R"(\\SD epwing)",
                         R"(\\SD epwing)", R"(\\SD Other)", R"(\\SD\\Other このフォルダを選択)",
                         R"(\\SD\\Other KOJIEN)"}));
  ClearCardFolders();
}
