// Bytes of catalog files, the one place where their layout is written:
//
//   EPWING ("catalogs", "titles") and Electronic Book ("catalog", "title"):
//     offset 0, 2 bytes: number of books, big-endian; 14 bytes of zeros;
//     then one record a book: 2 bytes of zeros, the title (80 or 30 bytes),
//     the directory (8 bytes, blank-padded) and, in EPWING, 74 bytes of
//     zeros: 164 or 40 bytes a record.
//   Encyclopedia ("catalog/catalog1", "catalog/title1"):
//     6 bytes of zeros, then one title of 80 bytes.
#ifndef TOOLS_CATALOG_WRITER_H_
#define TOOLS_CATALOG_WRITER_H_

#include <cstdint>
#include <string>
#include <vector>

enum class BookType { kEpwing, kElectronicBook, kEncyclopedia };

// Bytes a title holds in a catalog record of the type.
size_t catalog_title_size(BookType type);

struct CatalogRecord {
  std::string title;      // as stored: JIS codes or English text; zero-padded
  std::string directory;  // up to 8 bytes; blank-padded
};

// The catalog of an EPWING or Electronic Book tree; `count` is the number
// stored, which may differ from the records given (a damaged catalog). For the
// encyclopedia only the first record's title is used. Throws
// std::invalid_argument for a title or directory that doesn't fit.
std::string catalog_bytes(BookType type, const std::vector<CatalogRecord>& records,
                          uint16_t count);

#endif  // TOOLS_CATALOG_WRITER_H_
