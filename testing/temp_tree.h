// Scratch directories for tests that write book trees.
#ifndef TESTING_TEMP_TREE_H_
#define TESTING_TEMP_TREE_H_

#include <filesystem>
#include <string>

// An empty directory of this name under the system's temporary directory,
// private to this process; whatever stood there before is removed.
std::filesystem::path fresh_directory(const std::string& name);

// A path of this name in the same private folder, for a scratch file; the
// folder exists, the name itself is not touched. Tests running side by side
// in other processes never share it.
std::string scratch_path(const std::string& name);

// All bytes of the file at `path`; empty when it can't be read.
std::string ReadWholeFile(const std::filesystem::path& path);

#endif  // TESTING_TEMP_TREE_H_
