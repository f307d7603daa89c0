#include "platform/wide_string.h"

#include <climits>
#include <cstdarg>
#include <cstdio>

#include "platform/code_page.h"

namespace {

// Clamps a range [first, first + count) to a string of `length` units.
void ClampRange(int length, int& first, int& count) {
  if (first < 0) first = 0;
  if (first > length) first = length;
  if (count < 0 || count > length - first) count = length - first;
}

// Pads `piece` to `width` units, on the left unless `leftAlign`.
void AppendPadded(std::u16string& out, const std::u16string& piece, int width, bool leftAlign,
                  char16_t pad) {
  int missing = width - static_cast<int>(piece.size());
  if (missing <= 0) {
    out += piece;
  } else if (leftAlign) {
    out += piece;
    out.append(missing, u' ');
  } else if (pad == u'0' && !piece.empty() && piece[0] == u'-') {
    out += u'-';  // zero padding goes between the sign and the digits
    out.append(missing, u'0');
    out.append(piece, 1);
  } else {
    out.append(missing, pad);
    out += piece;
  }
}

std::u16string AsciiToUnits(const char* ascii) {
  std::u16string units;
  for (; *ascii != '\0'; ++ascii) units += static_cast<char16_t>(*ascii);
  return units;
}

}  // namespace

CString::CString(const char16_t* text) {
  if (text != nullptr) text_ = text;
}

CString::CString(const char16_t* text, int length) {
  if (text != nullptr && length > 0) text_.assign(text, static_cast<size_t>(length));
}

CString::CString(const char* multibyte) {
  if (multibyte != nullptr) text_ = DecodeMultiByte(multibyte);
}

CString::CString(char16_t ch, int repeat) {
  if (repeat > 0) text_.assign(static_cast<size_t>(repeat), ch);
}

char16_t CString::GetAt(int index) const {
  if (index < 0 || index >= GetLength()) return 0;
  return text_[static_cast<size_t>(index)];
}

void CString::SetAt(int index, char16_t ch) {
  if (index >= 0 && index < GetLength()) text_[static_cast<size_t>(index)] = ch;
}

int CString::Find(char16_t ch, int start) const {
  if (start < 0) start = 0;
  if (start >= GetLength()) return -1;
  size_t at = text_.find(ch, static_cast<size_t>(start));
  return at == std::u16string::npos ? -1 : static_cast<int>(at);
}

int CString::Find(const CString& sub, int start) const {
  if (start < 0) start = 0;
  if (start > GetLength() || (start == GetLength() && !sub.IsEmpty())) return -1;
  size_t at = text_.find(sub.text_, static_cast<size_t>(start));
  return at == std::u16string::npos ? -1 : static_cast<int>(at);
}

int CString::ReverseFind(char16_t ch) const {
  size_t at = text_.rfind(ch);
  return at == std::u16string::npos ? -1 : static_cast<int>(at);
}

int CString::Delete(int index, int count) {
  if (count > 0 && index >= 0) {
    ClampRange(GetLength(), index, count);
    text_.erase(static_cast<size_t>(index), static_cast<size_t>(count));
  }
  return GetLength();
}

int CString::Replace(const CString& from, const CString& to) {
  if (from.IsEmpty()) return 0;
  std::u16string result;
  int replaced = 0;
  size_t done = 0;
  for (size_t at = text_.find(from.text_); at != std::u16string::npos;
       at = text_.find(from.text_, done)) {
    result.append(text_, done, at - done);
    result += to.text_;
    done = at + from.text_.size();
    ++replaced;
  }
  if (replaced > 0) {
    result.append(text_, done);
    text_ = std::move(result);
  }
  return replaced;
}

int CString::Remove(char16_t ch) {
  size_t before = text_.size();
  std::erase(text_, ch);
  return static_cast<int>(before - text_.size());
}

CString& CString::TrimLeft(const CString& set) {
  size_t first = text_.find_first_not_of(set.text_);
  text_.erase(0, first == std::u16string::npos ? text_.size() : first);
  return *this;
}

