#include "engine/number.h"

#include <cstring>

#include "engine/engine_state.h"

namespace {

// White space as the C locale knows it; no locale may widen it, for the
// bytes around a number may be Shift-JIS.
bool is_blank(unsigned char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// The value of `c` as a digit of `base` (8, 10 or 16), or -1.
int digit_value(unsigned char c, int base) {
  int value = -1;
  if (c >= '0' && c <= '9') value = c - '0';
  else if (c >= 'a' && c <= 'f') value = c - 'a' + 10;
  else if (c >= 'A' && c <= 'F') value = c - 'A' + 10;
  return value < base ? value : -1;
}

}  // namespace

int32_t parse_number(const char* text) {
  const unsigned char* p = reinterpret_cast<const unsigned char*>(text);
  while (is_blank(*p)) ++p;
  bool negative = false;
  if (*p == '-') {
    negative = true;
    ++p;
  }
  int base = 10;
  if (p[0] == '0' && (p[1] == 'x' || p[1] == 'X')) {
    base = 16;
    p += 2;
  } else if (p[0] == '0') {
    base = 8;
    ++p;
  }
  // Unsigned so that a value past 32 bits wraps as documented instead of
  // being undefined.
  uint32_t value = 0;
  for (int digit; (digit = digit_value(*p, base)) >= 0; ++p) value = value * base + digit;
  engine.number_end = reinterpret_cast<const char*>(p);
  return static_cast<int32_t>(negative ? 0u - value : value);
}

void normalize_drive(char* path) {
  size_t length = strlen(path);
  if ((engine.flags & DF_NO_BACKSLASH) == 0) {
    for (size_t i = 0; i < length; ++i) {
      if (path[i] == '\\') path[i] = '/';
    }
  }
  if (length > 0 && path[length - 1] == '/') return;
  // A path of 511 bytes has no room for its '/': such a root can't be
  // joined to a book's file names, so it is dropped, and the next open
  // reports that no drive is set (failure 1).
  if (length + 2 > static_cast<size_t>(kPathSize)) {
    path[0] = '\0';
    return;
  }
  path[length] = '/';
  path[length + 1] = '\0';
}
