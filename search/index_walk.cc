// The walk of an index tree (cdwalk) and the comparison of index keys.
//
// An index is a tree of 2048-byte pages in one area of the book; numbers
// are big-endian, pages count from 1. Byte 0 of every page identifies it:
// the top bit says leaf, bit 0x10 group entries; 0x20 and 0x40 carry no
// meaning of their own.
//
//   identifier               kind
//   0x00 0x20 0x40 0x60      branch page
//   0x80 0xA0 0xC0 0xE0      plain leaf page
//   0x90 0xB0 0xD0           group leaf page
//   any other                not an index page (failure 23)
//
// Branch page. Each key is the upper bound of its child:
//   offset  size     meaning
//   0       1        identifier
//   1       1        key length n, shared by all entries of the page
//   2       2        number of entries
//   4       n+4 each key (n), child page number (4)
//
// Plain leaf page:
//   offset  size      meaning
//   0       1         identifier
//   1       1         not read
//   2       2         number of entries
//   4       13+n each key length n (1), key (n), TEXT (6), HEAD (6)
//
// Group leaf page: the same first four bytes; each entry then starts with a
// type byte, and the group-search layout (DF_GROUP_SEARCH) depends on the
// low bit of index_id:
//   type  entry                        bytes behind the type byte
//   0x00  single entry                 n (1), key (n), TEXT (6), HEAD (6)
//   0x80  group head                   n (1), members (2), key (n)
//   0x80  group head, group, even      n (1), unused (2), members (2), key (n), HEAD (6)
//   0x80  group head, group, odd       n (1), unused (2), members (2), key (n)
//   0xC0  member                       n (1), key (n), TEXT (6), HEAD (6)
//   0xC0  member, group, even          TEXT (6)
//   0xC0  member, group, odd           TEXT (6), HEAD (6)
//   other not an entry (failure 22)
// In the even layout the members' head lines follow each other from the
// group head's HEAD on. A member count of 0 means too many to count. A group
// may run on over the end of its page.
//
// A position (TEXT: the article, HEAD: its head line) is six bytes:
//   offset  size  meaning
//   0       4     page number
//   4       2     offset in the page
#include "search/index_search.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "engine/book_end.h"
#include "engine/engine_state.h"
#include "engine/failure.h"
#include "engine/file_access.h"
#include "text/decoder.h"

