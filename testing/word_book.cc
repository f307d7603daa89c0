#include "testing/word_book.h"

#include "tools/book_writer.h"

void write_word_book(const std::filesystem::path& folder, const BodyText& body, BodyText heads,
                     std::vector<IndexLeafEntry> entries) {
  BookTree tree(BookType::kEpwing);
  Book& book = tree.add_book("辞書", "JITEN");
  const int32_t bodyBase = (book.text.add_area(0x00, body.data()) - 1) * 2048;
  const int32_t headsBase = (book.text.add_area(0x05, heads.code(0x1F03).data()) - 1) * 2048;
  for (IndexLeafEntry& entry : entries) {
    entry.text += bodyBase;
    entry.head += headsBase;
  }
  book.text.add_area(0x91, index_tree(entries, book.text.next_page()));
  tree.write(folder);
}
