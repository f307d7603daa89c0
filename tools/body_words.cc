#include "tools/body_words.h"

#include <stdexcept>

#include "platform/code_page.h"
#include "search/search_key.h"
#include "text/ascii_to_jis.h"
#include "tools/body_text.h"

namespace {

constexpr int kHalfOn = 0x1F04;
constexpr int kHalfOff = 0x1F05;
constexpr int kLinkOpen = 0x1F42;
constexpr int kLinkClose = 0x1F62;
constexpr int kArrow = 0x222A;           // →
constexpr int kSyllableMark = 0x2126;    // ・, half-width ･
constexpr unsigned char kHalfSyllable = 0xA5;

bool is_half_width(unsigned char byte) { return (byte >= 0x20 && byte < 0x7F) || byte == kHalfSyllable; }

}  // namespace

void BodyWords::word(int value) {
  bytes += static_cast<char>(value >> 8 & 0xFF);
  bytes += static_cast<char>(value & 0xFF);
}

void BodyWords::text(std::string_view sjis) {
  bool in_run = false;
  for (size_t i = 0; i < sjis.size(); ++i) {
    const unsigned char byte = static_cast<unsigned char>(sjis[i]);
    if (is_half_width(byte)) {
      if (!in_run && half_depth == 0) word(kHalfOn);
      in_run = true;
      word(byte == kHalfSyllable ? kSyllableMark : static_cast<int>(ascii_to_jis[byte] & 0x7FFF));
      continue;
    }
    if (in_run && half_depth == 0) word(kHalfOff);
    in_run = false;
    if (!IsLeadByte(byte) || i + 1 >= sjis.size()) {
      throw std::invalid_argument("a character with no JIS X 0208 form");
    }
    const int code = sjis_to_jis(byte << 8 | static_cast<unsigned char>(sjis[++i]));
    if (code < 0x2121 || code > 0x7E7E || (code & 0xFF) < 0x21 || (code & 0xFF) > 0x7E) {
      throw std::invalid_argument("a character with no JIS X 0208 form");
    }
    word(code);
  }
  if (in_run && half_depth == 0) word(kHalfOff);
}

void BodyWords::link(std::string_view shown_sjis, std::string target_sjis, int line) {
  word(kLinkOpen);
  word(kArrow);
  text(shown_sjis);
  word(kLinkClose);
  links.push_back({bytes.size(), std::move(target_sjis), line});
  bytes.append(6, '\0');
}

void BodyWords::append(const BodyWords& other) {
  for (const PendingLink& pending : other.links) {
    links.push_back({pending.offset + bytes.size(), pending.target, pending.line});
  }
  bytes += other.bytes;
}

void patch_position(std::string& bytes, size_t offset, int32_t position) {
  bytes.replace(offset, 6, BodyText().bcd(position).data());
}
