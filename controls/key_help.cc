#include "controls/key_help.h"

#include "controls/control_focus.h"
#include "controls/presenter.h"

namespace {

// Names each key by its code, and knows no common keys.
class CodeGuide : public KeyGuide {
 public:
  CString KeyName(uint32_t code) const override {
    CString name;
    name.Format(u"キー%u", static_cast<unsigned>(code));
    return name;
  }
  std::vector<NamedKey> CommonKeys() const override { return {}; }
};

const CodeGuide codeGuide;
const KeyGuide* guide = &codeGuide;

void AppendKey(CString& text, const CString& key, const CString& action) {
  text += key + u"、" + action + u"。";
}

}  // namespace

void SetKeyGuide(const KeyGuide* newGuide) { guide = newGuide ? newGuide : &codeGuide; }

CString HelpText() {
  CString text = u"ヘルプ。";
  if (const FocusTaker* control = ControlInFocus()) {
    text += control->HelpTitle() + u"のキー。";
    for (const KeyHelp& key : control->HelpKeys()) {
      const CString name = guide->KeyName(key.code);
      if (!name.IsEmpty()) AppendKey(text, name, key.action);
    }
  }
  const std::vector<NamedKey> common = guide->CommonKeys();
  if (!common.empty()) {
    text += u"共通のキー。";
    for (const NamedKey& key : common) AppendKey(text, key.key, key.action);
  }
  return text;
}

void PresentPosition(int at, int of) {
  CString position;
  position.Format(u"%d/%d", at, of);
  CurrentPresenter().ShowBraille(position);
  CurrentPresenter().Speak(position, false);
}

void PresentHelp() {
  const CString text = HelpText();
  CurrentPresenter().ShowBraille(text);
  CurrentPresenter().Speak(text, false);
}
