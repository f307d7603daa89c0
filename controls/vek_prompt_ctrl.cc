#include "controls/vek_prompt_ctrl.h"

#include "controls/control_keys.h"
#include "controls/key_help.h"
#include "controls/presenter.h"

void CVekPromptCtrl::OpenRes(CString fileName) { words_.Load(fileName); }

CString CVekPromptCtrl::YesWord() const { return words_.Get("yes", u"はい"); }

CString CVekPromptCtrl::NoWord() const { return words_.Get("no", u"いいえ"); }

void CVekPromptCtrl::SetPrompt(CString question, unsigned, unsigned) {
  question_ = question;
  yesInView_ = false;
}

void CVekPromptCtrl::SetFocus() {
  open_ = true;
  selectKey_ = 0;
  TakeFocus();
  Present(true);
}

void CVekPromptCtrl::Present(bool withQuestion) {
  const CString choice = yesInView_ ? YesWord() : NoWord();
  CurrentPresenter().ShowBraille(question_ + u" " + choice);
  CurrentPresenter().Speak(withQuestion ? question_ + u" " + choice : choice, false);
}

unsigned CVekPromptCtrl::Close(unsigned answer) {
  open_ = false;
  selectKey_ = answer;
  return 0;
}

unsigned CVekPromptCtrl::OnBrailleKey(uint32_t key, long) {
  if (key == CK_YES) return Close(CK_YES);
  if (key == CK_ENTER) return Close(yesInView_ ? CK_YES : 0);
  if (key == CK_BACK || key == CK_EXIT) return Close(0);
  if (key == CK_HELP) {
    PresentHelp();
    return 1;
  }
  if (IsPrevKey(key) || IsNextKey(key)) yesInView_ = !yesInView_;
  Present(false);
  return 1;
}

std::vector<KeyHelp> CVekPromptCtrl::HelpKeys() const {
  return {{CK_NEXT, u"はいといいえの切り替え"}, {CK_ENTER, u"答える"}, {CK_YES, u"はい"},
          {CK_BACK, u"答えずに閉じる"}};
}

unsigned CVekPromptCtrl::OnBrailleCursor(unsigned, long) {
  Present(true);
  return 1;
}
