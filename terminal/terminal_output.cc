#include "terminal/terminal_output.h"

#include <iconv.h>
#include <langinfo.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <cstdlib>
#include <cstring>

namespace {

// U+FFFD, shown for a byte that is no Shift-JIS.
constexpr char kReplacement[] = "\xEF\xBF\xBD";

struct Utf8Writer {
  FILE* terminal;
  iconv_t to_utf8;
  char pending[4];       // head of a character whose rest has not come yet
  size_t pending_count;  // bytes in pending
};

// Converts `length` bytes at `in`, keeping an incomplete last character
// in pending.
void convert(Utf8Writer* writer, char* in, size_t length) {
  char out[1024];
  while (length > 0) {
    char* end = out;
    size_t room = sizeof out;
    size_t result = iconv(writer->to_utf8, &in, &length, &end, &room);
    fwrite(out, 1, end - out, writer->terminal);
    if (result != static_cast<size_t>(-1) || errno == E2BIG) continue;
    if (errno == EINVAL && length < sizeof writer->pending) {
      memmove(writer->pending, in, length);
      writer->pending_count = length;
      return;
    }
    fputs(kReplacement, writer->terminal);
    ++in;
    --length;
  }
}

ssize_t write_utf8(void* cookie, const char* data, size_t size) {
  Utf8Writer* writer = static_cast<Utf8Writer*>(cookie);
  size_t taken = 0;
  // Complete a character that the last write split.
  while (writer->pending_count > 0 && taken < size) {
    writer->pending[writer->pending_count++] = data[taken++];
    size_t count = writer->pending_count;
    writer->pending_count = 0;
    char held[sizeof writer->pending];
    memcpy(held, writer->pending, count);
    convert(writer, held, count);
  }
  convert(writer, const_cast<char*>(data) + taken, size - taken);
  fflush(writer->terminal);
  return static_cast<ssize_t>(size);
}

int close_utf8_writer(void* cookie) {
  Utf8Writer* writer = static_cast<Utf8Writer*>(cookie);
  if (writer->pending_count > 0) fputs(kReplacement, writer->terminal);
  fflush(writer->terminal);
  iconv_close(writer->to_utf8);
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

// False when `text` breaks the shape of UTF-8: a byte that cannot begin a
// character, or a character cut short. Such text never converts, and telling
// so here spares loading the converter for a keyword already in Shift-JIS.
bool may_be_utf8(const std::string& text) {
  for (size_t i = 0; i < text.size();) {
    const unsigned char lead = static_cast<unsigned char>(text[i++]);
    if (lead < 0x80) continue;
    if (lead < 0xC0 || lead > 0xFD) return false;
    size_t follow = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : lead < 0xF8 ? 3 : lead < 0xFC ? 4 : 5;
    for (; follow > 0; --follow, ++i) {
      if (i >= text.size() || (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) return false;
    }
  }
  return true;
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
  iconv_t to_utf8 = iconv_open("UTF-8", "CP932");
  if (to_utf8 == reinterpret_cast<iconv_t>(-1)) return nullptr;
  Utf8Writer* writer = new Utf8Writer{terminal, to_utf8, {}, 0};
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
  if (ascii || halfwidth_sjis || text[0] == '-' || text[0] == '/' || !may_be_utf8(text)) return text;
  iconv_t to_sjis = iconv_open("CP932", "UTF-8");
  if (to_sjis == reinterpret_cast<iconv_t>(-1)) return text;
  // Shift-JIS never takes more bytes than UTF-8 for the same characters.
  std::string converted(text.size(), '\0');
  char* in = const_cast<char*>(text.data());
  size_t in_left = text.size();
  char* out = converted.data();
  size_t out_left = converted.size();
  bool whole = iconv(to_sjis, &in, &in_left, &out, &out_left) != static_cast<size_t>(-1);
  iconv_close(to_sjis);
  if (!whole) return text;
  converted.resize(converted.size() - out_left);
  return converted;
}
