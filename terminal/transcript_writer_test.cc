#include "terminal/transcript_writer.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace {

TEST(TranscriptTest, LinesAndEscapes) {
  char* buffer = nullptr;
  size_t size = 0;
  FILE* stream = open_memstream(&buffer, &size);
  TranscriptWriter writer(stream);
  writer.Started();
  writer.Braille(u"辞書選択:プラス辞典");
  writer.Speech(u"一行目\r\n二行目\r三\t\\SD\x01");
  writer.Braille(u"");
  writer.Beep(32);
  writer.Ended();
  std::fclose(stream);
  EXPECT_EQ(std::string(buffer, size),
            "STARTED\nBRL 辞書選択:プラス辞典\nTTS 一行目\\n二行目\\n三\\t\\\\SD\\x01\nBRL \n"
            "BEEP 32\nENDED\n");
  std::free(buffer);
}

}  // namespace
