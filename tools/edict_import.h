// A Japanese-English book from the EDICT dictionary file (EUC-JP, one entry
// a line: "HEAD [READING] /gloss/gloss/.../"), with kana, head-word and
// English keys.
#ifndef TOOLS_EDICT_IMPORT_H_
#define TOOLS_EDICT_IMPORT_H_

#include <string>

#include "tools/book_content.h"

// The book of every entry of the file at `path`. Lines that are not
// entries (the file's own header line among them) are passed over.
// Throws SourceError when the file can't be read or holds no entry.
BookContent read_edict(const std::string& path);

#endif  // TOOLS_EDICT_IMPORT_H_
