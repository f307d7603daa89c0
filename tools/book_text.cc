// BookText: the logical address space of a book.
#include <stdexcept>

#include "tools/book_writer.h"

namespace {

constexpr int64_t kPage = 2048;

int32_t pages_for(size_t bytes) {
  return bytes == 0 ? 1 : static_cast<int32_t>((bytes + kPage - 1) / kPage);
}

}  // namespace

int32_t BookText::add_area(int identifier, std::string_view bytes) {
  return add_area_at(identifier, next_page_, bytes);
}

int32_t BookText::add_area_at(int identifier, int32_t first_page, std::string_view bytes) {
  const int32_t count = place(first_page, bytes);
  entries_.push_back({identifier, first_page, count});
  return first_page;
}

int32_t BookText::add_pages(std::string_view bytes) {
  const int32_t first_page = next_page_;
  place(first_page, bytes);
  return first_page;
}

int32_t BookText::place(int32_t first_page, std::string_view bytes) {
  if (first_page < next_page_) throw std::invalid_argument("pages overlap earlier pages");
  const int32_t count = pages_for(bytes.size());
  // Sized once: a book's areas run to many megabytes.
  std::string pages;
  pages.reserve(static_cast<size_t>(count * kPage));
  pages.assign(bytes);
  pages.resize(static_cast<size_t>(count * kPage), '\0');
  pages_[first_page] = std::move(pages);
  next_page_ = first_page + count;
  return count;
}

void BookText::add_entry(const AreaEntry& entry) { entries_.push_back(entry); }

std::map<int64_t, std::string> BookText::contents() const {
  std::map<int64_t, std::string> contents;
  contents[0] = index_directory_page(entries_);
  for (const auto& [first_page, pages] : pages_) contents[(first_page - 1) * kPage] = pages;
  return contents;
}
