// CVekMenuCtrl: the application's menu, a tree of entries whose labels come
// from "EPWING_MENU.lng" by id (key "title" names the menu itself; an id
// without a line there is called "項目" and its number).
//
// SetFocus takes the focus, speaks the menu's title and presents the first
// top entry. Keys:
// 24, 8192 / 48, 16384 move to the previous / next entry of the same level,
// round the ends; 256 opens a group (presenting its first entry) or chooses
// an entry without children, which closes the menu; 88 and 218 close it
// without a choice; the key value an entry was added with acts as 256 on
// that entry of the level in view; CK_POSITION tells "n/N" of the level,
// CK_HELP the keys. Other keys present the entry again.
#ifndef CONTROLS_VEK_MENU_CTRL_H_
#define CONTROLS_VEK_MENU_CTRL_H_

#include <cstdint>
#include <memory>
#include <vector>

#include "controls/control_focus.h"
#include "controls/device_settings.h"
#include "controls/language_file.h"
#include "platform/wide_string.h"
#include "platform/window.h"

// One entry of the menu; its handle is the pointer, valid until InitPrompt.
struct VekMenuItem {
  VekMenuItem* parent;   // null at the top level
  unsigned id;           // what GetSelectID gives when it is chosen
  unsigned keyValue;     // a key that chooses it directly
  bool hasChildren;      // a group: 256 opens it
  CString label;         // as added; the language file's label stands in for an empty one
};
using HVEKMENUITEM = VekMenuItem*;

class CVekMenuCtrl : public FocusTaker {
 public:
  CVekMenuCtrl() = default;
  virtual ~CVekMenuCtrl() = default;

  virtual void SetLocalWnd(HWND wnd) { localWnd_ = wnd; }
  virtual void SetTaskWnd(HWND wnd) { taskWnd_ = wnd; }
  // Loads the labels; a file that can't be read leaves the fallbacks.
  virtual void OpenRes(CString fileName);
  // Empties the menu.
  virtual void InitPrompt();
  // Adds an entry under `parent` (null: top level); its handle.
  virtual HVEKMENUITEM AddMenu(HVEKMENUITEM parent, unsigned id, unsigned keyValue,
                               int hasChildren, CString label, void* reserved, unsigned flags);
  virtual void SetFocus();
  CString HelpTitle() const override { return u"メニュー"; }
  std::vector<KeyHelp> HelpKeys() const override;
  // Opens the menu for keys; returns at once (keys come by OnBrailleKey).
  virtual int DoModal();
  // Nonzero while the menu stays open, 0 once it has closed.
  virtual unsigned OnBrailleKey(uint32_t key, long lParam);
  // Presents the entry in view again; never closes the menu.
  virtual unsigned OnBrailleCursor(unsigned cell, long lParam);
  // Id of the entry chosen; 0 when the menu closed without a choice.
  virtual int GetSelectID() { return selectId_; }
  virtual void SetReadingGrade(unsigned grade) { settings_.readingGrade = grade; }

  bool IsOpen() const { return open_; }
  // The label the user gets for an entry.
  CString LabelOf(const VekMenuItem& item) const;

 private:
  std::vector<VekMenuItem*> Level(const VekMenuItem* parent) const;
  void Present(bool withTitle);
  unsigned Activate(VekMenuItem* item);

  HWND localWnd_ = 0;                                // the frame's window
  HWND taskWnd_ = 0;                                 // the task manager's window
  LanguageFile labels_;                              // labels by id
  std::vector<std::unique_ptr<VekMenuItem>> items_;  // in the order added
  VekMenuItem* current_ = nullptr;                   // entry in view
  bool open_ = false;                                // between SetFocus and the close
  int selectId_ = 0;                                 // entry chosen at the close
  DeviceSettings settings_;                          // passed through
};

#endif  // CONTROLS_VEK_MENU_CTRL_H_
