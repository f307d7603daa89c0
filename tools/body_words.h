// Body text under construction: 16-bit words as the decoder reads them,
// with the links whose target positions are only known once every article
// has its place in the book.
#ifndef TOOLS_BODY_WORDS_H_
#define TOOLS_BODY_WORDS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// A link whose six BCD bytes at `offset` still wait for the position of the
// entry with the head word `target` (Shift-JIS).
struct PendingLink {
  size_t offset;       // of the three BCD words within the bytes
  std::string target;  // head word of the entry linked to
  int line;            // source line, for the error of an unknown target
};

struct BodyWords {
  std::string bytes;               // big-endian words
  std::vector<PendingLink> links;  // in the order written
  int half_depth = 0;              // open explicit half-width runs

  // One word: a character, an external character or a control code.
  void word(int value);
  // Shift-JIS text. ASCII and the half-width syllable mark (0xA5) are
  // written as half-width runs (their full-width JIS forms between 0x1F04
  // and 0x1F05), so the reader gives them back as single bytes. Throws
  // std::invalid_argument for a byte with no JIS X 0208 form.
  void text(std::string_view sjis);
  // A link shown as "<→shown|position>": 0x1F42, the arrow, the text, 0x1F62
  // and the target's position once known.
  void link(std::string_view shown_sjis, std::string target_sjis, int line);
  // Appends `other`, its links moved along.
  void append(const BodyWords& other);
};

// Writes the position as the three BCD words of a link at `offset`.
void patch_position(std::string& bytes, size_t offset, int32_t position);

#endif  // TOOLS_BODY_WORDS_H_
