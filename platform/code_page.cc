#include "platform/code_page.h"

#include <iconv.h>

#include <bit>
#include <cerrno>
#include <cstring>

#include "platform/utf16_units.h"

namespace {

constexpr char16_t kDefaultWideChar = u'\u30FB';
constexpr char kDefaultByte = '?';
constexpr const char* kWideCharset =
    std::endian::native == std::endian::little ? "UTF-16LE" : "UTF-16BE";

// One converter each way, opened at first use and kept: the process has
// one thread, and iconv_open is costly next to a short line.
iconv_t Converter(bool toWide) {
  static iconv_t decoder = iconv_open(kWideCharset, "CP932");
  static iconv_t encoder = iconv_open("CP932", kWideCharset);
  iconv_t cd = toWide ? decoder : encoder;
  if (cd != reinterpret_cast<iconv_t>(-1)) iconv(cd, nullptr, nullptr, nullptr, nullptr);
  return cd;
}

bool IsTrailByte(unsigned char byte) { return byte >= 0x40 && byte <= 0xFC && byte != 0x7F; }

bool IsKnownCodePage(uint32_t codePage) {
  return codePage == CP_ACP || codePage == CP_OEMCP || codePage == CP_SHIFT_JIS;
}

// Decodes all of `bytes`, `unknown` for what is no character; false only
// when iconv has no CP932 converter.
bool Decode(std::string_view bytes, char16_t unknown, std::u16string& out) {
  iconv_t cd = Converter(true);
  if (cd == reinterpret_cast<iconv_t>(-1)) return false;
  out.assign(bytes.size(), u'\0');  // one byte never yields two units
  char* in = const_cast<char*>(bytes.data());
  size_t inLeft = bytes.size();
  char* outStart = reinterpret_cast<char*>(out.data());
  char* outPtr = outStart;
  size_t outLeft = out.size() * sizeof(char16_t);
  while (inLeft > 0) {
    if (iconv(cd, &in, &inLeft, &outPtr, &outLeft) != static_cast<size_t>(-1)) break;
    if (errno != EILSEQ && errno != EINVAL) break;
    // A byte that begins no character, or a lead byte without its trail
    // (EINVAL: the source ends behind it): one default character. A pair
    // of well-formed bytes that names no character is one character too.
    auto lead = static_cast<unsigned char>(*in);
    size_t skip = (IsLeadByte(lead) && inLeft >= 2 && IsTrailByte(static_cast<unsigned char>(in[1])))
                      ? 2 : 1;
    std::memcpy(outPtr, &unknown, sizeof unknown);
    outPtr += sizeof unknown;
    outLeft -= sizeof unknown;
    in += skip;
    inLeft -= skip;
    iconv(cd, nullptr, nullptr, nullptr, nullptr);
  }
  out.resize(static_cast<size_t>(outPtr - outStart) / sizeof(char16_t));
  return true;
}

// Encodes all of `units`; false only when iconv has no CP932 converter.
bool Encode(std::u16string_view units, char defaultChar, std::string& out, bool& usedDefault) {
  iconv_t cd = Converter(false);
  if (cd == reinterpret_cast<iconv_t>(-1)) return false;
  out.assign(units.size() * 2, '\0');  // one unit never yields three bytes
  char* in = reinterpret_cast<char*>(const_cast<char16_t*>(units.data()));
  size_t inLeft = units.size() * sizeof(char16_t);
  char* outPtr = out.data();
  size_t outLeft = out.size();
  usedDefault = false;
  while (inLeft > 0) {
    if (iconv(cd, &in, &inLeft, &outPtr, &outLeft) != static_cast<size_t>(-1)) break;
    if (errno != EILSEQ && errno != EINVAL) break;
    // A character CP932 lacks, a lone surrogate, or a pair cut at the end.
    char16_t unit;
    std::memcpy(&unit, in, sizeof unit);
    size_t skip = sizeof(char16_t);
    if (IsHighSurrogate(unit) && inLeft >= 2 * sizeof(char16_t)) {
      char16_t next;
      std::memcpy(&next, in + sizeof unit, sizeof next);
      if (IsLowSurrogate(next)) skip *= 2;
    }
    *outPtr++ = defaultChar;
    --outLeft;
    usedDefault = true;
    in += skip;
    inLeft -= skip;
    iconv(cd, nullptr, nullptr, nullptr, nullptr);
  }
  out.resize(static_cast<size_t>(outPtr - out.data()));
  return true;
}

}  // namespace

bool HasMultiByteConverters() {
  return Converter(true) != reinterpret_cast<iconv_t>(-1) &&
         Converter(false) != reinterpret_cast<iconv_t>(-1);
}

bool IsLeadByte(unsigned char byte) {
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

size_t CutAtCharBoundary(std::string_view bytes, size_t maxBytes) {
  size_t limit = maxBytes < bytes.size() ? maxBytes : bytes.size();
  size_t end = 0;
  while (end < limit) {
    size_t width = IsLeadByte(static_cast<unsigned char>(bytes[end])) ? 2 : 1;
    if (end + width > limit) break;
    end += width;
  }
  return end;
}

int MultiByteToWideChar(uint32_t codePage, uint32_t /*flags*/, const char* source,
                        int sourceLength, char16_t* target, int targetLength) {
  if (!IsKnownCodePage(codePage) || source == nullptr || sourceLength < -1 || targetLength < 0)
    return 0;
  size_t length = sourceLength == -1 ? std::strlen(source) + 1 : static_cast<size_t>(sourceLength);
  std::u16string units;
  if (!Decode(std::string_view(source, length), kDefaultWideChar, units) || units.empty())
    return 0;
  if (targetLength == 0) return static_cast<int>(units.size());
  if (target == nullptr || units.size() > static_cast<size_t>(targetLength)) return 0;
  std::memcpy(target, units.data(), units.size() * sizeof(char16_t));
  return static_cast<int>(units.size());
}

int WideCharToMultiByte(uint32_t codePage, uint32_t /*flags*/, const char16_t* source,
                        int sourceLength, char* target, int targetLength,
                        const char* defaultChar, int* usedDefault) {
  if (!IsKnownCodePage(codePage) || source == nullptr || sourceLength < -1 || targetLength < 0)
    return 0;
  size_t length = sourceLength == -1 ? std::char_traits<char16_t>::length(source) + 1
                                     : static_cast<size_t>(sourceLength);
  std::string bytes;
  bool defaulted = false;
  if (!Encode(std::u16string_view(source, length),
              defaultChar != nullptr ? *defaultChar : kDefaultByte, bytes, defaulted) ||
      bytes.empty())
    return 0;
  if (usedDefault != nullptr) *usedDefault = defaulted ? 1 : 0;
  if (targetLength == 0) return static_cast<int>(bytes.size());
  if (target == nullptr || bytes.size() > static_cast<size_t>(targetLength)) return 0;
  std::memcpy(target, bytes.data(), bytes.size());
  return static_cast<int>(bytes.size());
}

std::u16string DecodeMultiByte(std::string_view bytes, char16_t unknown) {
  std::u16string units;
  Decode(bytes, unknown, units);
  return units;
}

std::string EncodeMultiByte(std::u16string_view units) {
  std::string bytes;
  bool defaulted;
  Encode(units, kDefaultByte, bytes, defaulted);
  return bytes;
}

std::optional<std::string> EncodeMultiByteExactly(std::u16string_view units) {
  std::string bytes;
  bool defaulted = false;
  if (!Encode(units, kDefaultByte, bytes, defaulted) || defaulted) return std::nullopt;
  return bytes;
}
