#include "platform/read_file.h"

#include <gtest/gtest.h>

namespace {

// A stream holding `size` bytes that count up, at its start.
FILE* StreamOf(size_t size) {
  FILE* file = std::tmpfile();
  for (size_t i = 0; i < size; ++i) std::fputc(static_cast<int>(i % 251), file);
  std::rewind(file);
  return file;
}

TEST(ReadToEnd, ReadsEveryByteFromWhereTheStreamStands) {
  for (size_t size : {size_t{0}, size_t{1}, size_t{16384}, size_t{40000}}) {
    FILE* file = StreamOf(size);
    const std::string bytes = ReadToEnd(file);
    ASSERT_EQ(bytes.size(), size);
    for (size_t i = 0; i < size; i += 997) ASSERT_EQ(static_cast<unsigned char>(bytes[i]), i % 251);
    std::fclose(file);
  }
  FILE* file = StreamOf(10);
  std::fseek(file, 4, SEEK_SET);
  EXPECT_EQ(ReadToEnd(file).size(), 6u);
  std::fclose(file);

  // A limit: it stops soon after it.
  file = StreamOf(100000);
  const std::string head = ReadToEnd(file, 20000);
  EXPECT_GT(head.size(), 20000u) << "longer than the limit: too large";
  EXPECT_LT(head.size(), 100000u) << "without reading all of it";
  std::fclose(file);
  file = StreamOf(20000);
  EXPECT_EQ(ReadToEnd(file, 20000).size(), 20000u) << "the limit itself is no fault";
  std::fclose(file);
}

// The same bytes as ReadToEnd, at every size about the block: a read that
// fills the block exactly must not pass for the end.
TEST(ReadRegularFile, ReadsEveryByteOfTheFile) {
  for (size_t size : {size_t{0}, size_t{1}, size_t{16383}, size_t{16384}, size_t{32768}, size_t{40000}}) {
    FILE* file = StreamOf(size);
    const std::string bytes = ReadRegularFile(file);
    std::rewind(file);
    EXPECT_EQ(bytes, ReadToEnd(file)) << size;
    EXPECT_EQ(bytes.size(), size);
    std::fclose(file);
  }
}

}  // namespace
