// The input of the book harness: one fuzzer input describes a whole book
// tree, a file definition table, an external-character definition file and
// a keyword. Kept as plain text sections so that the fuzzer's mutations
// mostly stay within one file:
//
//   offset  size  meaning
//   0       1     book type: byte % 3 (EPWING, Electronic Book, encyclopedia)
//   1       1     position selector: the position shown is byte * 2048 + 1
//   2       ...   catalog, text file, file table, gaiji definitions, keyword,
//                 in this order, separated by kSectionMark; missing sections
//                 are empty
#ifndef FUZZ_BOOK_INPUT_H_
#define FUZZ_BOOK_INPUT_H_

#include <cstddef>
#include <cstdint>
#include <string>

inline constexpr char kSectionMark[] = "|SECTION|";

struct BookInput {
  uint8_t type = 0;           // 0 EPWING, 1 Electronic Book, 2 encyclopedia
  uint8_t position_page = 1;  // page of the position argument
  std::string catalog;        // bytes of the catalog file
  std::string text;           // bytes of the text file (index directory on page 1)
  std::string file_table;     // text of the -F file definition table
  std::string gaiji;          // text of the -G definition file
  std::string keyword;        // Shift-JIS search key
};

std::string encode_book_input(const BookInput& input);
BookInput decode_book_input(const uint8_t* data, size_t size);

#endif  // FUZZ_BOOK_INPUT_H_
