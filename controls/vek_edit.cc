#include "controls/vek_edit.h"

#include "controls/beep_request.h"
#include "controls/control_keys.h"
#include "controls/key_help.h"
#include "controls/presenter.h"
#include "controls/spoken_text.h"
#include "platform/utf16_units.h"

namespace {

// Told in place of what is empty, so that silence never stands for it.
const char16_t kBlankField[] = u"空欄";
const char16_t kBlankLine[] = u"空行";
const char16_t kLineEnd[] = u"行末";
const char16_t kReadOnly[] = u"読み取り専用";
const char16_t kNothingToDelete[] = u"削除する文字がありません";
// Spoken behind a reading that has reached the end of the text.
const char16_t kTextEnd[] = u"文末";
const char16_t kEditMenuTitle[] = u"編集メニュー";

// The entries of the editing menu, in order; the last is offered only in
// a writable field.
enum EditMenuEntry { kReadWhole, kToStart, kToEnd, kClearAll };
const char16_t* const kEditMenuLabels[] = {u"全文を読む", u"先頭へ", u"末尾へ", u"全文削除"};

// Typed where no text can go, "?" asks for the help.
bool IsHelpRequest(const CString& typed) { return typed == CString(u"?") || typed == CString(u"？"); }


}  // namespace

void CVekEdit::Empty() {
  text_.Empty();
  cursor_ = 0;
  menuOpen_ = false;
}

void CVekEdit::SetText(CString text, int) {
  text_ = text;
  cursor_ = 0;
  menuOpen_ = false;
}

CString CVekEdit::GetText(int) { return text_; }

// A line takes the focus with the cursor behind its text, so that what is
// typed next goes on from it; a text of several lines is read out from its
// start.
void CVekEdit::SetFocus(CString label, int) {
  TakeFocus();
  label_ = label;
  menuOpen_ = false;
  if (!multiLine_) {
    cursor_ = text_.GetLength();
    PresentLine(true);
    return;
  }
  cursor_ = 0;
  readStart_ = 0;
  labelCells_ = label_.GetLength();
  CurrentPresenter().ShowBraille(label_ + CursorLine());
  CurrentPresenter().Speak(label_ + ReadingOf(text_), false);
}

CString CVekEdit::HelpTitle() const {
  if (menuOpen_) return u"編集メニュー";
  if (multiLine_) return u"本文";
  return readOnly_ ? u"設定値" : u"入力欄";
}

std::vector<KeyHelp> CVekEdit::HelpKeys() const {
  if (menuOpen_)
    return {{CK_PREV, u"前の項目"}, {CK_NEXT, u"次の項目"}, {CK_ENTER, u"実行"}, {CK_BACK, u"閉じる"}};
  if (multiLine_)
    return {{CK_PREV, u"前の行"},        {CK_NEXT, u"次の行"},
            {CK_CHAR_LEFT, u"一文字戻る"}, {CK_CHAR_RIGHT, u"一文字進む"},
            {CK_LINE_START, u"行頭へ"},    {CK_LINE_END, u"行末へ"},
            {CK_POPUP, u"編集メニュー、全文を読むなど"}};
  // A value line is changed by the keys of the screen it stands on.
  if (readOnly_) return {{CK_PREV, u"前の設定"}, {CK_NEXT, u"次の設定"}, {CK_NEXT_VALUE, u"次の値"}};
  return {{CK_CHAR_LEFT, u"一文字戻る"},  {CK_CHAR_RIGHT, u"一文字進む"},
          {CK_LINE_START, u"先頭へ"},     {CK_LINE_END, u"末尾へ"},
          {CK_BACKSPACE, u"前の文字を削除"}, {CK_DELETE, u"カーソルの文字を削除"},
          {CK_POPUP, u"編集メニュー、全文削除など"}};
}

CString CVekEdit::ReadingOf(const CString& text) const {
  if (text.IsEmpty()) return kBlankField;
  CString lines = SpokenLines(text);
  return lines.TrimRight(u" ") + u" " + kTextEnd;
}

void CVekEdit::Beep() { RequestBeep(taskWnd_, localWnd_, CONTROL_BEEP_CODE); }

// The line of the cursor in a text; the character at the cursor in a line.
void CVekEdit::TellPosition() {
  if (multiLine_) {
    int line = 1, lines = 1;
    for (int i = 0; i < text_.GetLength(); ++i) {
      if (text_[i] != u'\n') continue;
      ++lines;
      if (i < cursor_) ++line;
    }
    PresentPosition(line, lines);
  } else if (cursor_ < text_.GetLength()) {
    PresentPosition(cursor_ + 1, text_.GetLength());
  } else {
    CurrentPresenter().ShowBraille(label_ + text_);
    CurrentPresenter().Speak(kLineEnd, false);
  }
}

int CVekEdit::LineStart(int position) const {
  if (!multiLine_) return 0;
  while (position > 0 && text_[position - 1] != u'\n') --position;
  return position;
}

