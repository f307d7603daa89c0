// CVekListboxCtrl: the list box. DisplayItem takes the focus; it and every
// move show the label and the selected item as one Braille line and speak
// them. With no item selected (an empty list, or SetCurSel beyond it) the
// item is told as "項目なし".
//
// Keys: 24, 8192 select the previous item, 48, 16384 the next; at the
// first or last item (or in an empty list) the selection stays, the task
// manager is asked for a beep, and the item is presented again. With
// nothing selected, next goes to the first item and previous to the last.
// CK_POSITION tells "n/N" (0 for no item), CK_HELP the keys. A
// cursor-routing key presents again.
#ifndef CONTROLS_VEK_LISTBOX_CTRL_H_
#define CONTROLS_VEK_LISTBOX_CTRL_H_

#include <cstdint>
#include <vector>

#include "controls/control_focus.h"
#include "platform/wide_string.h"
#include "platform/window.h"

class CVekListboxCtrl : public FocusTaker {
 public:
  CVekListboxCtrl() = default;
  virtual ~CVekListboxCtrl() = default;
  virtual void SetMask(unsigned long mask) { mask_ = mask; }

  virtual void SetCtrlLocalWnd(HWND wnd) { localWnd_ = wnd; }
  virtual void SetCtrlTaskWnd(HWND wnd) { taskWnd_ = wnd; }
  // Drops all items; nothing is selected.
  virtual void ResetContent();
  // Null counts as the empty string. Result 0.
  virtual int SetLabel(const char16_t* label);
  // Appends an item; its index.
  virtual int AddString(const char16_t* item);
  // Selects `index`; an index outside the list selects nothing and gives
  // -1, else the index.
  virtual int SetCurSel(int index);
  // The selected index, -1 for none.
  virtual int GetCurSel() { return selection_; }
  virtual int GetCount() { return static_cast<int>(items_.size()); }
  // The item at `index`; the empty string outside the list.
  virtual void GetText(int index, CString& text);
  virtual void DisplayItem(int unused);
  virtual void OnBrailleKeyProc(uint32_t key, long lParam);
  virtual void OnCursorKeyProc(uint32_t cell, long lParam);

  CString HelpTitle() const override { return u"リスト"; }
  std::vector<KeyHelp> HelpKeys() const override;

  const CString& Label() const { return label_; }

 private:
  void Present();

  HWND localWnd_ = 0;       // the frame's window
  HWND taskWnd_ = 0;        // the task manager's window
  unsigned long mask_ = 0;  // set-up constant, kept
  CString label_;           // goes ahead of the item
  CStringArray items_;      // in the order added
  int selection_ = -1;      // index into items_, -1 for none
};

#endif  // CONTROLS_VEK_LISTBOX_CTRL_H_
