#include "tools/book_builder.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <set>

#include "tools/gaiji_writer.h"
#include "tools/index_area.h"
#include "tools/index_keys.h"

namespace {

constexpr int32_t kPage = 2048;
constexpr int kLineEnd = 0x1F0A;
constexpr int kRecordEnd = 0x1F03;
constexpr int kDash = 0x213D;  // ―

// An index and the head list that goes with it.
struct IndexKind {
  int identifier;   // the index
  int heads;        // its head list
  int family;       // the forward index whose keys it takes: 0x90, 0x91, 0x92
};

constexpr IndexKind kIndexes[] = {
    {0x90, 0x04, 0x90}, {0x91, 0x05, 0x91}, {0x92, 0x08, 0x92},
    {0x70, 0x06, 0x90}, {0x71, 0x07, 0x91}, {0x72, 0x09, 0x92},
};

struct KeyedItem {
  std::string key;   // as the walk compares it
  size_t entry;      // which entry
  const std::string* alpha;  // the alphabet key to show in front, or null
};

int32_t area_position(int32_t first_page) { return (first_page - 1) * kPage; }

// The typed words of an entry that lead to it in the family's indexes.
std::vector<std::pair<std::string, const std::string*>> words_for(const EntryContent& entry,
                                                                  int family) {
  std::vector<std::pair<std::string, const std::string*>> words;
  const KeyClass head_class = key_class(entry.head);
  if (family == 0x91) words.push_back({entry.head, nullptr});
  if (family == 0x90) {
    if (head_class == KeyClass::kKana) words.push_back({entry.head, nullptr});
    for (const std::string& kana : entry.kana) words.push_back({kana, nullptr});
  }
  if (family == 0x92) {
    if (head_class == KeyClass::kAlphabet) words.push_back({entry.head, nullptr});
    for (const std::string& alpha : entry.alpha) words.push_back({alpha, &alpha});
  }
  return words;
}

void check_keys(const BookContent& content, const EntryContent& entry) {
  if (key_class(entry.head) == KeyClass::kNone) {
    throw SourceError(content.source, entry.line, "the head word makes no search key");
  }
  for (const std::string& kana : entry.kana) {
    if (key_class(kana) != KeyClass::kKana) {
      throw SourceError(content.source, entry.line, "a reading must be kana alone");
    }
  }
  for (const std::string& alpha : entry.alpha) {
    if (key_class(alpha) != KeyClass::kAlphabet) {
      throw SourceError(content.source, entry.line,
                        "an alphabet key must be letters, digits and symbols alone");
    }
  }
}

std::vector<KeyedItem> keyed_items(const BookContent& content, const IndexKind& kind) {
  std::vector<KeyedItem> items;
  for (size_t i = 0; i < content.entries.size(); ++i) {
    std::set<std::string> seen;  // one index entry a key and entry
    for (const auto& [word, alpha] : words_for(content.entries[i], kind.family)) {
      std::string key = index_key(word, kind.identifier);
      if (key.empty() || key.size() > 255 || !seen.insert(key).second) continue;
      items.push_back({std::move(key), i, alpha});
    }
  }
  // Sorted through their numbers, then moved into place once: moving the
  // items themselves at each step of a merge costs more than comparing them.
  std::vector<uint32_t> order(items.size());
  std::iota(order.begin(), order.end(), 0u);
  std::stable_sort(order.begin(), order.end(),
                   [&items](uint32_t a, uint32_t b) { return items[a].key < items[b].key; });
  std::vector<KeyedItem> sorted;
  sorted.reserve(items.size());
  for (uint32_t i : order) sorted.push_back(std::move(items[i]));
  return sorted;
}

// The line of an item in a head list: the entry's head line, behind the
// alphabet key when the item came from one ("flower ― はな【花】").
BodyWords head_list_line(const EntryContent& entry, const std::string* alpha) {
  BodyWords line;
  if (alpha != nullptr && *alpha != entry.head) {
    line.text(*alpha + " ");
    line.word(kDash);
    line.text(" ");
  }
  line.append(entry.head_line);
  line.word(kLineEnd);
  return line;
}

void add_index(const BookContent& content, const IndexKind& kind,
               const std::vector<int32_t>& articles, Book& book) {
  std::vector<KeyedItem> items = keyed_items(content, kind);
  if (items.empty()) return;
  std::string heads;
  std::vector<int32_t> head_offsets;
  for (const KeyedItem& item : items) {
    head_offsets.push_back(static_cast<int32_t>(heads.size()));
    heads += head_list_line(content.entries[item.entry], item.alpha).bytes;
  }
  heads += static_cast<char>(kRecordEnd >> 8);
  heads += static_cast<char>(kRecordEnd & 0xFF);
  const int32_t heads_at = area_position(book.text.add_area(kind.heads, heads));

  std::vector<IndexLeafEntry> leaves;
  leaves.reserve(items.size());
  for (size_t i = 0; i < items.size(); ++i) {
    leaves.push_back(
        {0x00, std::move(items[i].key), articles[items[i].entry], heads_at + head_offsets[i], 0});
  }
  book.text.add_area(kind.identifier, index_area(std::move(leaves), book.text.next_page()));
}

// Fills in the positions of the links of `words`: the articles of their
// target head words.
void resolve_links(const BookContent& content, BodyWords& words,
                   const std::map<std::string, int32_t>& by_head) {
  for (const PendingLink& link : words.links) {
    const auto target = by_head.find(link.target);
    if (target == by_head.end()) {
      throw SourceError(content.source, link.line, "link to a head word that no entry has");
    }
    patch_position(words.bytes, link.offset, target->second);
  }
}

// The next code of a font: the JIS grid's columns 0x21 to 0x7E.
int next_code(int code) { return (code & 0xFF) == 0x7E ? code + 0xA3 : code + 1; }

void add_font(const std::vector<GaijiGlyph>& glyphs, Book& book) {
  if (glyphs.empty()) return;
  FontArea font{16, 16, glyphs.front().code, 0, {}};
  for (int code = font.first_code; code <= glyphs.back().code; code = next_code(code)) {
    const auto glyph = std::find_if(glyphs.begin(), glyphs.end(),
                                    [code](const GaijiGlyph& g) { return g.code == code; });
    font.bitmaps.push_back(glyph == glyphs.end() ? std::string(32, '\0') : glyph->bitmap);
    ++font.count;
  }
  book.text.add_area(0xF1, font_area_bytes(font));
}

}  // namespace

