// The book source format of mkbook (docs/MKBOOK.md): UTF-8 lines, each
// either a directive that begins with '@', a comment that begins with ';',
// or a line of text in the markup of tools/markup.h.
#ifndef TOOLS_SOURCE_READER_H_
#define TOOLS_SOURCE_READER_H_

#include <string>
#include <vector>

#include "tools/book_content.h"

// The books of the source file at `path`, in their order. Throws
// SourceError (file and line) for anything the file gets wrong.
std::vector<BookContent> read_source(const std::string& path);

#endif  // TOOLS_SOURCE_READER_H_
