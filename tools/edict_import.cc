#include "tools/edict_import.h"

#include <cctype>
#include <fstream>

#include "engine/catalog.h"
#include "tools/index_keys.h"

namespace {

constexpr size_t kLongestKey = 40;  // glosses longer than this are no key
constexpr char kGeta[] = "\x81\xAC";  // 〓, for characters with no Shift-JIS form

// Shift-JIS of an EUC-JP text: JIS X 0208 pairs by arithmetic, half-width
// kana as their byte, JIS X 0212 (no Shift-JIS form) as 〓.
std::string euc_to_sjis(std::string_view euc) {
  std::string sjis;
  for (size_t i = 0; i < euc.size(); ++i) {
    const unsigned char byte = static_cast<unsigned char>(euc[i]);
    if (byte < 0x80) {
      sjis += static_cast<char>(byte);
    } else if (byte == 0x8E && i + 1 < euc.size()) {
      sjis += euc[++i];
    } else if (byte == 0x8F && i + 2 < euc.size()) {
      i += 2;
      sjis += kGeta;
    } else if (byte >= 0xA1 && i + 1 < euc.size()) {
      const int code = jis_to_sjis((byte & 0x7F) << 8 | (static_cast<unsigned char>(euc[++i]) & 0x7F));
      sjis += static_cast<char>(code >> 8);
      sjis += static_cast<char>(code & 0xFF);
    }
  }
  return sjis;
}

// Text the body can hold: half-width kana (no JIS X 0208 form in a run)
// become 〓.
std::string body_safe(const std::string& sjis) {
  std::string safe;
  for (size_t i = 0; i < sjis.size(); ++i) {
    const unsigned char byte = static_cast<unsigned char>(sjis[i]);
    if (byte >= 0xA1 && byte <= 0xDF) {
      safe += kGeta;
    } else {
      safe += sjis[i];
      if (byte >= 0x80 && i + 1 < sjis.size()) safe += sjis[++i];
    }
  }
  return safe;
}

// The English key of a gloss: its tags "(n)", "{comp}" gone, "to " of a
// verb gone; empty when what is left is no plain ASCII phrase of a
// sensible length.
std::string gloss_key(std::string gloss) {
  for (;;) {
    gloss.erase(0, gloss.find_first_not_of(' '));
    const char open = gloss.empty() ? '\0' : gloss[0];
    if (open != '(' && open != '{') break;
    const size_t close = gloss.find(open == '(' ? ')' : '}');
    if (close == std::string::npos) return "";
    gloss.erase(0, close + 1);
  }
  if (gloss.rfind("to ", 0) == 0) gloss.erase(0, 3);
  while (!gloss.empty() && gloss.back() == ' ') gloss.pop_back();
  if (gloss.empty() || gloss.size() > kLongestKey) return "";
  for (char c : gloss) {
    if (!isalnum(static_cast<unsigned char>(c)) && c != ' ' && c != '-' && c != '\'' && c != '.') return "";
  }
  return gloss;
}

bool parse_line(const std::string& line, EntryContent& entry) {
  const size_t slash = line.find(" /");
  if (slash == std::string::npos || line.find("EDICT") != std::string::npos) return false;
  const std::string words = line.substr(0, slash);
  const size_t open = words.find(" [");
  entry.head = body_safe(euc_to_sjis(words.substr(0, open)));
  if (key_class(entry.head) == KeyClass::kNone) return false;
  if (open != std::string::npos) {
    const size_t close = words.find(']', open);
    const std::string readings = euc_to_sjis(words.substr(open + 2, close - open - 2));
    size_t from = 0;
    for (size_t semicolon; from <= readings.size(); from = semicolon + 1) {
      semicolon = readings.find(';', from);
      if (semicolon == std::string::npos) semicolon = readings.size();
      std::string reading = readings.substr(from, semicolon - from);
      reading.erase(std::min(reading.size(), reading.find('(')));
      // Readings with marks other than kana and ー (・, ＝) are shown, not keys.
      if (!reading.empty()) entry.kana.push_back(body_safe(reading));
    }
  }

  // Glosses: one line each in the article, and the English keys.
  size_t from = slash + 2;
  for (size_t end; (end = line.find('/', from)) != std::string::npos; from = end + 1) {
    const std::string gloss = line.substr(from, end - from);
    if (gloss.empty() || gloss == "(P)" || gloss.rfind("EntL", 0) == 0) continue;
    const std::string key = gloss_key(gloss);
    if (!key.empty() && key_class(key) == KeyClass::kAlphabet) entry.alpha.push_back(key);
    entry.body.text(body_safe(euc_to_sjis(gloss)));
    entry.body.word(0x1F0A);
  }
  const bool kana_head = !entry.kana.empty() && entry.kana.front() != entry.head;
  const std::string shown_reading = kana_head ? entry.kana.front() : "";
  std::erase_if(entry.kana, [](const std::string& kana) { return key_class(kana) != KeyClass::kKana; });
  if (kana_head) {
    entry.head_line.text(shown_reading);
    entry.head_line.word(0x215A);  // 【
  }
  entry.head_line.text(entry.head);
  if (kana_head) entry.head_line.word(0x215B);  // 】
  return true;
}

}  // namespace

BookContent read_edict(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw SourceError(path, 0, "cannot be read");
  BookContent book;
  book.title = "EDICT和英辞典";
  book.directory = "EDICT";
  book.source = path;
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    EntryContent entry;
    entry.line = number;
    try {
      if (parse_line(line, entry)) book.entries.push_back(std::move(entry));
    } catch (const std::invalid_argument&) {
      // a line with text no JIS X 0208 can hold is left out
    }
  }
  if (book.entries.empty()) throw SourceError(path, 0, "holds no EDICT entry");
  return book;
}
