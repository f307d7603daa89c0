// Scratch directories for tests that write book trees.
#ifndef TESTING_TEMP_TREE_H_
#define TESTING_TEMP_TREE_H_

#include <filesystem>
#include <string>

// An empty directory of this name under the system's temporary directory,
// private to this process; whatever stood there before is removed.
std::filesystem::path fresh_directory(const std::string& name);

#endif  // TESTING_TEMP_TREE_H_
