#include "terminal/terminal_output.h"

#include <langinfo.h>
#include <unistd.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <optional>

#include "platform/code_page.h"
#include "platform/utf8_text.h"

namespace {

// Shown for a byte that is no Shift-JIS.
constexpr char16_t kReplacement = u'\uFFFD';

struct Utf8Writer {
  FILE* terminal;
  std::string pending;  // a lead byte whose trail byte has not come yet
};

ssize_t write_utf8(void* cookie, const char* data, size_t size) {
  Utf8Writer* writer = static_cast<Utf8Writer*>(cookie);
  writer->pending.append(data, size);
  const size_t whole = CutAtCharBoundary(writer->pending, writer->pending.size());
  const std::u16string units =
      DecodeMultiByte(std::string_view(writer->pending).substr(0, whole), kReplacement);
  const std::string text = ToUtf8(std::u16string_view(units));
  writer->pending.erase(0, whole);
  fwrite(text.data(), 1, text.size(), writer->terminal);
  fflush(writer->terminal);
  return static_cast<ssize_t>(size);
}

int close_utf8_writer(void* cookie) {
  Utf8Writer* writer = static_cast<Utf8Writer*>(cookie);
  if (!writer->pending.empty()) {
    fputs(ToUtf8(std::u16string_view(&kReplacement, 1)).c_str(), writer->terminal);
  }
  fflush(writer->terminal);
  delete writer;
  return 0;
}

struct Utf8Reader {
  FILE* terminal;
  std::string line;  // the last line read, converted
  size_t served;     // bytes of line already given out
};

ssize_t read_utf8(void* cookie, char* data, size_t size) {
  Utf8Reader* reader = static_cast<Utf8Reader*>(cookie);
  if (reader->served == reader->line.size()) {
    char* raw = nullptr;
    size_t capacity = 0;
    ssize_t got = getline(&raw, &capacity, reader->terminal);
    if (got > 0) reader->line = shift_jis_keyword(std::string(raw, got));
    free(raw);
    if (got <= 0) return 0;
    reader->served = 0;
  }
  size_t count = std::min(size, reader->line.size() - reader->served);
  memcpy(data, reader->line.data() + reader->served, count);
  reader->served += count;
  return static_cast<ssize_t>(count);
}

int close_utf8_reader(void* cookie) {
  delete static_cast<Utf8Reader*>(cookie);
  return 0;
}

}  // namespace

bool user_locale_is_utf8() {
  // The encoding is LC_CTYPE's alone; loading the other categories of the
  // user's locale would only slow down every start.
  bool utf8 = setlocale(LC_CTYPE, "") && strcmp(nl_langinfo(CODESET), "UTF-8") == 0;
  setlocale(LC_CTYPE, "C");
  return utf8;
}

FILE* open_utf8_writer(FILE* terminal) {
  if (!HasMultiByteConverters()) return nullptr;
  Utf8Writer* writer = new Utf8Writer{terminal, std::string()};
  FILE* stream = fopencookie(writer, "w", {nullptr, write_utf8, nullptr, close_utf8_writer});
  if (!stream) {
    close_utf8_writer(writer);
    return nullptr;
  }
  // As the underlying stream would be: out at each line end on a terminal.
  setvbuf(stream, nullptr, isatty(fileno(terminal)) ? _IOLBF : _IOFBF, BUFSIZ);
  return stream;
}

FILE* open_utf8_reader(FILE* terminal) {
  Utf8Reader* reader = new Utf8Reader{terminal, std::string(), 0};
  FILE* stream = fopencookie(reader, "r", {read_utf8, nullptr, nullptr, close_utf8_reader});
  if (!stream) delete reader;
  return stream;
}

std::string shift_jis_keyword(const std::string& text) {
  // ASCII and half-width katakana (0xA1 to 0xDF) alone are Shift-JIS as they
  // stand, even where the bytes also read as UTF-8 ("\xC3\xB7" is both
  // ﾃｷ and ÷); a keyword typed in Japanese UTF-8 always has other bytes.
  bool ascii = true;
  bool halfwidth_sjis = true;
  for (unsigned char c : text) {
    ascii = ascii && c < 0x80;
    halfwidth_sjis = halfwidth_sjis && (c < 0x80 || (c >= 0xA1 && c <= 0xDF));
  }
  if (ascii || halfwidth_sjis || text[0] == '-' || text[0] == '/' || !IsUtf8(text)) return text;
  const std::optional<std::string> converted = EncodeMultiByteExactly(FromUtf8(text).Units());
  return converted ? *converted : text;
}
