#include "controls/vek_menu_ctrl.h"

#include "controls/control_keys.h"
#include "controls/key_help.h"
#include "controls/presenter.h"

namespace {
const char16_t kMenuTitle[] = u"メニュー";
const char16_t kNoEntry[] = u"項目なし";
}  // namespace

void CVekMenuCtrl::OpenRes(CString fileName) { labels_.Load(fileName); }

void CVekMenuCtrl::InitPrompt() {
  items_.clear();
  current_ = nullptr;
  open_ = false;
  selectId_ = 0;
}

HVEKMENUITEM CVekMenuCtrl::AddMenu(HVEKMENUITEM parent, unsigned id, unsigned keyValue,
                                   int hasChildren, CString label, void*, unsigned) {
  items_.push_back(std::make_unique<VekMenuItem>(
      VekMenuItem{parent, id, keyValue, hasChildren != 0, label}));
  return items_.back().get();
}

CString CVekMenuCtrl::LabelOf(const VekMenuItem& item) const {
  if (!item.label.IsEmpty()) return item.label;
  CString fallback;
  fallback.Format(u"項目%u", item.id);
  return labels_.Get(std::to_string(item.id), fallback);
}

std::vector<VekMenuItem*> CVekMenuCtrl::Level(const VekMenuItem* parent) const {
  std::vector<VekMenuItem*> level;
  for (const auto& item : items_) {
    if (item->parent == parent) level.push_back(item.get());
  }
  return level;
}

void CVekMenuCtrl::SetFocus() {
  const std::vector<VekMenuItem*> top = Level(nullptr);
  current_ = top.empty() ? nullptr : top.front();
  open_ = true;
  selectId_ = 0;
  TakeFocus();
  Present(true);
}

int CVekMenuCtrl::DoModal() { return 0; }

void CVekMenuCtrl::Present(bool withTitle) {
  const CString entry = current_ ? LabelOf(*current_) : CString(kNoEntry);
  CurrentPresenter().ShowBraille(entry);
  const CString title = labels_.Get("title", kMenuTitle);
  CurrentPresenter().Speak(withTitle ? title + u" " + entry : entry, false);
}

unsigned CVekMenuCtrl::Activate(VekMenuItem* item) {
  if (item == nullptr) {
    // An empty menu has nothing to choose: it closes as if backed out of.
    open_ = false;
    return 0;
  }
  const std::vector<VekMenuItem*> children = Level(item);
  if (item->hasChildren && !children.empty()) {
    current_ = children.front();
    Present(false);
    return 1;
  }
  if (item->hasChildren) {
    // A group with nothing in it: say so and stay.
    current_ = item;
    CurrentPresenter().Speak(kNoEntry, false);
    return 1;
  }
  selectId_ = static_cast<int>(item->id);
  open_ = false;
  return 0;
}

unsigned CVekMenuCtrl::OnBrailleKey(uint32_t key, long) {
  if (!open_) return 0;
  if (key == CK_BACK || key == CK_EXIT) {
    selectId_ = 0;
    open_ = false;
    return 0;
  }
  if (key == CK_ENTER) return Activate(current_);
  if (key == CK_HELP) {
    PresentHelp();
    return 1;
  }
  const std::vector<VekMenuItem*> level = Level(current_ ? current_->parent : nullptr);
  if ((IsPrevKey(key) || IsNextKey(key)) && !level.empty()) {
    size_t at = 0;
    while (at < level.size() && level[at] != current_) ++at;
    at = IsNextKey(key) ? (at + 1) % level.size() : (at + level.size() - 1) % level.size();
    current_ = level[at];
  } else if (key == CK_POSITION && !level.empty()) {
    size_t at = 0;
    while (at < level.size() && level[at] != current_) ++at;
    PresentPosition(static_cast<int>(at + 1), static_cast<int>(level.size()));
    return 1;
  } else {
    for (VekMenuItem* item : level) {
      if (item->keyValue == key) return Activate(item);
    }
  }
  Present(false);
  return 1;
}

std::vector<KeyHelp> CVekMenuCtrl::HelpKeys() const {
  return {{CK_PREV, u"前の項目"}, {CK_NEXT, u"次の項目"}, {CK_ENTER, u"開く、選ぶ"},
          {CK_BACK, u"閉じる"}};
}

unsigned CVekMenuCtrl::OnBrailleCursor(unsigned, long) {
  if (open_) Present(false);
  return 1;
}
