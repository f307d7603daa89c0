// Conversion between UTF-16 and the system multibyte code page, Shift-JIS
// as CP932, through glibc's iconv: the one place that opens a converter. The two calls behave as the device's
// MultiByteToWideChar and WideCharToMultiByte do for the application:
//
// - A source length of -1 means a NUL-ended source, and the NUL is
//   converted and counted too.
// - A target length of 0 asks for the size only: the result is the number
//   of units (or bytes) the conversion needs, and nothing is written.
// - A target too small for the whole result gives 0 and writes nothing.
// - Bytes that are no CP932 character decode as U+30FB, CP932's default
//   wide character; a lone lead byte at the end of the source is one of
//   them. Wide characters that CP932 cannot express encode as the default
//   character ("?" unless one is given), one per character (a surrogate
//   pair is one character), and set *usedDefault.
#ifndef PLATFORM_CODE_PAGE_H_
#define PLATFORM_CODE_PAGE_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Code pages that name CP932: the system's ANSI and OEM pages, and 932.
constexpr uint32_t CP_ACP = 0;
constexpr uint32_t CP_OEMCP = 1;
constexpr uint32_t CP_SHIFT_JIS = 932;

// The result counts wide units written (or needed); 0 on failure, also for
// a code page other than those above.
int MultiByteToWideChar(uint32_t codePage, uint32_t flags, const char* source, int sourceLength,
                        char16_t* target, int targetLength);
// The result counts bytes written (or needed); 0 on failure. `defaultChar`
// may be null; `usedDefault` may be null.
int WideCharToMultiByte(uint32_t codePage, uint32_t flags, const char16_t* source,
                        int sourceLength, char* target, int targetLength,
                        const char* defaultChar, int* usedDefault);

// The same conversions for whole strings, with the defaults above; a
// decoder may give `unknown` for bytes that are no CP932 character.
std::u16string DecodeMultiByte(std::string_view bytes, char16_t unknown = u'\u30FB');
std::string EncodeMultiByte(std::u16string_view units);
// The CP932 bytes of `units`, or nothing when a character (a lone
// surrogate too) has no CP932 form: for text that must arrive unchanged.
std::optional<std::string> EncodeMultiByteExactly(std::u16string_view units);

// True when the system has the converters (glibc's gconv modules, which a
// static program loads at run time); without them every conversion fails.
bool HasMultiByteConverters();

// True for a byte that starts a two-byte CP932 character.
bool IsLeadByte(unsigned char byte);
// The length of the longest prefix of the CP932 text `bytes` that is at
// most `maxBytes` long and does not split a two-byte character; a lead byte
// at the very end of `bytes` is such a split, and is left out.
size_t CutAtCharBoundary(std::string_view bytes, size_t maxBytes);

#endif  // PLATFORM_CODE_PAGE_H_
