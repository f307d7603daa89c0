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

TEST(ParseNumber, ReadsDecimalOctalHexAndSign) {
  EXPECT_EQ(parse("12"), std::make_pair(12, std::string()));
  EXPECT_EQ(parse("012"), std::make_pair(10, std::string()));
  EXPECT_EQ(parse("0x12"), std::make_pair(18, std::string()));
  EXPECT_EQ(parse("0XaF"), std::make_pair(175, std::string()));
  EXPECT_EQ(parse(" \t-0x10"), std::make_pair(-16, std::string()));
  EXPECT_EQ(parse("-7"), std::make_pair(-7, std::string()));
}

TEST(ParseNumber, StopsAtTheFirstForeignCharacter) {
  EXPECT_EQ(parse(""), std::make_pair(0, std::string()));
  EXPECT_EQ(parse("abc"), std::make_pair(0, std::string("abc")));
  EXPECT_EQ(parse("+5"), std::make_pair(0, std::string("+5")));
  EXPECT_EQ(parse("12,name"), std::make_pair(12, std::string(",name")));
  EXPECT_EQ(parse("08"), std::make_pair(0, std::string("8")));
  EXPECT_EQ(parse("0x"), std::make_pair(0, std::string()));
  EXPECT_EQ(parse("0xfg"), std::make_pair(15, std::string("g")));
  // 32 bits, no overflow check: 2^32 + 1 wraps to 1.
  EXPECT_EQ(parse("4294967297").first, 1);
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
