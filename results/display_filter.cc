#include "results/display_filter.h"

#include <deque>
#include <string>
#include <vector>

#include "platform/char_class.h"

namespace {

constexpr char16_t kSyllableMark = u'\uFF65';  // ･

bool IsLetter(char16_t ch) { return ch != 0 && IsWideCharClass(ch, WCLASS_ALPHA) != 0; }

// A mark that shows as "-" or goes: one with a letter on both sides, from
// index 1 on. Both filters judge each mark by its neighbours in the text as
// it came, for a mark that goes never has a mark beside it.
bool IsSyllableMark(const std::u16string& text, size_t i) {
  return text[i] == kSyllableMark && i > 0 && IsLetter(text[i - 1]) && i + 1 < text.size() &&
         IsLetter(text[i + 1]);
}

}  // namespace

// StripLinks works as one pass over the text with the same outcome as
// its rule read literally (search "<→", take the first ">" behind it,
// delete, search again from the same index): every character becomes a
// cell that a later step may kill, so nothing is ever moved.
//
// What the rule comes to: when a ">" is met, let r be the last living
// character before it that is no digit. If r is a "|", the first opener
// still waiting is a link: its "<→" goes, and so does everything from r
// to the ">"; the openers inside its text keep waiting for the next ">".
// Otherwise only an opener whose arrow is r itself is a link (all between
// it and ">" is digits, and all of it goes), and every other waiting opener
// is none. An opener can also arise where a link's text meets what
// followed its ">", as the rule's next search would find it.
namespace {

class LinkStripper {
 public:
  explicit LinkStripper(const std::u16string& text) : text_(text), alive_(text.size(), true) {}

  CString Run() {
    for (size_t i = 0; i < text_.size(); ++i) {
      const char16_t ch = text_[i];
      if (ch == u'>' && !waiting_.empty() && CloseLink()) {
        alive_[i] = false;
        continue;
      }
      if (ch == u'→') {
        const size_t before = LastLiving();
        if (before != kNone && text_[before] == u'<' && before >= searchFrom_)
          waiting_.push_back({before, i});
      }
      living_.push_back(i);
      if (!IsDigit(ch)) nonDigits_.push_back(i);
    }
    std::u16string shown;
    shown.reserve(text_.size());
    for (size_t i = 0; i < text_.size(); ++i)
      if (alive_[i]) shown += text_[i];
    return CString(std::move(shown));
  }

 private:
  static constexpr size_t kNone = static_cast<size_t>(-1);
  struct Opener {
    size_t open;   // the "<"
    size_t arrow;  // the "→"
  };

  static bool IsDigit(char16_t ch) { return IsWideCharClass(ch, WCLASS_DIGIT) != 0; }

  // The top of a stack of cells once the dead ones are gone from it.
  size_t TopLiving(std::vector<size_t>& stack) {
    while (!stack.empty() && !alive_[stack.back()]) stack.pop_back();
    return stack.empty() ? kNone : stack.back();
  }
  size_t LastLiving() { return TopLiving(living_); }

  // Kills every living cell from `from` on.
  void KillFrom(size_t from) {
    while (!living_.empty() && living_.back() >= from) {
      alive_[living_.back()] = false;
      living_.pop_back();
    }
  }

  void KillOpener(const Opener& opener) {
    alive_[opener.open] = false;
    alive_[opener.arrow] = false;
  }

  // A ">" with openers waiting: true when it closes a link (and goes).
  bool CloseLink() {
    const size_t r = TopLiving(nonDigits_);  // an arrow at least: never kNone
    if (text_[r] == u'|') {
      const Opener link = waiting_.front();
      waiting_.pop_front();
      KillOpener(link);
      KillFrom(r);
      searchFrom_ = link.arrow + 1;
      return true;
    }
    const Opener last = waiting_.back();
    waiting_.clear();
    if (last.arrow != r) return false;
    KillOpener(last);
    KillFrom(r);
    searchFrom_ = last.arrow + 1;
    return true;
  }

  const std::u16string& text_;
  std::vector<bool> alive_;        // false for a deleted character
  std::vector<size_t> living_;     // cells in order; dead ones leave lazily
  std::vector<size_t> nonDigits_;  // the cells that are no digit, the same way
  std::deque<Opener> waiting_;     // openers whose ">" is still to come, in order
  size_t searchFrom_ = 0;          // an opener must start here or later
};

}  // namespace

void StripLinks(CString& text) { text = LinkStripper(text.Units()).Run(); }

void StripPhoneticSigns(CString& text) {
  const std::u16string& in = text.Units();
  std::u16string shown;
  shown.reserve(in.size());
  for (size_t i = 0; i < in.size(); ++i) {
    if (in[i] != u'/') {
      shown += in[i];
      continue;
    }
    if (i + 1 < in.size() && in[i + 1] == u'/') {
      ++i;  // both go
      continue;
    }
    size_t close = i + 1;
    while (close < in.size() && in[close] < 0x0100 && in[close] != u'\r' &&
           in[close] != u'\n' && in[close] != u'/')
      ++close;
    if (close < in.size() && in[close] == u'/') {
      i = close;  // the pair and all between go
    } else {
      shown += in[i];  // opens nothing; the next slash may
    }
  }
  text = CString(std::move(shown));
}

void ShowSyllableMarks(CString& text) {
  std::u16string shown = text.Units();
  for (size_t i = 0; i < shown.size(); ++i)
    if (IsSyllableMark(text.Units(), i)) shown[i] = u'-';
  text = CString(std::move(shown));
}

void HideSyllableMarks(CString& text) {
  const std::u16string& in = text.Units();
  std::u16string shown;
  shown.reserve(in.size());
  for (size_t i = 0; i < in.size(); ++i)
    if (!IsSyllableMark(in, i)) shown += in[i];
  text = CString(std::move(shown));
}

void ApplyGaijiTable(CString& text, const GaijiMappingArray& gaiji) {
  for (const GaijiMapping& row : gaiji) text.Replace(row.codeText, row.replacement);
}

bool IsGaijiCode(const CString& text) {
  if (text.GetLength() != 6 || text.GetAt(0) != u'[' || text.GetAt(5) != u']') return false;
  for (int i = 1; i <= 4; ++i) {
    char16_t ch = text.GetAt(i);
    if (!((ch >= u'0' && ch <= u'9') || (ch >= u'A' && ch <= u'F'))) return false;
  }
  return true;
}

void StripGaijiCodes(CString& text) {
  // A code that goes leaves the text behind it to be read on as it stands,
  // so one pass over the text as it came does.
  const std::u16string& in = text.Units();
  std::u16string shown;
  shown.reserve(in.size());
  for (size_t i = 0; i < in.size();) {
    if (in[i] == u'[' && IsGaijiCode(CString(in.substr(i, 6)))) {
      i += 6;
    } else {
      shown += in[i++];
    }
  }
  text = CString(std::move(shown));
}

CString FilterDisplayText(CString text, const DisplayOptions& options,
                          const GaijiMappingArray& gaiji) {
  if (options.linkVisible == 0) StripLinks(text);
  if (options.phSignsVisible == 0) StripPhoneticSigns(text);
  if (options.syllableVisible != 0) {
    ShowSyllableMarks(text);
  } else {
    HideSyllableMarks(text);
  }
  if (options.gaijiReplace != 0) ApplyGaijiTable(text, gaiji);
  if (options.gaijiVisible == 0) StripGaijiCodes(text);
  return text;
}
