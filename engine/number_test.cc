#include "engine/number.h"

#include <gtest/gtest.h>

#include <string>

#include "engine/engine_state.h"

namespace {

// The value and what parse_number left unread.
std::pair<int32_t, std::string> parse(const char* text) {
  int32_t value = parse_number(text);
  return {value, engine.number_end};
}

std::string normalized(const std::string& path, uint32_t flags = 0) {
  char buffer[kPathSize] = {};
  path.copy(buffer, kPathSize - 1);
  engine.flags = flags;
  normalize_drive(buffer);
  engine.flags = 0;
  return buffer;
}

// Decimal, octal, hexadecimal and a sign, up to the first foreign character.
TEST(ParseNumber, ReadsUpToTheFirstForeignCharacter) {
  const struct {
    const char* text;
    int32_t value;
    const char* rest;  // what is left unread
  } cases[] = {
      {"12", 12, ""},      {"012", 10, ""},     {"0x12", 18, ""},      {"0XaF", 175, ""},
      {" \t-0x10", -16, ""}, {"-7", -7, ""},      {"", 0, ""},           {"abc", 0, "abc"},
      {"+5", 0, "+5"},     {"12,name", 12, ",name"}, {"08", 0, "8"},    {"0x", 0, ""},
      {"0xfg", 15, "g"},
      {"4294967297", 1, ""},  // 32 bits, no overflow check: 2^32 + 1 wraps to 1
  };
  for (const auto& c : cases) EXPECT_EQ(parse(c.text), std::make_pair(c.value, std::string(c.rest))) << c.text;
}

TEST(NormalizeDrive, TurnsBackslashesAndEndsInSlash) {
  EXPECT_EQ(normalized("\\SD\\epwing\\plus"), "/SD/epwing/plus/");
  EXPECT_EQ(normalized(""), "/");
  EXPECT_EQ(normalized("/books/"), "/books/");
  EXPECT_EQ(normalized("a\\b", DF_NO_BACKSLASH), "a\\b/");
  // 511 bytes leave no room for the '/': the drive is dropped, not overrun.
  EXPECT_EQ(normalized(std::string(kPathSize - 1, 'a')), "");
  EXPECT_EQ(normalized(std::string(kPathSize - 2, 'a')), std::string(kPathSize - 2, 'a') + "/");
}

}  // namespace
