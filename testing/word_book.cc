#include "testing/word_book.h"

#include "tools/book_writer.h"
#include "tools/jis_text.h"

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

void write_endless_book(const std::filesystem::path& folder, int length) {
  BookTree tree(BookType::kEpwing);
  Book& book = tree.add_book("辞書", "JITEN");
  std::u8string endless;
  for (int i = 0; i < length; ++i) endless += u8"あ";
  BodyText body;
  body.text(endless);
  const int32_t text = (book.text.add_area(0x00, body.data()) - 1) * 2048;
  book.text.add_area(0x91, index_tree({{0, utf8_to_jis("あ"), text, text, 0}}, book.text.next_page()));
  tree.write(folder);
}
