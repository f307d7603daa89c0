#include "results/typed_word_forms.h"

#include <algorithm>
#include <string>

#include "results/romaji.h"

namespace {

constexpr char16_t kDropped[] = u" \u3000\t\u30FB\uFF65\u2010\uFF0D-";

}  // namespace

CString WithoutBlanksAndSymbols(const CString& word) {
  std::u16string kept;
  for (const char16_t unit : word.Units()) {
    if (std::char_traits<char16_t>::find(kDropped, std::size(kDropped) - 1, unit) == nullptr)
      kept += unit;
  }
  return CString(std::move(kept));
}

CString WithAsciiLettersAndDigits(const CString& word) {
  std::u16string ascii = word.Units();
  for (char16_t& unit : ascii) {
    const bool fullWidth = (unit >= u'０' && unit <= u'９') || (unit >= u'Ａ' && unit <= u'Ｚ') ||
                           (unit >= u'ａ' && unit <= u'ｚ');
    if (fullWidth) unit = static_cast<char16_t>(unit - u'０' + u'0');
  }
  return CString(std::move(ascii));
}

std::vector<CString> TypedWordForms(const CString& word) {
  std::vector<CString> forms;
  auto add = [&](const CString& form) {
    if (!form.IsEmpty() && form != word &&
        std::find(forms.begin(), forms.end(), form) == forms.end())
      forms.push_back(form);
  };
  const CString bare = WithoutBlanksAndSymbols(word);
  add(bare);
  const CString ascii = WithAsciiLettersAndDigits(bare);
  add(ascii);
  std::u16string kana;
  if (RomajiToHiragana(ascii.Units(), kana)) add(CString(std::move(kana)));
  return forms;
}
