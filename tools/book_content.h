// What mkbook builds a book from, whichever source it came from: entries
// with their search keys and compiled text, the menu, the notice of rights
// and the external characters.
#ifndef TOOLS_BOOK_CONTENT_H_
#define TOOLS_BOOK_CONTENT_H_

#include <stdexcept>
#include <string>
#include <vector>

#include "tools/body_words.h"

// An external character with its 16 x 16 bitmap.
struct GaijiGlyph {
  int code;                       // as it stands in body text, e.g. 0xA121
  std::string bitmap;             // 32 bytes: 16 rows of 2 bytes, top bit leftmost
};

struct EntryContent {
  std::string head;                // head word, Shift-JIS: its key for the 0x91 index
  std::vector<std::string> kana;   // readings, Shift-JIS, kana only: keys for 0x90
  std::vector<std::string> alpha;  // alphabet keys, Shift-JIS: keys for 0x92
  BodyWords head_line;             // the article's first line and its line in head lists
  BodyWords body;                  // the lines behind it, each ended by 0x1F0A
  int line = 0;                    // where the entry starts in its source
};

struct BookContent {
  std::string title;       // UTF-8
  std::string directory;   // under the catalog, up to 8 characters
  std::string source;      // source file name, for messages
  int line = 0;            // where the book starts in its source
  std::vector<EntryContent> entries;
  BodyWords menu;          // the menu page (0x01); empty for none
  BodyWords notice;        // the notice of rights (0x02); empty for none
  std::vector<GaijiGlyph> glyphs;  // in ascending code order
};

// A fault of the source, told as "FILE:LINE: what".
class SourceError : public std::runtime_error {
 public:
  SourceError(const std::string& file, int line, const std::string& what)
      : std::runtime_error(file + ":" + std::to_string(line) + ": " + what) {}
};

#endif  // TOOLS_BOOK_CONTENT_H_