CString& CString::TrimRight(const CString& set) {
  size_t last = text_.find_last_not_of(set.text_);
  text_.erase(last == std::u16string::npos ? 0 : last + 1);
  return *this;
}

CString& CString::Trim(const CString& set) { return TrimRight(set).TrimLeft(set); }

CString CString::Left(int count) const { return Mid(0, count < 0 ? 0 : count); }

CString CString::Right(int count) const {
  if (count <= 0) return CString();
  if (count > GetLength()) count = GetLength();
  return Mid(GetLength() - count, count);
}

CString CString::Mid(int first, int count) const {
  ClampRange(GetLength(), first, count);
  return CString(text_.substr(static_cast<size_t>(first), static_cast<size_t>(count)));
}

void CString::Format(const char16_t* format, ...) {
  std::u16string out;
  va_list args;
  va_start(args, format);
  for (const char16_t* p = format; p != nullptr && *p != 0; ++p) {
    if (*p != u'%') {
      out += *p;
      continue;
    }
    const char16_t* start = p++;
    bool leftAlign = false;
    char16_t pad = u' ';
    for (; *p == u'-' || *p == u'0'; ++p) {
      if (*p == u'-') leftAlign = true;
      else pad = u'0';
    }
    int width = 0;
    for (; *p >= u'0' && *p <= u'9'; ++p) width = width * 10 + (*p - u'0');
    int precision = -1;
    if (*p == u'.') {
      precision = 0;
      for (++p; *p >= u'0' && *p <= u'9'; ++p) precision = precision * 10 + (*p - u'0');
    }
    bool isLong = false;
    if (*p == u'l') {
      isLong = true;
      ++p;
    }
    char digits[32];
    std::u16string piece;
    switch (*p) {
      case u'%':
        out += u'%';
        continue;
      case u'd':
      case u'i':
        snprintf(digits, sizeof digits, "%ld", isLong ? va_arg(args, long) : va_arg(args, int));
        piece = AsciiToUnits(digits);
        break;
      case u'u':
      case u'x':
      case u'X': {
        unsigned long value = isLong ? va_arg(args, unsigned long) : va_arg(args, unsigned int);
        snprintf(digits, sizeof digits, *p == u'u' ? "%lu" : *p == u'x' ? "%lx" : "%lX", value);
        piece = AsciiToUnits(digits);
        break;
      }
      case u'c':
        piece = static_cast<char16_t>(va_arg(args, int));
        pad = u' ';
        break;
      case u's': {
        const char16_t* text = va_arg(args, const char16_t*);
        piece = text != nullptr ? text : u"(null)";
        if (precision >= 0 && static_cast<size_t>(precision) < piece.size()) piece.resize(precision);
        pad = u' ';
        break;
      }
      default:  // unknown or cut short: copy what was read
        out.append(start, p + (*p != 0 ? 1 : 0));
        if (*p == 0) --p;
        continue;
    }
    AppendPadded(out, piece, width, leftAlign, pad);
  }
  va_end(args);
  text_ = std::move(out);
}

CString& CString::operator+=(const CString& other) {
  text_ += other.text_;
  return *this;
}

CString& CString::operator+=(char16_t ch) {
  text_ += ch;
  return *this;
}

std::string CString::ToMultiByte() const { return EncodeMultiByte(text_); }

int32_t WideToLong(const CString& text) {
  const std::u16string& units = text.Units();
  size_t i = 0;
  while (i < units.size() && (units[i] == u' ' || (units[i] >= u'\t' && units[i] <= u'\r'))) ++i;
  bool negative = false;
  if (i < units.size() && (units[i] == u'-' || units[i] == u'+')) negative = units[i++] == u'-';
  int64_t value = 0;
  for (; i < units.size() && units[i] >= u'0' && units[i] <= u'9'; ++i) {
    value = value * 10 + (units[i] - u'0');
    if (value > static_cast<int64_t>(INT32_MAX) + 1) break;  // already out of range
  }
  if (negative) value = -value;
  if (value > INT32_MAX) return INT32_MAX;
  if (value < INT32_MIN) return INT32_MIN;
  return static_cast<int32_t>(value);
}
