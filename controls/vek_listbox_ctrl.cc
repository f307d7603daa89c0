#include "controls/vek_listbox_ctrl.h"

#include "controls/control_keys.h"
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

void CVekListboxCtrl::DisplayItem(int) { Present(); }

void CVekListboxCtrl::Present() {
  const CString line = label_ + (selection_ < 0 ? CString(kNoItem) : items_[selection_]);
  CurrentPresenter().ShowBraille(line);
  CurrentPresenter().Speak(line, false);
}

void CVekListboxCtrl::OnBrailleKeyProc(uint32_t key, long) {
  const int count = GetCount();
  if (IsPrevKey(key)) {
    if (selection_ < 0) {
      selection_ = count - 1;
    } else if (selection_ > 0) {
      --selection_;
    }
  } else if (IsNextKey(key)) {
    if (selection_ < 0) {
      selection_ = count > 0 ? 0 : -1;
    } else if (selection_ + 1 < count) {
      ++selection_;
    }
  } else {
    return;
  }
  Present();
}

void CVekListboxCtrl::OnCursorKeyProc(uint32_t, long) { Present(); }
