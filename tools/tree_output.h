// Putting a finished book tree in place without ever leaving half of one.
#ifndef TOOLS_TREE_OUTPUT_H_
#define TOOLS_TREE_OUTPUT_H_

#include <filesystem>

#include "tools/book_writer.h"

// Writes `tree` into a new folder beside `target` and renames it to
// `target` when every file is written. An existing `target` must be empty
// or hold a catalog (a book tree that is being replaced); it is removed
// only once the new tree stands. Throws std::runtime_error with the reason.
void write_book_tree(const BookTree& tree, const std::filesystem::path& target);

#endif  // TOOLS_TREE_OUTPUT_H_
