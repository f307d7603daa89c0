// Bytes of external-character files: definition files (-G, -H) and bitmap
// areas (-#, -$, and the font area of a built book).
#ifndef TOOLS_GAIJI_WRITER_H_
#define TOOLS_GAIJI_WRITER_H_

#include <string>
#include <vector>

struct GaijiDefinition {
  int code;          // the code as it stands in body text
  std::string text;  // replacement text in Shift-JIS; may be empty
};

// Records in the given order (codes little-endian, texts ended by 0), then
// the 0xFFFF end record unless `with_end` is false.
std::string gaiji_definition_file(const std::vector<GaijiDefinition>& definitions,
                                  bool with_end = true);

struct FontArea {
  int width;                         // dots
  int height;                        // dots
  int first_code;                    // code of the first character
  int count;                         // characters
  std::vector<std::string> bitmaps;  // height rows of row bytes each; missing ones are blank
};

// The header page and the bitmaps packed in 1024-byte blocks, for an area
// that starts on a page boundary; padded to whole pages.
std::string font_area_bytes(const FontArea& area);

#endif  // TOOLS_GAIJI_WRITER_H_