namespace {

// What a group leaf page gives when the walk goes on with the next page.
constexpr int kNextPage = 2;
// No book's tree is this deep; a deeper descent is a branch page leading
// back up the tree.
constexpr int kMaxWalkDepth = 16;
// Page visits when the area's size is not known.
constexpr int32_t kUnknownAreaVisits = 4096;
// The most entries a page can hold behind its four header bytes, for
// entries of at least `entry_size` bytes. A damaged count claims up to
// 65535; the loops go no further than the page.
constexpr int most_entries(int entry_size) { return (kPageSize - 4) / entry_size; }
// The smallest entries: a plain leaf entry with an empty key (13 bytes), a
// group-search member of the even layout (type byte and TEXT).
constexpr int kSmallestPlainEntry = 13;
constexpr int kSmallestGroupEntry = 7;

bool page_in_area(int32_t page) {
  if (engine.walk_last_page == 0) return true;
  return page >= engine.walk_first_page && page <= engine.walk_last_page;
}

int32_t read_page_number() {
  uint32_t high = static_cast<uint32_t>(cdgetword());
  return static_cast<int32_t>((high << 16) | static_cast<uint32_t>(cdgetword()));
}

void trace_count(int count) {
  if (engine.flags & DF_TRACE) fprintf(engine.output, "%d エントリ\n", count);
}

// The article at `text`, then back to `resume` in the page.
void show_article(int32_t text, int32_t resume) {
  cdseek(text, 0);
  cdtext(0);
  cdseek(resume, 0);
}

// The list of following head words that ends a search without a hit.
void show_candidates(int32_t head) {
  // The application reads the candidates behind this line
  // (results/work_file_parser.cc); results/engine_books_test.cc ties them.
  fputs("<項目一覧>\n", engine.output);
  cdseek(head, 0);
  cdtext(engine.lines);
}

void report_bad_page(int32_t page, int identifier) {
  fprintf(engine.std_out, "\nStop at %02X index, page %ld\n", identifier, static_cast<long>(page));
  fputs("上のメッセージと共に\n", engine.std_out);
  engine_fail(23);
}

void report_bad_entry(int32_t page, int32_t at, int type) {
  fprintf(engine.std_out, "\nStop on page %ld(0x%ld), %02X\n", static_cast<long>(page),
          static_cast<long>(at), type);
  fputs("上のメッセージと共に\n", engine.std_out);
  engine_fail(22);
}

// The walks of the pages stop (0) when a read runs off the end of the book:
// all that follows would read as zeros, failure after failure.
int walk_branch() {
  int n = cdgetbyte();
  int count = std::min(cdgetword(), most_entries(n + 4));
  trace_count(count);
  for (int i = 0; i < count; ++i) {
    int r = cdkeycmp(n, engine.normalized_key);
    engine.saved_position = read_page_number();
    if (cdeof()) return 0;
    if (r > 1) continue;
    int32_t resume = cdtell();
    if (cdwalk(engine.saved_position) == 0) return 0;
    cdseek(resume, 0);  // a child that stopped on a bad page counts as going on
  }
  return 1;
}

int walk_plain_leaf() {
  cdgetbyte();
  int count = std::min(cdgetword(), most_entries(kSmallestPlainEntry));
  trace_count(count);
  for (int i = 0; i < count; ++i) {
    int n = cdgetbyte();
    int r = cdkeycmp(n, engine.normalized_key);
    if (cdeof()) return 0;
    if (r > 0) {
      cdseek(12, 1);
    } else if (r == 0) {
      engine.saved_position = read_index_position();
      show_article(engine.saved_position, cdtell() + 6);
    } else {
      if (engine.flags & DF_SYNONYM_INDEX) return 0;
      cdseek(6, 1);
      show_candidates(read_index_position());
      return 0;
    }
  }
  return 1;
}

// A member in the group-search layout: its positions wait for cdheadlist
// while a group head equal to the key is pending.
void collect_member(bool odd) {
  if (engine.flags & DF_TRACE) fputc('\n', engine.output);
  if (engine.pending_position == 0) {
    cdseek(odd ? 12 : 6, 1);
    return;
  }
  // A damaged page with more members than the list holds prints them early.
  if (engine.candidate_count >= kCandidateMax) cdheadlist();
  engine.text_positions[engine.candidate_count] = read_index_position();
  if (odd) engine.head_positions[engine.candidate_count] = read_index_position();
  ++engine.candidate_count;
}

// One group leaf page; `g` is the last group comparison, which runs on over
// the pages of one cdwalk. Gives 0, -1, or kNextPage.
int walk_group_leaf(int32_t page, int* g) {
  const bool group = engine.flags & DF_GROUP_SEARCH;
  const bool synonym = engine.flags & DF_SYNONYM_INDEX;
  const bool odd = engine.index_id & 1;
  cdgetbyte();
  int count = std::min(cdgetword(), most_entries(kSmallestGroupEntry));
  trace_count(count);
  for (int i = 0; i < count; ++i) {
    int32_t at = cdtell();
    int type = cdgetbyte();
    if (cdeof()) return 0;
    if (engine.flags & DF_TRACE) fprintf(engine.output, "%02X:%ld ", type, static_cast<long>(at));
    if (type == 0x00) {
      if (engine.candidate_count != 0) cdheadlist();
      int n = cdgetbyte();
      *g = cdkeycmp(n, engine.normalized_key);
      engine.saved_position = read_index_position();
      engine.pending_position = read_index_position();
      if (*g > 0) {
        engine.pending_position = 0;
      } else if (*g == 0) {
        show_article(engine.saved_position, cdtell());
      } else {
        if (synonym || group) return 0;
        show_candidates(engine.pending_position);
        return 0;
      }
    } else if (type == 0x80) {
      if (engine.candidate_count != 0) cdheadlist();
      int n = cdgetbyte();
      if (group) cdgetword();  // a word the search doesn't use
      int members = cdgetword();
      *g = cdkeycmp(n, engine.normalized_key);
      if (*g < 0) {
        if (synonym || group) return 0;
        continue;
      }
      engine.pending_position = 0;
      if (!group) continue;
      if (*g > 0) {
        if (!odd) cdseek(6, 1);
        continue;
      }
      if (members == 0) {
        fputs("たくさんあります\n", engine.output);
      } else {
        fprintf(engine.output, "%d個あります\n", members);
      }
      engine.pending_position = odd ? -1 : read_index_position();
      engine.candidate_count = 0;
    } else if (type == 0xC0 && group) {
      collect_member(odd);
    } else if (type == 0xC0) {
      // A member is compared by the word as written, not by its folded form.
      int n = cdgetbyte();
      int r = cdkeycmp(n, engine.search_string);
      engine.saved_position = read_index_position();
      engine.pending_position = read_index_position();
      if (*g > 0 || r > 0) {
        engine.pending_position = 0;
      } else if (r == 0) {
        show_article(engine.saved_position, cdtell());
      } else {
        if (synonym) return 0;
        show_candidates(engine.pending_position);
        return 0;
      }
    } else {
      report_bad_entry(page, at, type);
      return -1;
    }
  }
  if (engine.candidate_count != 0) {
    cdheadlist();
    return kNextPage;
  }
  // -1: a group head ended the page and its members, with their own heads,
  // follow on the next one.
  if (engine.pending_position == 0 || engine.pending_position == -1) return kNextPage;
  if (synonym) return 0;
  show_candidates(engine.pending_position);
  return 0;
}

int walk_pages(int32_t page) {
  engine.pending_position = 0;
  int g = 1;
  for (;;) {
    if (!page_in_area(page) || engine.walk_visits_left <= 0) return 0;
    --engine.walk_visits_left;
    cdseekpage(page);
    int identifier = cdgetbyte();
    if (cdeof()) return 0;
    if (engine.flags & DF_TRACE)
      fprintf(engine.output, "Page %ld, ID=%02X\n", static_cast<long>(page), identifier);
    if ((identifier & 0x9F) == 0x00) return walk_branch();
    if ((identifier & 0x9F) == 0x80) return walk_plain_leaf();
    if ((identifier & 0x9F) == 0x90 && identifier != 0xF0) {
      int result = walk_group_leaf(page, &g);
      if (result != kNextPage) return result;
      ++page;
      continue;
    }
    report_bad_page(page, identifier);
    return -1;
  }
}

}  // namespace

