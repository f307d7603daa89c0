// CVekFileDialog: the folder chooser. Its modal run lets the user walk the
// folders of the card from the start folder and choose one; afterwards
// GetSize, SetPos and GetPathName give the paths chosen (none, or one).
// All its paths are device names ("\SD\epwing\plus").
//
// For the run it is a window of its own: it sends WM_VEK_SET_MODAL with
// itself to the main window set by SetMainWnd, so that the frame routes
// every key to it (WM_VEK_KEY_MODAL, WM_VEK_CURSOR_MODAL), and
// WM_VEK_CLEAR_MODAL at its end. The run is a nested message loop inside
// the caller's handler.
//
// The run takes the focus. A folder is presented as a list: item 0
// "このフォルダを選択" stands for the folder itself, then its subfolders by
// name. Braille shows the folder's path and the item; speech says both
// when the folder changes (the path as its folders named one by one), the
// item alone on a move. Keys (docs/CONTROLS.md):
//   24, 8192 / 48, 16384  previous / next item; at the ends the item stays,
//                         a beep is asked for, and the item is told again
//   CK_POSITION, CK_HELP  "n/N" of the items; the keys
//   256                   item 0: choose the folder; a subfolder: go into it
//   234                   choose the item in view, folder or subfolder
//   88                    up to the parent folder; at the card's top folder
//                         the run ends with nothing chosen
//   218                   the run ends with nothing chosen
//   typed text, then 256  go to the folder typed, relative to the folder in
//                         view or a device name from "\", and choose it;
//                         "?" typed alone tells the keys
// A cursor-routing key presents the item again. A folder that isn't there,
// or a path longer than the caller takes, is told and nothing is chosen.
#ifndef CONTROLS_VEK_FILE_DIALOG_H_
#define CONTROLS_VEK_FILE_DIALOG_H_

#include <cstdint>

#include "controls/control_focus.h"
#include "controls/device_settings.h"
#include "platform/wide_string.h"
#include "platform/window.h"

class CVekFileDialog : public CWnd, public FocusTaker {
 public:
  // `parent` is kept; the frame passes null.
  explicit CVekFileDialog(CWnd* parent) : parent_(parent) {}
  ~CVekFileDialog() override = default;
  // The modal run: returns when the user has finished. Result 1 when a
  // path was chosen, 2 when none was.
  virtual int DoModal();

  void SetMainWnd(HWND wnd) { mainWnd_ = wnd; }
  // The task manager's window and the dialog's mode, kept.
  void SetInitDlg(HWND taskWnd, CString mode, int flags);
  // The folder the run opens in (null counts as the empty path: the card's
  // top folder), and the size of the caller's path buffer: a path of
  // `maxLength` units or more can't be chosen; 0 sets no limit.
  void SetInitPath(const char16_t* path, unsigned maxLength);
  // Number of paths chosen in the latest run.
  unsigned GetSize() const { return static_cast<unsigned>(chosen_.size()); }
  // Selects the path GetPathName gives, counted from 0.
  void SetPos(unsigned position) { position_ = position; }
  // The path at the selected position; empty outside the list.
  CString GetPathName() const;
  // Japanese text data typed while the dialog is open: a folder to go to.
  // Result 0.
  int OnCopyData(CWnd* window, tagCOPYDATASTRUCT* data);
  void SetJpnLangMode(LANMODE mode) { settings_.jpnLangMode = mode; }
  void SetJpnKeyMode(int mode) { settings_.jpnKeyMode = mode; }

  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  CString HelpTitle() const override { return u"フォルダ選択"; }
  std::vector<KeyHelp> HelpKeys() const override;

  const CString& InitPath() const { return initPath_; }
  // The folder in view during the run.
  const CString& Folder() const { return folder_; }

 private:
  void OnKey(uint32_t key);
  // Shows `folder` with the item of the subfolder `select` in view, or
  // item 0 when there is no such subfolder.
  void EnterFolder(const CString& folder, const CString& select);
  void Present(bool withFolder);
  void Say(const CString& text);
  // Chooses `path` and ends the run, unless it is no folder or too long.
  void Choose(const CString& path);
  void GoToTyped();
  void End();

  CWnd* parent_;             // as constructed
  HWND mainWnd_ = 0;         // the frame's window
  HWND taskWnd_ = 0;         // the task manager's window
  CString mode_;             // SetInitDlg's string, kept
  int flags_ = 0;            // SetInitDlg's number, kept
  CString initPath_;         // folder the run opens in
  unsigned maxLength_ = 0;   // paths must be shorter; 0 no limit
  CString typed_;            // text typed since the last key
  CString folder_;           // the folder in view
  CStringArray subfolders_;  // its subfolders, by name
  int item_ = 0;             // 0 the folder itself, n its subfolder n - 1
  CStringArray chosen_;      // paths chosen in the latest run
  unsigned position_ = 0;    // selected by SetPos
  DeviceSettings settings_;  // passed through
};

#endif  // CONTROLS_VEK_FILE_DIALOG_H_
