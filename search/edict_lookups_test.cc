// 500 lookups in the EDICT book (the Debian package `edict`), each output
// compared with a checksum recorded from an earlier engine: the guard that
// work on the engine's speed changes none of its bytes. Head words,
// readings, English words and backward searches, whole and cut short (a cut
// key ends in the list of following head lines), on entries spread evenly
// over the dictionary.
//
// The checksums belong to one EDICT file and to the way mkbook turns it into
// a book: with another file the test is skipped. After an intended change of
// the output, EDICT_LOOKUPS_RECORD=FILE writes the new table into FILE, to
// replace edict_lookup_sums.h.
#include <gtest/gtest.h>

#include <cinttypes>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "search/edict_lookup_sums.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"
#include "tools/book_builder.h"
#include "tools/edict_import.h"
#include "tools/tree_output.h"

namespace {

namespace fs = std::filesystem;

constexpr char kEdictPath[] = "/usr/share/edict/edict";
constexpr size_t kKinds = 4;              // head, reading, English, backward
constexpr size_t kPerKind = std::size(kEdictLookupSums) / kKinds;
constexpr const char* kKindNames[kKinds] = {"head word", "reading", "English word", "backward"};

uint64_t fnv1a(const std::string& bytes) {
  uint64_t hash = 0xCBF29CE484222325u;
  for (unsigned char byte : bytes) hash = (hash ^ byte) * 0x100000001B3u;
  return hash;
}

// The first `characters` characters of a Shift-JIS text.
std::string sjis_prefix(const std::string& text, int characters) {
  size_t at = 0;
  for (int i = 0; i < characters && at < text.size(); ++i) {
    const unsigned char byte = static_cast<unsigned char>(text[at]);
    at += (byte >= 0x81 && byte <= 0x9F) || byte >= 0xE0 ? 2 : 1;
  }
  return text.substr(0, std::min(at, text.size()));
}

// The last two characters of a kana text (two bytes each).
std::string kana_suffix(const std::string& kana) {
  return kana.size() > 4 ? kana.substr(kana.size() - 4) : kana;
}

struct Lookup {
  std::vector<std::string> args;  // the options and the word
  int line;                       // the entry's line in the EDICT file
};

// kPerKind lookups of each kind on entries at an even stride; an entry
// without a key of the kind gives way to the next one that has one. Every
// fourth key of a kind is cut short; backward searches take the last two
// characters of a reading, and every fourth the whole reading.
std::vector<Lookup> choose_lookups(const BookContent& book) {
  std::vector<Lookup> lookups;
  const size_t stride = book.entries.size() / kPerKind;
  for (size_t kind = 0; kind < kKinds; ++kind) {
    for (size_t i = 0; i < kPerKind; ++i) {
      const bool cut = i % 4 == 3;
      for (size_t at = i * stride; at < book.entries.size(); ++at) {
        const EntryContent& entry = book.entries[at];
        std::vector<std::string> args;
        if (kind == 0) {
          args = {cut ? sjis_prefix(entry.head, 1) : entry.head};
        } else if (kind == 1 && !entry.kana.empty()) {
          args = {cut ? sjis_prefix(entry.kana[0], 2) : entry.kana[0]};
        } else if (kind == 2 && !entry.alpha.empty()) {
          args = {cut ? entry.alpha[0].substr(0, 3) : entry.alpha[0]};
        } else if (kind == 3 && !entry.kana.empty()) {
          args = {"-R", cut ? entry.kana[0] : kana_suffix(entry.kana[0])};
        }
        if (args.empty()) continue;
        lookups.push_back({args, entry.line});
        break;
      }
    }
  }
  return lookups;
}

TEST(EdictLookups, OutputsMatchTheRecordedChecksums) {
  if (!std::filesystem::exists(kEdictPath)) {
    GTEST_SKIP() << kEdictPath << " is missing: install the edict package to run this test";
  }
  const std::string text = ReadWholeFile(kEdictPath);
  if (text.size() != kEdictSize || fnv1a(text) != kEdictSum) {
    GTEST_SKIP() << kEdictPath << " is not the EDICT file the checksums were recorded from";
  }

  const BookContent content = read_edict(kEdictPath);
  BookTree tree;
  build_book(content, tree.add_book(content.title, content.directory));
  // The book takes some 160 MB: it goes when the test ends, however it ends.
  struct Folder {
    fs::path path;
    ~Folder() { fs::remove_all(path); }
  } folder{fresh_directory("edict_lookups")};
  const fs::path book = folder.path / "book";
  write_book_tree(tree, book);

  const std::vector<Lookup> lookups = choose_lookups(content);
  ASSERT_EQ(lookups.size(), std::size(kEdictLookupSums));
  std::vector<uint64_t> sums;
  for (const Lookup& lookup : lookups) {
    std::vector<std::string> args{"-D" + book.string()};
    args.insert(args.end(), lookup.args.begin(), lookup.args.end());
    const EngineRun run = run_engine(args);
    sums.push_back(fnv1a(run.out) ^ fnv1a(run.err) * 31);
  }

  if (const char* record = std::getenv("EDICT_LOOKUPS_RECORD")) {
    FILE* table = fopen(record, "w");
    ASSERT_NE(table, nullptr) << record;
    for (size_t i = 0; i < sums.size(); ++i) {
      fprintf(table, "0x%016" PRIX64 "u,%s", sums[i], i % 3 == 2 ? "\n" : " ");
    }
    fputc('\n', table);
    fclose(table);
  }
  int differ = 0;
  for (size_t i = 0; i < sums.size(); ++i) {
    if (sums[i] == kEdictLookupSums[i]) continue;
    if (++differ <= 10) {
      ADD_FAILURE() << "lookup " << i << " (" << kKindNames[i / kPerKind] << ", entry of EDICT line "
                    << lookups[i].line << ") gives other output than before";
    }
  }
  EXPECT_EQ(differ, 0) << "lookups whose output changed";
}

}  // namespace
