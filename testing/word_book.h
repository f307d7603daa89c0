// A one-book dictionary of a test: a body text and its head lines, each
// entry's position in both, under a forward index (0x91).
//
//   BodyText body, heads;
//   entries.push_back({0, utf8_to_jis("あ"), body.size(), heads.size(), 0});
//   body.text(u8"あ").code(0x1F0A).code(0x1F03);
//   heads.text(u8"あ").code(0x1F0A);
//   write_word_book(folder, body, heads, entries);
#ifndef TESTING_WORD_BOOK_H_
#define TESTING_WORD_BOOK_H_

#include <filesystem>
#include <vector>

#include "tools/body_text.h"
#include "tools/index_tree_writer.h"

// Writes the book tree (catalog title "辞書", directory JITEN) at `folder`.
// The entries' positions count from the start of `body` and of `heads`;
// the head list gets its end code here.
void write_word_book(const std::filesystem::path& folder, const BodyText& body, BodyText heads,
                     std::vector<IndexLeafEntry> entries);

// Writes at `folder` a book of the same title whose one entry, あ, opens
// an article of `length` あ with no end, its head line the article's start.
void write_endless_book(const std::filesystem::path& folder, int length);

#endif  // TESTING_WORD_BOOK_H_
