#include "controls/vek_listbox_ctrl.h"

#include "controls/beep_request.h"
#include "controls/control_keys.h"
#include "controls/key_help.h"
#include "controls/presenter.h"

namespace {
// Told in place of the item when nothing is selected.
const char16_t kNoItem[] = u"項目なし";
}  // namespace

void CVekListboxCtrl::ResetContent() {
  items_.clear();
  selection_ = -1;
}

int CVekListboxCtrl::SetLabel(const char16_t* label) {
  label_ = CString(label);
  return 0;
}

int CVekListboxCtrl::AddString(const char16_t* item) {
  items_.push_back(CString(item));
  return GetCount() - 1;
}

int CVekListboxCtrl::SetCurSel(int index) {
  selection_ = index >= 0 && index < GetCount() ? index : -1;
  return selection_;
}

void CVekListboxCtrl::GetText(int index, CString& text) {
  text = index >= 0 && index < GetCount() ? items_[index] : CString();
}

void CVekListboxCtrl::DisplayItem(int) {
  TakeFocus();
  Present();
}

std::vector<KeyHelp> CVekListboxCtrl::HelpKeys() const {
  return {{CK_PREV, u"前の項目"}, {CK_NEXT, u"次の項目"}};
}

void CVekListboxCtrl::Present() {
  const CString line = label_ + (selection_ < 0 ? CString(kNoItem) : items_[selection_]);
  CurrentPresenter().ShowBraille(line);
  CurrentPresenter().Speak(line, false);
}

// A move that can't go on beeps, and the item is told again.
void CVekListboxCtrl::OnBrailleKeyProc(uint32_t key, long) {
  const int count = GetCount();
  if (key == CK_HELP) {
    PresentHelp();
    return;
  }
  if (key == CK_POSITION) {
    PresentPosition(selection_ + 1, count);
    return;
  }
  if (!IsPrevKey(key) && !IsNextKey(key)) return;
  if (selection_ < 0 && count > 0) {
    selection_ = IsNextKey(key) ? 0 : count - 1;
  } else if (IsPrevKey(key) && selection_ > 0) {
    --selection_;
  } else if (IsNextKey(key) && selection_ >= 0 && selection_ + 1 < count) {
    ++selection_;
  } else {
    RequestBeep(taskWnd_, localWnd_, CONTROL_BEEP_CODE);
  }
  Present();
}

void CVekListboxCtrl::OnCursorKeyProc(uint32_t, long) { Present(); }