int CVekEdit::LineEnd(int position) const {
  if (!multiLine_) return text_.GetLength();
  int end = text_.Find(u'\n', position);
  return end < 0 ? text_.GetLength() : end;
}

CString CVekEdit::CursorLine() const {
  const int start = LineStart(cursor_);
  int end = LineEnd(cursor_);
  if (end > start && text_[end - 1] == u'\r') --end;
  return text_.Mid(start, end - start);
}

void CVekEdit::ShowCursorLine(const CString& prefix) {
  labelCells_ = prefix.GetLength();
  CurrentPresenter().ShowBraille(prefix + CursorLine());
  CurrentPresenter().ShowBrailleCursor(labelCells_ + cursor_ - LineStart(cursor_));
}

void CVekEdit::PresentLine(bool withLabel) {
  // A one-line field is always shown with its label; a text of several
  // lines only when it takes the focus.
  withLabel = withLabel || !multiLine_;
  const CString line = CursorLine();
  const CString prefix = withLabel ? label_ : CString();
  ShowCursorLine(prefix);
  if (!line.IsEmpty()) {
    CurrentPresenter().Speak(prefix + line, false);
  } else {
    CurrentPresenter().Speak(prefix + (multiLine_ && !text_.IsEmpty() ? kBlankLine : kBlankField),
                             false);
  }
}

void CVekEdit::PresentCharacter() {
  ShowCursorLine(multiLine_ ? CString() : label_);
  if (cursor_ >= LineEnd(cursor_) || text_[cursor_] == u'\r') {
    // The end of a text of several lines is its end, not one line's.
    const bool textEnd = multiLine_ && cursor_ >= text_.GetLength();
    CurrentPresenter().Speak(text_.IsEmpty() ? kBlankField : textEnd ? kTextEnd : kLineEnd, false);
    return;
  }
  const int units = IsHighSurrogate(text_[cursor_]) && IsLowSurrogate(text_[cursor_ + 1]) ? 2 : 1;
  CurrentPresenter().Speak(text_.Mid(cursor_, units), false);
}

// At the first or last line the move beeps and the line is told again.
void CVekEdit::MoveToLine(bool next) {
  if (next) {
    const int end = LineEnd(cursor_);
    if (end < text_.GetLength()) {
      cursor_ = end + 1;
    } else {
      Beep();
    }
  } else {
    const int start = LineStart(cursor_);
    if (start > 0) {
      cursor_ = LineStart(start - 1);
    } else {
      cursor_ = start;
      Beep();
    }
  }
  PresentLine(false);
}

void CVekEdit::DeleteAt(int position) {
  if (readOnly_) {
    CurrentPresenter().Speak(kReadOnly, false);
    return;
  }
  if (position < 0 || position >= text_.GetLength()) {
    ShowCursorLine(multiLine_ ? CString() : label_);
    CurrentPresenter().Speak(kNothingToDelete, false);
    return;
  }
  if (IsLowSurrogate(text_[position]) && position > 0 && IsHighSurrogate(text_[position - 1])) {
    --position;
  }
  const int units = IsHighSurrogate(text_[position]) && IsLowSurrogate(text_[position + 1]) ? 2 : 1;
  const CString gone = text_.Mid(position, units);
  text_.Delete(position, units);
  if (cursor_ > position) cursor_ = cursor_ - units < position ? position : cursor_ - units;
  ShowCursorLine(multiLine_ ? CString() : label_);
  CurrentPresenter().Speak(gone, false);
}

void CVekEdit::Insert(const CString& typed) {
  if (readOnly_) {
    CurrentPresenter().Speak(kReadOnly, false);
    return;
  }
  CString text = typed;
  if (!multiLine_) {
    text.Remove(u'\r');
    text.Remove(u'\n');
  }
  if (text.IsEmpty()) return;
  text_ = text_.Left(cursor_) + text + text_.Mid(cursor_);
  cursor_ += text.GetLength();
  ShowCursorLine(multiLine_ ? CString() : label_);
  CurrentPresenter().Speak(text, false);
}

