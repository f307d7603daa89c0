#include "tools/tree_output.h"

#include <unistd.h>

#include <stdexcept>
#include <system_error>

namespace fs = std::filesystem;

namespace {

// Whether `target` may be replaced: missing, empty, or a book tree.
bool replaceable(const fs::path& target) {
  std::error_code error;
  if (!fs::exists(target, error)) return true;
  if (!fs::is_directory(target, error)) return false;
  if (fs::is_empty(target, error)) return true;
  for (const char* catalog : {"catalogs", "CATALOGS", "catalog", "CATALOG"}) {
    if (fs::is_regular_file(target / catalog, error)) return true;
  }
  return false;
}

}  // namespace

void write_book_tree(const BookTree& tree, const fs::path& target) {
  if (!replaceable(target)) {
    throw std::runtime_error(target.string() + " exists and is not a book tree; not replaced");
  }
  const std::string suffix = "." + std::to_string(getpid());
  const fs::path fresh = target.string() + ".new" + suffix;
  const fs::path old = target.string() + ".old" + suffix;
  std::error_code error;
  fs::remove_all(fresh, error);
  try {
    if (target.has_parent_path()) fs::create_directories(target.parent_path());
    fs::create_directories(fresh);
    tree.write(fresh);
    const bool had_old = fs::exists(target);
    if (had_old) fs::rename(target, old);
    fs::rename(fresh, target);
    if (had_old) fs::remove_all(old);
  } catch (const fs::filesystem_error& failure) {
    fs::remove_all(fresh, error);
    throw std::runtime_error(failure.what());
  }
}
