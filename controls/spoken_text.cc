#include "controls/spoken_text.h"

namespace {

// The parts of `text` between the units for which `parts` is true, empty
// ones left out, joined by `joint`.
template <typename Predicate>
CString JoinParts(const CString& text, Predicate parts, const char16_t* joint) {
  CString joined;
  int start = 0;
  for (int at = 0; at <= text.GetLength(); ++at) {
    if (at < text.GetLength() && !parts(text[at])) continue;
    if (at > start) {
      if (!joined.IsEmpty()) joined += joint;
      joined += text.Mid(start, at - start);
    }
    start = at + 1;
  }
  return joined;
}

}  // namespace

CString SpokenLines(const CString& text) {
  return JoinParts(text, [](char16_t unit) { return unit == u'\r' || unit == u'\n'; }, u" ");
}

CString SpokenPath(const CString& path) {
  return JoinParts(path, [](char16_t unit) { return unit == u'\\' || unit == u'/'; }, u"、");
}
