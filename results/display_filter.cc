#include "results/display_filter.h"

#include "platform/char_class.h"

namespace {

constexpr char16_t kSyllableMark = u'\uFF65';  // ･

bool IsLetter(char16_t ch) { return ch != 0 && IsWideCharClass(ch, WCLASS_ALPHA) != 0; }

// Finds each mark from index 1 on that has a letter on both sides and
// hands its index to `act`, which returns where the search goes on.
template <typename Act>
void ForEachSyllableMark(CString& text, Act act) {
  for (int pos = text.Find(kSyllableMark, 1); pos != -1; pos = text.Find(kSyllableMark, pos + 1)) {
    // GetAt gives 0 behind the end, and 0 is no letter.
    if (IsLetter(text.GetAt(pos - 1)) && IsLetter(text.GetAt(pos + 1))) act(pos);
  }
}

}  // namespace

void StripLinks(CString& text) {
  const CString opener(u"<→");
  int pos = text.Find(opener, 0);
  while (pos != -1) {
    int start = pos + 2;
    int end = text.Find(u'>', start);
    bool isLink = end != -1;
    int cut = start;
    for (int i = end - 1; isLink && i >= start; --i) {
      char16_t ch = text.GetAt(i);
      if (ch == u'|') {
        cut = i;
        break;
      }
      if (IsWideCharClass(ch, WCLASS_DIGIT) == 0) isLink = false;
    }
    if (!isLink) {
      pos = text.Find(opener, pos + 1);
      continue;
    }
    text.Delete(cut, end - cut + 1);
    text.Delete(pos, 2);
    pos = text.Find(opener, pos);  // the link's own text is looked at again
  }
}

void StripPhoneticSigns(CString& text) {
  int pos = text.Find(u'/', 0);
  while (pos != -1) {
    if (text.GetAt(pos + 1) == u'/') {
      text.Delete(pos, 2);
      pos = text.Find(u'/', pos);
      continue;
    }
    int close = -1;
    for (int i = pos + 1; i < text.GetLength(); ++i) {
      char16_t ch = text.GetAt(i);
      if (ch >= 0x0100 || ch == u'\r' || ch == u'\n') break;
      if (ch == u'/') {
        close = i;
        break;
      }
    }
    if (close == -1) {
      pos = text.Find(u'/', pos + 1);  // opens nothing, but the next slash may
      continue;
    }
    text.Delete(pos, close - pos + 1);
    pos = text.Find(u'/', pos);
  }
}

void ShowSyllableMarks(CString& text) {
  ForEachSyllableMark(text, [&text](int pos) { text.SetAt(pos, u'-'); });
}

void HideSyllableMarks(CString& text) {
  // The search goes on from pos + 1 in the shortened string, so the
  // character that followed the mark is passed over.
  ForEachSyllableMark(text, [&text](int pos) { text.Delete(pos, 1); });
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
  int pos = text.Find(u'[', 0);
  while (pos != -1) {
    if (IsGaijiCode(text.Mid(pos, 6))) {
      text.Delete(pos, 6);
      pos = text.Find(u'[', pos);
    } else {
      pos = text.Find(u'[', pos + 1);
    }
  }
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
