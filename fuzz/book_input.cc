#include "fuzz/book_input.h"

#include <string_view>

std::string encode_book_input(const BookInput& input) {
  std::string bytes;
  bytes += static_cast<char>(input.type);
  bytes += static_cast<char>(input.position_page);
  for (const std::string* section :
       {&input.catalog, &input.text, &input.file_table, &input.gaiji, &input.keyword}) {
    if (section != &input.catalog) bytes += kSectionMark;
    bytes += *section;
  }
  return bytes;
}

BookInput decode_book_input(const uint8_t* data, size_t size) {
  BookInput input;
  if (size < 2) return input;
  input.type = data[0] % 3;
  input.position_page = data[1];
  std::string_view rest(reinterpret_cast<const char*>(data) + 2, size - 2);
  for (std::string* section :
       {&input.catalog, &input.text, &input.file_table, &input.gaiji, &input.keyword}) {
    size_t mark = rest.find(kSectionMark);
    *section = rest.substr(0, mark);
    if (mark == std::string_view::npos) break;
    rest.remove_prefix(mark + sizeof kSectionMark - 1);
  }
  return input;
}