void build_book(const BookContent& content, Book& book) {
  if (content.entries.empty()) throw SourceError(content.source, content.line, "a book without entries");
  for (const EntryContent& entry : content.entries) check_keys(content, entry);

  // Body text: the articles one behind the other.
  BodyWords body;
  size_t body_size = 0;
  for (const EntryContent& entry : content.entries) {
    body_size += entry.head_line.bytes.size() + entry.body.bytes.size() + 4;
  }
  body.bytes.reserve(body_size);  // the articles of a large dictionary run to tens of megabytes
  std::vector<int32_t> articles;
  const int32_t body_at = area_position(book.text.next_page());
  std::map<std::string, int32_t> by_head;  // the first entry of each head word
  for (const EntryContent& entry : content.entries) {
    articles.push_back(body_at + static_cast<int32_t>(body.bytes.size()));
    by_head.emplace(entry.head, articles.back());
    body.append(entry.head_line);
    body.word(kLineEnd);
    body.append(entry.body);
    body.word(kRecordEnd);
  }
  resolve_links(content, body, by_head);
  book.text.add_area(0x00, body.bytes);

  for (auto [page, identifier] : {std::pair{&content.menu, 0x01}, std::pair{&content.notice, 0x02}}) {
    if (page->bytes.empty()) continue;
    BodyWords words = *page;
    words.word(kRecordEnd);
    resolve_links(content, words, by_head);
    book.text.add_area(identifier, words.bytes);
  }
  for (const IndexKind& kind : kIndexes) add_index(content, kind, articles, book);
  add_font(content.glyphs, book);
}