void set_walk_area(int32_t first_page, int32_t page_count) {
  engine.walk_first_page = first_page;
  if (page_count > 0) {
    // A damaged count may reach past the last 32-bit page number.
    engine.walk_last_page = static_cast<int32_t>(
        std::min<int64_t>(int64_t{first_page} + page_count - 1, INT32_MAX));
    // A walk reaches a page at most once from each level above it.
    engine.walk_visits_left = page_count < (1 << 20) / kMaxWalkDepth ? page_count * kMaxWalkDepth + kMaxWalkDepth
                                                          : 1 << 20;
  } else {
    engine.walk_last_page = 0;
    engine.walk_visits_left = kUnknownAreaVisits;
  }
  engine.walk_depth = 0;
}

int cdwalk(int32_t page) {
  if (engine.walk_depth >= kMaxWalkDepth) return 0;
  ++engine.walk_depth;
  int result = walk_pages(page);
  --engine.walk_depth;
  return result;
}

int32_t read_index_position() {
  uint32_t page = static_cast<uint32_t>(read_page_number());
  uint32_t offset = static_cast<uint32_t>(cdgetword());
  return static_cast<int32_t>((page - 1) * kPageSize + offset);
}

int cdkeycmp(int n, const char* key) {
  // One key is at most 255 bytes: its length is one byte.
  char index_key[512];
  const char* compared = index_key;
  const bool fold_katakana = (engine.flags & DF_INDEX_HIRAGANA) && !(engine.flags & DF_ENGLISH);
  // Compared where it lies in the block read, when that holds all of it
  // and nothing in it changes: the walk compares keys by the dozen.
  if (const unsigned char* kept = fold_katakana ? nullptr : kept_bytes(static_cast<size_t>(n))) {
    compared = reinterpret_cast<const char*>(kept);
  } else {
    // In one read as far as the file holds it; from where it ends short
    // (the end of a file) byte by byte, which carries on into the next
    // file or reports as any read does.
    const int got = static_cast<int>(cdread(index_key, static_cast<size_t>(n)));
    for (int i = got; i < n; ++i) index_key[i] = static_cast<char>(cdgetbyte());
    index_key[n] = '\0';
    if (fold_katakana) {
      for (int i = 0; i < n; i += 2)
        if (index_key[i] == 0x25) index_key[i] = 0x24;
    }
  }
  int m = static_cast<int>(strlen(key));
  int s = strncmp(key, compared, static_cast<size_t>(m < n ? m : n));
  int sign = (s > 0) - (s < 0);
  if (sign != 0) return 2 * sign;
  if (m < n) return -1;
  if (m > n) return 1;
  return 0;
}

void cdheadlist() {
  engine.saved_position = cdtell();
  const bool own_heads = engine.pending_position < 0;
  if (!own_heads) cdseek(engine.pending_position, 0);
  for (int i = 0; i < engine.candidate_count; ++i) {
    fputc('<', engine.output);
    if (own_heads) cdseek(engine.head_positions[i], 0);
    cdtext(1);
    fprintf(engine.output, "|%ld>\n", static_cast<long>(engine.text_positions[i]));
  }
  if (!own_heads) engine.pending_position = cdtell();
  cdseek(engine.saved_position, 0);
  engine.candidate_count = 0;
}
