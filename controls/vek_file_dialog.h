// CVekFileDialog: the folder chooser. It keeps what the frame sets up and
// gives back the paths chosen in its modal run; the walk of the card in
// that run comes with the management screens. Until then the modal run
// ends at once, with no path chosen.
#ifndef CONTROLS_VEK_FILE_DIALOG_H_
#define CONTROLS_VEK_FILE_DIALOG_H_

#include <cstdint>

#include "controls/device_settings.h"
#include "platform/wide_string.h"
#include "platform/window.h"

class CVekFileDialog {
 public:
  // `parent` is kept; the frame passes null.
  explicit CVekFileDialog(CWnd* parent) : parent_(parent) {}
  virtual ~CVekFileDialog() = default;
  // The modal run: returns when the user has finished. Result 1 when some
  // path was chosen, 2 when none was.
  virtual int DoModal();

  void SetMainWnd(HWND wnd) { mainWnd_ = wnd; }
  void SetInitDlg(HWND taskWnd, CString mode, int flags);
  // Null counts as the empty path.
  void SetInitPath(const char16_t* path, unsigned maxLength);
  // Number of paths chosen in the latest run.
  unsigned GetSize() const { return static_cast<unsigned>(chosen_.size()); }
  // Selects the path GetPathName gives, counted from 0.
  void SetPos(unsigned position) { position_ = position; }
  // The path at the selected position; empty outside the list.
  CString GetPathName() const;
  // Japanese text data typed while the dialog is open. Result 0.
  int OnCopyData(CWnd* window, tagCOPYDATASTRUCT* data);
  void SetJpnLangMode(LANMODE mode) { settings_.jpnLangMode = mode; }
  void SetJpnKeyMode(int mode) { settings_.jpnKeyMode = mode; }

  const CString& InitPath() const { return initPath_; }

 private:
  CWnd* parent_;             // as constructed
  HWND mainWnd_ = 0;         // the frame's window
  HWND taskWnd_ = 0;         // the task manager's window
  CString mode_;             // SetInitDlg's string, kept
  int flags_ = 0;            // SetInitDlg's number, kept
  CString initPath_;         // folder the run opens in
  unsigned maxLength_ = 0;   // longest path the caller takes
  CString typed_;            // text typed while open
  CStringArray chosen_;      // paths chosen in the latest run
  unsigned position_ = 0;    // selected by SetPos
  DeviceSettings settings_;  // passed through
};

#endif  // CONTROLS_VEK_FILE_DIALOG_H_
