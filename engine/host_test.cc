#include "engine/host.h"

#include <gtest/gtest.h>

#include <fstream>

#include "engine/engine_state.h"
#include "testing/engine_runner.h"
#include "testing/temp_tree.h"

namespace {

std::string perror_text(int host_errno, const char* text) {
  engine.host_errno = host_errno;
  return capture_engine([&] { host_perror(text); }).err;
}

TEST(HostPerror, PrintsTheWordOfHostErrno) {
  EXPECT_EQ(perror_text(0, "book/start"), "book/start: No error\n");
  EXPECT_EQ(perror_text(12, nullptr), "Not enough space\n");
  EXPECT_EQ(perror_text(22, ""), "Invalid argument\n");
  EXPECT_EQ(perror_text(42, "x"), "x: Illegal byte sequence\n");
  EXPECT_EQ(perror_text(43, nullptr), "Unknown error\n");
  EXPECT_EQ(perror_text(1000, nullptr), "Unknown error\n");
  EXPECT_EQ(perror_text(-1, nullptr), "Unknown error\n");
  engine.host_errno = 0;
}

TEST(HostStat, FillsTheRecordOrFailsWith22) {
  std::filesystem::path dir = fresh_directory("host_stat");
  std::ofstream(dir / "file") << "12345";
  HostStat record;
  ASSERT_EQ(host_stat((dir / "file").c_str(), &record), 0);
  EXPECT_EQ(record.st_mode, 0x8000 + 0x80);
  EXPECT_EQ(record.st_nlink, 1);
  EXPECT_EQ(record.st_size, 5u);
  EXPECT_GT(record.st_mtime, 0);
  std::filesystem::permissions(dir / "file", std::filesystem::perms::owner_write,
                               std::filesystem::perm_options::remove);
  ASSERT_EQ(host_stat((dir / "file").c_str(), &record), 0);
  EXPECT_EQ(record.st_mode, 0x8000);
  ASSERT_EQ(host_stat(dir.c_str(), &record), 0);
  EXPECT_EQ(record.st_mode, 0x4000 + 0x80);
  EXPECT_EQ(record.st_nlink, 2);

  for (const char* bad : {"", "/no/such/file"}) {
    engine.host_errno = 0;
    EXPECT_EQ(host_stat(bad, &record), -1);
    EXPECT_EQ(engine.host_errno, 22) << bad;
  }
  engine.host_errno = 0;
  EXPECT_EQ(host_stat(nullptr, &record), -1);
  EXPECT_EQ(engine.host_errno, 22);
  engine.host_errno = 0;
}

TEST(HostFiletime, CountsFrom1601InTenthsOfMicroseconds) {
  const uint64_t epoch = 116444736000000000ULL;
  const uint32_t at_epoch[] = {static_cast<uint32_t>(epoch), static_cast<uint32_t>(epoch >> 32)};
  EXPECT_EQ(host_filetime_to_unix(at_epoch), 0);
  const uint64_t later = epoch + 10000000ULL * 86400;
  const uint32_t day_later[] = {static_cast<uint32_t>(later), static_cast<uint32_t>(later >> 32)};
  EXPECT_EQ(host_filetime_to_unix(day_later), 86400);
}

}  // namespace