int CVekEdit::OnBrailleKey(uint32_t key, long) {
  if (menuOpen_) return EditMenuKey(key);
  if (key == CK_POPUP) {
    menuOpen_ = true;
    menuIndex_ = 0;
    CurrentPresenter().ShowBraille(EditMenuItem(menuIndex_));
    CurrentPresenter().Speak(CString(kEditMenuTitle) + u" " + EditMenuItem(menuIndex_), false);
    return 1;
  }
  if (IsPrevKey(key) || IsNextKey(key)) {
    if (multiLine_) {
      MoveToLine(IsNextKey(key));
    } else {
      PresentLine(true);
    }
    return 1;
  }
  switch (key) {
    case CK_CHAR_LEFT:
      if (cursor_ > 0) cursor_ -= IsLowSurrogate(text_[cursor_ - 1]) && cursor_ > 1 ? 2 : 1;
      PresentCharacter();
      return 1;
    case CK_CHAR_RIGHT:
      if (cursor_ < text_.GetLength()) cursor_ += IsHighSurrogate(text_[cursor_]) ? 2 : 1;
      if (cursor_ > text_.GetLength()) cursor_ = text_.GetLength();
      PresentCharacter();
      return 1;
    case CK_LINE_START:
      cursor_ = LineStart(cursor_);
      PresentCharacter();
      return 1;
    case CK_LINE_END:
      cursor_ = LineEnd(cursor_);
      PresentCharacter();
      return 1;
    case CK_BACKSPACE:
      DeleteAt(cursor_ - 1);
      return 1;
    case CK_DELETE:
      DeleteAt(cursor_);
      return 1;
    case CK_HELP:
      PresentHelp();
      return 1;
    case CK_POSITION:
      TellPosition();
      return 1;
    default:
      return 0;
  }
}

void CVekEdit::OnBrailleCursor(unsigned cell, long) {
  const int start = LineStart(cursor_);
  const int end = LineEnd(cursor_);
  const long long offset = static_cast<long long>(cell) - labelCells_;
  cursor_ = offset <= 0 ? start : (offset >= end - start ? end : start + static_cast<int>(offset));
  PresentCharacter();
}

int CVekEdit::PlayBrl(int start, CString text, int) {
  if (start != 0) {
    CurrentPresenter().ShowBraille(text);
    labelCells_ = 0;
  }
  return 0;
}

int CVekEdit::PlayTts(CString text) {
  if (text.IsEmpty()) {
    CurrentPresenter().StopSpeech();
  } else {
    CurrentPresenter().Speak(text, sync_);
  }
  return 0;
}

// Reading belongs to the field in view: elsewhere read-all beeps and a
// stop has nothing to place.
void CVekEdit::OnReadAll() {
  if (!HasFocus()) {
    Beep();
    return;
  }
  readStart_ = LineStart(cursor_);
  CurrentPresenter().Speak(ReadingOf(text_.Mid(readStart_)), false);
}

void CVekEdit::OnReadAllEnd(int) {
  CurrentPresenter().StopSpeech();
  PresentLine(false);
}

void CVekEdit::PositionAtReadStop(unsigned offset, long) {
  if (!HasFocus()) return;
  const long long target = static_cast<long long>(readStart_) + offset;
  cursor_ = target > text_.GetLength() ? text_.GetLength() : static_cast<int>(target);
  if (IsLowSurrogate(text_[cursor_]) && cursor_ > 0) --cursor_;
  PresentLine(false);
}

// Text goes in only while this field has the focus and no editing menu is
// open; elsewhere "?" asks for the help, and anything else is refused.
void CVekEdit::OnReadJPNEditTXT(_JPNDATA* data) {
  const CString typed = JpnDataText(data);
  if (HasFocus() && !menuOpen_ && !readOnly_) {
    Insert(typed);
  } else if (IsHelpRequest(typed)) {
    PresentHelp();
  } else {
    Beep();
    if (HasFocus() && !menuOpen_) CurrentPresenter().Speak(kReadOnly, false);
  }
}

int CVekEdit::EditMenuSize() const { return readOnly_ ? kClearAll : kClearAll + 1; }

CString CVekEdit::EditMenuItem(int index) const { return kEditMenuLabels[index]; }

void CVekEdit::PresentEditMenuItem() {
  CurrentPresenter().ShowBraille(EditMenuItem(menuIndex_));
  CurrentPresenter().Speak(EditMenuItem(menuIndex_), false);
}

int CVekEdit::EditMenuKey(uint32_t key) {
  if (IsPrevKey(key) || IsNextKey(key)) {
    const int size = EditMenuSize();
    menuIndex_ = (menuIndex_ + (IsNextKey(key) ? 1 : size - 1)) % size;
    PresentEditMenuItem();
  } else if (key == CK_ENTER || key == CK_YES) {
    menuOpen_ = false;
    RunEditMenuItem();
  } else if (key == CK_BACK || key == CK_POPUP_CLOSE || key == CK_EXIT) {
    menuOpen_ = false;
    PresentLine(true);
  } else if (key == CK_HELP) {
    PresentHelp();
  } else {
    PresentEditMenuItem();
  }
  return 1;
}

void CVekEdit::RunEditMenuItem() {
  switch (menuIndex_) {
    case kReadWhole:
      readStart_ = 0;
      CurrentPresenter().Speak(ReadingOf(text_), false);
      return;
    case kToStart:
      cursor_ = 0;
      break;
    case kToEnd:
      cursor_ = text_.GetLength();
      break;
    case kClearAll:
      text_.Empty();
      cursor_ = 0;
      break;
  }
  PresentLine(true);
}
