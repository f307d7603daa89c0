// CString: the application's string, a value of UTF-16 code units.
//
// Every index and length counts 16-bit units, so a character outside the
// Basic Multilingual Plane takes two. Indexes out of range never fault: a
// read gives 0 (or an empty string), a write is ignored, and a range is
// clamped to the string. Assigning a multibyte string converts it from the
// system code page (CP932), and ToMultiByte converts back, with "?" for
// what CP932 cannot express.
#ifndef PLATFORM_WIDE_STRING_H_
#define PLATFORM_WIDE_STRING_H_

#include <cstdint>
#include <string>
#include <vector>

class CString {
 public:
  CString() = default;
  CString(const char16_t* text);  // null gives the empty string
  CString(const char16_t* text, int length);
  CString(const std::u16string& text) : text_(text) {}
  CString(std::u16string&& text) : text_(std::move(text)) {}
  // Decodes a NUL-ended multibyte string of the system code page.
  CString(const char* multibyte);
  CString(char16_t ch, int repeat);

  int GetLength() const { return static_cast<int>(text_.size()); }
  bool IsEmpty() const { return text_.empty(); }
  void Empty() { text_.clear(); }
  // The unit at `index`, or 0 when `index` is outside the string.
  char16_t GetAt(int index) const;
  char16_t operator[](int index) const { return GetAt(index); }
  // Ignored when `index` is outside the string.
  void SetAt(int index, char16_t ch);
  // NUL-ended units, valid until the string changes.
  const char16_t* GetString() const { return text_.c_str(); }
  const std::u16string& Units() const { return text_; }

  // First occurrence at `start` or later; -1 when there is none or `start`
  // lies beyond the end. A negative start counts as 0. An empty `sub` is
  // found at `start` when `start` is within the string.
  int Find(char16_t ch, int start = 0) const;
  int Find(const CString& sub, int start = 0) const;
  // Last occurrence of `ch`, or -1.
  int ReverseFind(char16_t ch) const;

  // Removes up to `count` units from `index` on; returns the new length.
  int Delete(int index, int count = 1);
  // Replaces every occurrence of `from`, scanning left to right over the
  // original text (a replacement is never searched again); returns how many.
  // An empty `from` replaces nothing.
  int Replace(const CString& from, const CString& to);
  // Removes every `ch`; returns how many went.
  int Remove(char16_t ch);

  // Removes units that are in `set` from the start, the end, or both.
  CString& TrimLeft(const CString& set);
  CString& TrimRight(const CString& set);
  CString& Trim(const CString& set);

  // The first `count` units, the last `count` units, or `count` units from
  // `first` (all of the rest when `count` is negative); clamped.
  CString Left(int count) const;
  CString Right(int count) const;
  CString Mid(int first, int count = -1) const;

  // printf-style: %s takes a NUL-ended `const char16_t*` (pass GetString(),
  // never a CString), %c a char16_t, %d and %i an int, %u, %x, %X an
  // unsigned, with an "l" size a long; flags "-" and "0", a width, and for
  // %s a precision. %% is a percent sign. An unknown conversion is copied
  // as it stands.
  void Format(const char16_t* format, ...);

  // Exact comparison by code unit: negative, 0 or positive.
  int Compare(const CString& other) const { return text_.compare(other.text_); }
  bool operator==(const CString& other) const { return text_ == other.text_; }
  bool operator!=(const CString& other) const { return text_ != other.text_; }
  bool operator<(const CString& other) const { return text_ < other.text_; }

  CString& operator+=(const CString& other);
  CString& operator+=(char16_t ch);
  friend CString operator+(CString left, const CString& right) { return left += right; }
  friend CString operator+(CString left, const char16_t* right) { return left += CString(right); }
  friend CString operator+(const char16_t* left, const CString& right) { return CString(left) += right; }

  // The text in the system code page; "?" stands for what it cannot express.
  std::string ToMultiByte() const;

 private:
  std::u16string text_;
};

// An ordered growable array of strings.
using CStringArray = std::vector<CString>;

// The number at the start of `text`, as the runtime's _wtol reads it:
// leading blanks and tabs skipped, an optional sign, decimal digits up to
// the first other unit; 0 when there are none. Clamped to 32 bits.
int32_t WideToLong(const CString& text);

#endif  // PLATFORM_WIDE_STRING_H_
