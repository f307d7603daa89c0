#include "braille/braille_presenter.h"

#include <algorithm>

BraillePresenter::BraillePresenter(std::shared_ptr<BrailleDisplay> display,
                                   CellTranslator translate, FILE* notices,
                                   std::chrono::milliseconds retry)
    : display_(display),
      translate_(std::move(translate)),
      notices_(notices),
      opener_(std::move(display), retry) {}

// The first try runs on the opener's thread as well: a BRLTTY that does
// not answer holds up the start no longer than `patience`.
bool BraillePresenter::Start(std::chrono::milliseconds patience) {
  std::string why = "it does not answer";
  if (!opener_.Start(true))
    why = "no thread to open it";
  else if (opener_.AwaitFirstTry(patience, why) && opener_.Opened())
    connected_ = true;
  if (!connected_) {
    std::fprintf(notices_, "epwingdict: no Braille display: %s cannot be used (%s)\n",
                 display_->Name(), why.c_str());
    std::fflush(notices_);
  }
  return connected_;
}

void BraillePresenter::Lose(const std::string& why) {
  if (!connected_) return;
  connected_ = false;
  std::fprintf(notices_, "epwingdict: the Braille display of %s was lost (%s); Braille goes on on "
                         "the terminal until it is back\n",
               display_->Name(), why.c_str());
  std::fflush(notices_);
  opener_.Start(false);
}

bool BraillePresenter::Reconnect() {
  if (connected_ || !opener_.Opened()) return false;
  connected_ = true;
  std::fprintf(notices_, "epwingdict: the Braille display of %s is back\n", display_->Name());
  std::fflush(notices_);
  FollowCursor();  // the display may be another, of another width
  Refresh();
  return connected_;
}

int BraillePresenter::CellOf(int position) const {
  if (position >= line_.GetLength()) return static_cast<int>(cells_.size());
  const auto after = std::upper_bound(sources_.begin(), sources_.end(), position);
  // A blank the translation dropped (at the end of the line, or between
  // words it spaces its own way): behind the cells before it, where typing
  // goes and from where a delete takes the blank.
  const bool ownCells = after != sources_.begin() && *(after - 1) == position;
  const char16_t unit = line_[position];
  if (!ownCells && (unit == u' ' || unit == u'\u3000')) return static_cast<int>(after - sources_.begin());
  // Else the last unit at or before `position` that has cells, and its first.
  if (after == sources_.begin()) return 0;
  return static_cast<int>(std::lower_bound(sources_.begin(), after, *(after - 1)) - sources_.begin());
}

void BraillePresenter::Refresh() {
  if (!connected_) return;
  const int cursor = cursorCell_ >= window_ ? cursorCell_ - window_ : -1;
  std::string why;
  if (!display_->Write(cells_.substr(std::min<size_t>(window_, cells_.size())), cursor, why))
    Lose(why);
}

void BraillePresenter::ShowBraille(const CString& line) {
  line_ = line;
  cells_ = translate_(line_.Units(), sources_);
  cursorCell_ = -1;
  window_ = 0;
  Refresh();
}

void BraillePresenter::ShowBrailleCursor(int position) {
  cursorCell_ = CellOf(position);
  FollowCursor();
  Refresh();
}

void BraillePresenter::FollowCursor() {
  const int width = connected_ ? display_->Width() : 0;
  window_ = width > 0 && cursorCell_ >= 0 ? cursorCell_ / width * width : 0;
}

int BraillePresenter::KeyDescriptor() const { return connected_ ? display_->KeyDescriptor() : -1; }

bool BraillePresenter::ReadKey(uint64_t& key) {
  if (!connected_) return false;
  std::string why;
  const int got = display_->ReadKey(key, why);
  if (got < 0) Lose(why);
  return got > 0;
}

bool BraillePresenter::Pan(int direction) {
  const int width = connected_ ? display_->Width() : 0;
  if (width <= 0) return false;
  const int next = window_ + direction * width;
  if (next < 0 || next >= static_cast<int>(cells_.size())) return false;
  window_ = next;
  Refresh();
  return true;
}

int BraillePresenter::UnitAt(int cell) const {
  const int target = window_ + cell;
  if (cell < 0 || target >= static_cast<int>(sources_.size())) return line_.GetLength();
  return sources_[static_cast<size_t>(target)];
}

void BraillePresenter::Release() {
  if (connected_) display_->Release();
}

void BraillePresenter::Retake() {
  if (!connected_) return;
  std::string why;
  if (!display_->Retake(why)) {
    Lose(why);
    return;
  }
  Refresh();
}
