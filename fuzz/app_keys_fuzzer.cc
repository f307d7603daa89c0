// Harness: the reader on the demo card (the two sample dictionaries of
// data/demo), started by the task manager stand-in and driven by actions
// made of the fuzzer's bytes (fuzz/key_input.h): keys, typed text, cursor
// keys, mute and device settings. The input is the only source of
// messages, so the folder chooser's modal run takes its keys from it too,
// and every run ends with the input.
//
// Each time the frame waits for input, with no modal run open (so the key
// before has been handled whole), the frame must be consistent: its
// screen one of the six, `focus` the remembered focus of that screen, and
// the list box's selection within its items. Indexes into the frame's
// lists are checked by the library's assertions.
//
// Typed words may begin as engine options that name files in the scratch
// tree (key_input.h). After each input no file may have appeared or gone
// anywhere in that tree but in the program's folder (the settings) and
// the runtime folder (the work file), nor in the current folder, where a
// relative name would land.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "app/main_frame.h"
#include "app/reader_app.h"
#include "taskman/task_manager.h"
#include "taskman/task_script.h"
#include "fuzz/key_input.h"
#include "platform/device_path.h"
#include "platform/window.h"
#include "testing/temp_tree.h"
#include "tools/book_builder.h"
#include "tools/jis_text.h"
#include "tools/source_reader.h"
#include "tools/tree_output.h"

namespace fs = std::filesystem;

namespace {

// "\SD\epwing\plus" and "\SD\epwing\wadai" as the build's demo card has
// them, plus's Braille gaiji file in Shift-JIS.
void write_demo_card(const fs::path& card) {
  const fs::path source = DEMO_SOURCE;
  for (const char* name : {"plus", "wadai"}) {
    BookTree tree;
    for (const BookContent& content : read_source((source / (std::string(name) + ".txt")).string()))
      build_book(content, tree.add_book(content.title, content.directory));
    write_book_tree(tree, card / "epwing" / name);
  }
  std::ofstream(card / "epwing" / "plus" / "BrailleGaiji.txt", std::ios::binary)
      << utf8_to_sjis(ReadWholeFile(source / "BrailleGaiji.utf8.txt"));
}

struct Folders {
  fs::path settings;  // the settings file in the program's folder
  fs::path home;      // the program's folder
  fs::path runtime;   // the folder of the work file
  fs::path scratch;   // the tree that holds them all, and the card
};

// Every path under `folders.scratch` but in the program's and the runtime
// folder, and every name in the current folder.
std::vector<fs::path> fixed_paths(const Folders& folders) {
  std::vector<fs::path> paths;
  for (const fs::directory_entry& entry : fs::directory_iterator(fs::current_path()))
    paths.push_back(entry.path());
  for (auto it = fs::recursive_directory_iterator(folders.scratch);
       it != fs::recursive_directory_iterator(); ++it) {
    if (it->path() == folders.home || it->path() == folders.runtime) {
      it.disable_recursion_pending();
      continue;
    }
    paths.push_back(it->path());
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

Folders set_up_folders() {
  const fs::path card = fresh_directory("fuzz_app_card");
  Folders folders;
  folders.home = fresh_directory("fuzz_app_home");
  folders.runtime = fresh_directory("fuzz_app_runtime");
  folders.settings = folders.home / "epwingdict.ini";
  folders.scratch = card.parent_path();
  write_demo_card(card);
  SetDeviceFolder(DeviceFolder::kCard, card.string());
  SetDeviceFolder(DeviceFolder::kConfig, folders.home.string());
  SetDeviceFolder(DeviceFolder::kRuntime, folders.runtime.string());
  // The engine's own prints (its catalog listing, its failure numbers)
  // reach no one on the device.
  if (std::freopen("/dev/null", "w", stdout) == nullptr) abort();
  return folders;
}

void check_frame(CMainFrame& frame) {
  if (frame.GetSafeHwnd() == 0 || frame.modalTarget != nullptr) return;
  if (frame.screen < 0 || frame.screen >= SCREEN_COUNT) abort();
  if (frame.focus != frame.screenFocus[frame.screen]) abort();
  if (frame.routingMode == MODE_SCREEN && frame.focus >= FIRST_LIST_FOCUS &&
      frame.focus <= LAST_LIST_FOCUS && frame.listCtrl->GetCurSel() >= frame.listCtrl->GetCount() &&
      frame.listCtrl->GetCount() > 0)
    abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const Folders folders = set_up_folders();
  static const std::vector<fs::path> before = fixed_paths(folders);
  fs::remove(folders.settings);  // each run starts on the card alone
  const std::vector<TaskAction> actions = decode_key_input(data, size, folders.scratch.string());

  CTaskManagerWnd taskManager;
  {
    CReaderApp app(u"epwingdict");
    size_t next = 0;
    SetMessageSource([&]() {
      if (app.frame) check_frame(*app.frame);
      if (taskManager.AppEnded() || next >= actions.size()) return false;
      PerformTaskAction(taskManager, actions[next++]);
      return true;
    });
    if (taskManager.StartApplication(app)) RunMessageLoop();
    SetMessageSource(nullptr);
    // What the end of input left queued (a WM_QUIT the nested loop met
    // stays for the outer one), so that the next run starts empty.
    while (RunMessageLoop() != -1) {
    }
  }
  const std::vector<fs::path> after = fixed_paths(folders);
  if (after != before) {
    for (const fs::path& path : after)
      if (!std::binary_search(before.begin(), before.end(), path))
        fprintf(stderr, "a file appeared: %s\n", path.c_str());
    abort();
  }
  return 0;
}
