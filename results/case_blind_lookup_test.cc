// The engine finds a book's files, and the application its own, whatever
// the case of the names stored. The two cannot share one function (the
// engine stands alone, and the application's paths are no engine's
// business), so this test holds them to one rule: the exact name first,
// then of the names equal but for case the first in byte order, whatever
// order the folder lists them in. The engine alone also takes a name with
// a version (";1") or a final dot, as discs name their files.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "engine/find_file.h"
#include "platform/device_path.h"
#include "platform/utf8_text.h"
#include "testing/temp_tree.h"

namespace {

namespace fs = std::filesystem;

// The path the engine finds for `wanted`, or "" for none.
std::string EngineFinds(const fs::path& wanted) {
  char found[kPathSize];
  return find_file(wanted.c_str(), found) ? found : "";
}

std::string ApplicationFinds(const fs::path& wanted) {
  return HostPath(FromUtf8(wanted.string()));
}

TEST(CaseBlindLookup, TheEngineAndTheApplicationChooseTheSameEntry) {
  const fs::path folder = fresh_directory("case_blind");
  // Made in an order that is not byte order.
  for (const char* name : {"aBC", "Abc", "ABC", "abd"}) {
    fs::create_directories(folder / "Data" / name);
    std::ofstream(folder / "Data" / name / "HONMON") << name;
  }
  // "abc": three names differ in case only, and "ABC" comes first in bytes.
  const std::string first = (folder / "Data/ABC/HONMON").string();
  EXPECT_EQ(EngineFinds(folder / "data/abc/honmon"), first);
  EXPECT_EQ(ApplicationFinds(folder / "data/abc/honmon"), first);
  // An exact name is taken as it stands.
  const std::string exact = (folder / "Data/Abc/HONMON").string();
  EXPECT_EQ(EngineFinds(folder / "Data/Abc/honmon"), exact);
  EXPECT_EQ(ApplicationFinds(folder / "Data/Abc/honmon"), exact);
}

}  // namespace
