// BookTree: the catalog and the books of a tree.
#include "tools/book_writer.h"

#include "tools/jis_text.h"

Book& BookTree::add_book(std::string title, std::string directory) {
  books.push_back({std::move(title), std::move(directory), {}});
  return books.back();
}

std::string BookTree::catalog_path() const {
  if (!catalog_name.empty()) return catalog_name;
  switch (type) {
    case BookType::kEpwing: return "catalogs";
    case BookType::kElectronicBook: return "catalog";
    case BookType::kEncyclopedia: return "catalog/catalog1";
  }
  return "";
}

std::string BookTree::catalog() const {
  std::vector<CatalogRecord> records;
  for (const Book& book : books) {
    records.push_back({english ? book.title : utf8_to_jis(book.title), book.directory});
  }
  return catalog_bytes(type, records, stored_count.value_or(static_cast<uint16_t>(books.size())));
}

std::string BookTree::text_path(const Book& book) const {
  switch (type) {
    case BookType::kEpwing: return book.directory + "/data/honmon";
    case BookType::kElectronicBook: return book.directory + "/start";
    case BookType::kEncyclopedia: return "start";
  }
  return "";
}

void BookTree::write(const std::filesystem::path& root) const {
  write_book_file(root, catalog_path(), catalog(), names);
  for (const Book& book : books) {
    if (type == BookType::kEncyclopedia) {
      write_laid_out(root, book.text, encyclopedia_rows(), names);
      break;  // the encyclopedia's catalog holds one book
    }
    write_laid_out(root, book.text, {{0, text_path(book)}}, names);
  }
}
