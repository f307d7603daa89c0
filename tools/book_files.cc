// Writing a book's files: names styled as on a disc, and a logical
// address space laid over the files of a layout.
#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <fstream>

#include "engine/file_access.h"
#include "tools/book_writer.h"

namespace fs = std::filesystem;

std::string styled_path(const std::string& relative, const NameStyle& style) {
  std::string path = relative;
  if (style.upper_case) {
    for (char& c : path) c = static_cast<char>(toupper(static_cast<unsigned char>(c)));
  }
  const size_t base = path.rfind('/') == std::string::npos ? 0 : path.rfind('/') + 1;
  if (style.bare_dot && path.find('.', base) == std::string::npos) path += '.';
  if (style.version) path += ";1";
  return path;
}

void write_book_file(const fs::path& root, const std::string& relative, std::string_view bytes,
                     const NameStyle& style) {
  const fs::path target = root / styled_path(relative, style);
  fs::create_directories(target.parent_path());
  fs::path partial = target;
  partial += ".partial";
  {
    std::ofstream out(partial, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) {
      throw fs::filesystem_error("cannot write", partial,
                                 std::make_error_code(std::errc::io_error));
    }
  }
  fs::rename(partial, target);
}

void write_laid_out(const fs::path& root, const BookText& text, const std::vector<FileRow>& rows,
                    const NameStyle& style) {
  const std::map<int64_t, std::string> contents = text.contents();
  for (size_t row = 0; row < rows.size(); ++row) {
    const int64_t start = int64_t{rows[row].first_page} * kPageSize;
    const int64_t end = row + 1 < rows.size() ? int64_t{rows[row + 1].first_page} * kPageSize
                                              : INT64_MAX;
    // Sized once for the whole file rather than grown run by run.
    int64_t last = start;
    for (const auto& [position, run] : contents) {
      const int64_t run_end = std::min(position + static_cast<int64_t>(run.size()), end);
      if (position < end) last = std::max(last, run_end);
    }
    std::string bytes;
    bytes.reserve(static_cast<size_t>(last - start));
    for (const auto& [position, run] : contents) {
      const int64_t from = std::max(position, start);
      const int64_t to = std::min(position + static_cast<int64_t>(run.size()), end);
      if (from >= to) continue;
      const size_t needed = static_cast<size_t>(to - start);
      if (bytes.size() < needed) bytes.resize(needed, '\0');
      run.copy(bytes.data() + (from - start), to - from, from - position);
    }
    if (!bytes.empty()) write_book_file(root, rows[row].name, bytes, style);
  }
}

std::vector<FileRow> encyclopedia_rows() {
  std::vector<FileRow> rows;
  for (const LogicalFile* row = default_file_table; row->name; ++row) {
    rows.push_back({row->first_page, row->name});
  }
  return rows;
}

std::string file_definition_table(const std::vector<FileRow>& rows) {
  std::string text = "# first page (x 2048), file\n";
  char line[600];
  for (const FileRow& row : rows) {
    snprintf(line, sizeof line, "0x%X,%s\n", static_cast<unsigned>(row.first_page),
             row.name.c_str());
    text += line;
  }
  return text;
}
