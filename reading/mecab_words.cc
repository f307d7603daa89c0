#include "reading/mecab_words.h"

#include <errno.h>  // program_invocation_short_name
#include <mecab.h>

#include <algorithm>
#include <cstdio>
#include <mutex>
#include <string>

#include "platform/utf8_text.h"

namespace {

// The process's one tagger; null when MeCab could not be loaded.
struct Tagger {
  mecab_t* mecab = nullptr;  // owned for the life of the process
  std::mutex mutex;          // a tagger parses one text at a time
};

bool IsUtf8Charset(const char* charset) {
  std::string name = charset == nullptr ? "" : charset;
  for (char& ch : name) ch = static_cast<char>(ch >= 'A' && ch <= 'Z' ? ch + 32 : ch);
  return name == "utf8" || name == "utf-8";
}

Tagger& LoadedTagger() {
  static Tagger tagger;
  static std::once_flag loaded;
  std::call_once(loaded, [] {
    mecab_t* mecab = mecab_new2("");
    std::string problem;
    if (mecab == nullptr) {
      const char* why = mecab_strerror(nullptr);
      problem = std::string("MeCab or its dictionary cannot be loaded (") +
                (why != nullptr && why[0] != '\0' ? why : "no reason given") +
                "; install mecab-ipadic-utf8)";
    } else if (!IsUtf8Charset(mecab_dictionary_info(mecab)->charset)) {
      problem = std::string("MeCab's dictionary is in ") +
                mecab_dictionary_info(mecab)->charset + ", not UTF-8 (install mecab-ipadic-utf8)";
      mecab_destroy(mecab);
      mecab = nullptr;
    }
    // Said in the name of the program that reads (epwingdict, tenji), as
    // its other messages are.
    if (mecab == nullptr)
      std::fprintf(stderr, "%s: %s: kana pass through, kanji stay unread\n",
                   program_invocation_short_name, problem.c_str());
    tagger.mecab = mecab;
  });
  return tagger;
}

// The comma-separated fields of a feature string (IPADIC's carry no quotes).
std::vector<std::string_view> Fields(std::string_view feature) {
  std::vector<std::string_view> fields;
  size_t start = 0;
  while (true) {
    size_t comma = feature.find(',', start);
    fields.push_back(feature.substr(start, comma - start));
    if (comma == std::string_view::npos) return fields;
    start = comma + 1;
  }
}

std::u16string Utf16(std::string_view utf8) { return FromUtf8(utf8).Units(); }

// IPADIC fields: part of speech, three subclasses, conjugation type and
// form, base form, reading, pronunciation; unknown words stop at the form.
Word ToWord(const mecab_node_t& node) {
  Word word;
  word.surface = Utf16(std::string_view(node.surface, node.length));
  word.blankBefore = node.rlength > node.length;
  const std::vector<std::string_view> fields = Fields(node.feature ? node.feature : "");
  auto field = [&](size_t i) { return i < fields.size() ? Utf16(fields[i]) : std::u16string(u"*"); };
  word.partOfSpeech = field(0);
  word.subclass = field(1);
  word.form = field(5);
  word.base = field(6);
  if (fields.size() > 8 && fields[7] != "*") {
    word.reading = field(7);
    word.pronunciation = field(8) == u"*" ? word.reading : field(8);
  }
  return word;
}

}  // namespace

bool SplitWords(std::u16string_view line, std::vector<Word>& words) {
  Tagger& tagger = LoadedTagger();
  if (tagger.mecab == nullptr) return false;
  const std::string utf8 = ToUtf8(CString(std::u16string(line)));
  std::lock_guard<std::mutex> lock(tagger.mutex);
  const mecab_node_t* node = mecab_sparse_tonode2(tagger.mecab, utf8.data(), utf8.size());
  if (node == nullptr) return false;
  // Where the last word ended, in the UTF-8 text and in the line.
  size_t byte = 0, unit = 0;
  for (; node != nullptr; node = node->next) {
    if (node->stat == MECAB_BOS_NODE || node->stat == MECAB_EOS_NODE) continue;
    words.push_back(ToWord(*node));
    const size_t at = std::clamp(static_cast<size_t>(node->surface - utf8.data()), byte, utf8.size());
    words.back().start = unit + Utf16(std::string_view(utf8).substr(byte, at - byte)).size();
    byte = at + node->length;
    unit = words.back().start + words.back().surface.size();
  }
  return true;
}
