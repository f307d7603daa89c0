#include "terminal/transcript_writer.h"

#include <cstdio>

#include "platform/utf8_text.h"
#include "reading/reading.h"

std::string TranscriptText(const CString& text) {
  std::u16string escaped;
  const std::u16string& units = text.Units();
  for (size_t i = 0; i < units.size(); ++i) {
    char16_t ch = units[i];
    if (ch == u'\r' || ch == u'\n') {
      escaped += u"\\n";
      if (ch == u'\r' && i + 1 < units.size() && units[i + 1] == u'\n') ++i;
    } else if (ch == u'\t') {
      escaped += u"\\t";
    } else if (ch == u'\\') {
      escaped += u"\\\\";
    } else if (ch < 0x20 || (ch >= 0x7F && ch <= 0x9F)) {  // C0, DEL, C1
      static const char16_t kHex[] = u"0123456789ABCDEF";
      escaped += u"\\x";
      escaped += kHex[ch >> 4];
      escaped += kHex[ch & 0xF];
    } else {
      escaped += ch;
    }
  }
  return ToUtf8(CString(std::move(escaped)));
}

void TranscriptWriter::WriteLine(const std::string& line) {
  std::fputs(line.c_str(), stream_);
  std::fputc('\n', stream_);
  std::fflush(stream_);
}

void TranscriptWriter::Braille(const CString& text) {
  WriteLine("BRL " + TranscriptText(text));
  if (extras_.dots) WriteLine("DOTS " + ToUtf8(CString(BrailleCells(text.Units()))));
}

void TranscriptWriter::Speech(const CString& text) {
  WriteLine("TTS " + TranscriptText(text));
  if (extras_.readings) WriteLine("SAY " + TranscriptText(CString(SpeechReading(text.Units()))));
}

void TranscriptWriter::Beep(int code) { WriteLine("BEEP " + std::to_string(code)); }

void TranscriptWriter::Started() { WriteLine("STARTED"); }

void TranscriptWriter::Ended() { WriteLine("ENDED"); }
