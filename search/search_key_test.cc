#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "engine/catalog.h"
#include "engine/engine_state.h"
#include "search/search_key.h"
#include "testing/engine_runner.h"

namespace {

// "244F 244A" for a JIS string: its bytes two by two in hexadecimal.
std::string hex_codes(const char* text) {
  std::string hex;
  for (const unsigned char* p = reinterpret_cast<const unsigned char*>(text); *p != 0; p += 2) {
    char code[8];
    snprintf(code, sizeof code, p[1] != 0 ? "%02X%02X" : "%02X", p[0], p[1]);
    if (!hex.empty()) hex += ' ';
    hex += code;
    if (p[1] == 0) break;
  }
  return hex;
}

struct Prepared {
  std::string search;      // search_string, in hex (Japanese) or as text (English)
  std::string normalized;  // normalized_key, the same way
  int32_t index_id;        // the index the key chose
  std::string out;         // what went to standard output
};

// The steps of cdsearch before and after the index lookup, as if the chosen
// index existed.
Prepared prepare(const char* typed, int32_t index_id, uint32_t flags = 0, int32_t key_length = 0) {
  engine.flags = flags;
  engine.index_id = index_id;
  engine.key_length = key_length;
  Prepared prepared;
  char* key = nullptr;
  prepared.out = capture_engine([&] {
                   bool automatic;
                   key = start_search_key(typed, &automatic);
                   if (key != nullptr && key[0] != '\0') finish_search_keys(typed, key, automatic);
                 }).out;
  prepared.index_id = engine.index_id;
  if (key == nullptr) {
    prepared.search = prepared.normalized = "(bad)";
  } else if (key[0] == '\0') {
    prepared.search = prepared.normalized = "";
  } else if (flags & DF_ENGLISH) {
    prepared.search = engine.search_string;
    prepared.normalized = engine.normalized_key;
  } else {
    prepared.search = hex_codes(engine.search_string);
    prepared.normalized = hex_codes(engine.normalized_key);
  }
  engine.flags = 0;
  engine.index_id = -1;
  engine.key_length = 0;
  return prepared;
}

struct KeyCase {
  const char* typed;
  int32_t index_id;  // as the options left it
  uint32_t flags;
  const char* search;
  int32_t chosen;  // index_id after the choice by class
  const char* normalized;
};

// The key of each class, direction and mode, and the index it chooses.
TEST(SearchKey, KeysByClassDirectionAndMode) {
  const KeyCase cases[] = {
      // Japanese forward keys, by class
      {"はなし", -1, 0, "244F 244A 2437", 0x90, "244F 244A 2437"},
      {"バナナ", -1, 0, "2550 254A 254A", 0x90, "244F 244A 244A"},
      {"カード", -1, 0, "252B 213C 2549", 0x90, "242B 2422 2448"},
      {"きゃっと", -1, 0, "242D 2463 2443 2448", 0x90, "242D 2464 2444 2448"},
      {"パーティー", -1, 0, "2551 213C 2546 2523 213C", 0x90, "244F 2422 2446 2424 2424"},
      {"ヴァイオリン", -1, 0, "2574 2521 2524 252A 256A 2573", 0x90,
       "2426 2422 2424 242A 246A 2473"},
      {"カーー", -1, 0, "252B 213C 213C", 0x90, "242B 2422 2428"},
      {"abc", -1, 0, "2341 2342 2343", 0x92, "2341 2342 2343"},
      {"a-b", -1, 0, "2341 215D 2342", 0x92, "2341 215D 2342"},
      {"日本", -1, 0, "467C 4B5C", 0x91, "467C 4B5C"},
      {"[A121]あ", -1, 0, "A121 2422", 0x91, "A121 2422"},
      {"ａb", -1, 0, "2361 2342", 0x92, "2361 2342"},  // typed full width stays small
      // A ー with nothing before it has no vowel to lengthen and stays itself.
      {"ーか", -1, 0, "213C 242B", 0x90, "213C 242B"},
      // An explicit index is never folded and selects no family.
      {"バナナ", 0x90, 0, "2550 254A 254A", 0x90, "2550 254A 254A"},
      // backward keys are reversed by character
      {"カード", -2, 0, "2549 213C 252B", 0x70, "2448 2422 242B"},
      {"コーヒー", -2, 0, "213C 2552 213C 2533", 0x70, "2424 2452 242A 2433"},
      {"abc", -2, 0, "2343 2342 2341", 0x72, "2343 2342 2341"},
      {"日本", -3, 0, "4B5C 467C", 0x71, "4B5C 467C"},
      // symbols, English and encyclopedia mode
      {"a-b", -1, DF_NO_KEY_SYMBOLS, "2341 2342", 0x92, "2341 2342"},
      {"a b", -1, DF_NO_KEY_SYMBOLS, "2341 2121 2342", 0x92, "2341 2121 2342"},
      {"-", -1, DF_NO_KEY_SYMBOLS, "", 0x91, ""},
      {"[]", -1, 0, "", 0x91, ""},
      {"apple", -1, DF_ENGLISH, "APPLE ", 0x91, "APPLE "},
      {"apple", 0x93, DF_ENGLISH, "APPLE ", 0x93, "APPLE "},
      {"apple", -2, DF_ENGLISH, "ELPPA", 0x71, "ELPPA"},
      {"apple", 0x80, DF_ENGLISH, "APPLE", 0x80, "APPLE"},
      {"カー", -1, DF_ENCYCLOPEDIA, "242B", 0x90, "242B"},
      {"カー", -2, DF_ENCYCLOPEDIA, "242B", 0x70, "242B"},
      // In encyclopedia mode the search_string turns hiragana, voicing kept.
      {"バナナ", -1, DF_ENCYCLOPEDIA, "2450 244A 244A", 0x90, "244F 244A 244A"},
  };
  for (const KeyCase& c : cases) {
    SCOPED_TRACE(std::string("case ") + std::to_string(&c - cases));
    const Prepared got = prepare(c.typed, c.index_id, c.flags);
    EXPECT_EQ(got.search, c.search);
    EXPECT_EQ(got.index_id, c.chosen);
    EXPECT_EQ(got.normalized, c.normalized);
    EXPECT_EQ(got.out, "");
  }
}

// The reader hands a word whose first character is '-', '/' or a digit to
// the engine in that character's full-width form, so that it is a search:
// both forms must make the same keys and choose the same index, on each
// index family.
TEST(SearchKey, FullWidthFirstCharactersMakeTheKeysOfTheirAscii) {
  const char* const pairs[][2] = {
      {"-a", "\x81\x7C" "a"}, {"/O/x", "\x81\x5E" "O/x"}, {"--", "\x81\x7C" "-"},
      {"0x", "\x82\x4F" "x"}, {"9\x82\xA0", "\x82\x58\x82\xA0"}, {"-\x82\xA0", "\x81\x7C\x82\xA0"},
  };
  for (const auto& pair : pairs) {
    for (int32_t index_id : {-1, -2, 0x91}) {
      const Prepared ascii = prepare(pair[0], index_id);
      const Prepared full_width = prepare(pair[1], index_id);
      EXPECT_EQ(ascii.search, full_width.search) << pair[0];
      EXPECT_EQ(ascii.normalized, full_width.normalized) << pair[0];
      EXPECT_EQ(ascii.index_id, full_width.index_id) << pair[0];
    }
  }
}

TEST(SearchKey, BadKeysReportTheirNumber) {
  const char* message = "検索文字列に不当な文字があります\n";
  EXPECT_EQ(prepare("[", -1).out, std::string(message) + "error 21.\n");
  EXPECT_EQ(prepare("[zz]", -1).out, std::string(message) + "error 21.\n");
  EXPECT_EQ(prepare("[41", -2).out, std::string(message) + "error 19.\n");
  EXPECT_EQ(prepare("あ\x82", -1).out, std::string(message) + "error 20.\n");
  EXPECT_EQ(prepare("あ\x82", -2).out, std::string(message) + "error 18.\n");
  EXPECT_EQ(prepare("[", -1).search, "(bad)");
}

TEST(SearchKey, KeyLengthAndLongKeys) {
  Prepared cut = prepare("カード", -1, 0, 2);
  EXPECT_EQ(cut.search, "252B 213C");
  EXPECT_EQ(cut.normalized, "242B 2422");
  EXPECT_EQ(prepare("カード", -2, 0, 2).search, "2549 213C");  // the last typed stay
  EXPECT_EQ(prepare("カード", -1, 0, 0x7FFFFFFF).search, "252B 213C 2549");
  EXPECT_EQ(prepare("apple", 0x91, DF_ENGLISH, 2).search, "APPL");

  // 300 characters are cut to the 255 that the key buffer holds.
  std::string long_key(300, 'a');
  EXPECT_EQ(prepare(long_key.c_str(), -1).search.size(), 255u * 5 - 1);
  EXPECT_EQ(prepare(long_key.c_str(), -2).search.size(), 255u * 5 - 1);
  std::string long_english(600, 'a');
  EXPECT_EQ(prepare(long_english.c_str(), -1, DF_ENGLISH).search.size(), 511u);  // and the blank
  EXPECT_EQ(prepare(long_english.c_str(), -2, DF_ENGLISH).search.size(), 511u);
}

TEST(SearchKey, HelpersOnJisStrings) {
  // The inverse of the catalogs' jis_to_sjis (whose values are pinned with
  // the catalogs) over the whole 94 x 94 set:
  // the book builder turns its Shift-JIS into a book's JIS through it.
  int wrong = 0;
  for (int high = 0x21; high <= 0x7E; ++high) {
    for (int low = 0x21; low <= 0x7E; ++low) {
      const int code = high << 8 | low;
      wrong += sjis_to_jis(jis_to_sjis(code)) != code;
    }
  }
  EXPECT_EQ(wrong, 0);

  EXPECT_EQ(key_is_kana(""), 1);
  EXPECT_EQ(key_in_ascii_rows(""), 1);
  EXPECT_EQ(key_is_kana("\x24\x22\x21\x3C\x25\x22"), 1);
  EXPECT_EQ(key_is_kana("\x24\x22\x21\x21"), 0);
  EXPECT_EQ(key_in_ascii_rows("\x21\x21\x23\x41"), 1);
  EXPECT_EQ(key_in_ascii_rows("\x23\x41\xA1\x21"), 0);
  EXPECT_EQ(key_in_ascii_rows("\x23\x41\x24"), 1);  // a half pair ends the walk
}

}  // namespace
