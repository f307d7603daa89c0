// cdindexdump (-Q): every page of an index area in turn, as the walk would
// read it. The page layouts are those of index_walk.cc. The tables go to
// output, the keys (through cdshowkey) to standard output, and what looks
// wrong in the book to standard error, so that the tables stay readable.
#include <cstring>

#include "engine/book_end.h"
#include "engine/engine_state.h"
#include "engine/file_access.h"
#include "engine/index_directory.h"
#include "search/index_search.h"
#include "search/inspection.h"
#include "search/search_key.h"

namespace {

// Each dump of a page stops behind the first entry read past the end of the
// page or of the book: a damaged count claims up to 65535 entries, and an
// entry of a whole book never runs over the end of its page.
bool past_page(int32_t page) { return cdeof() || int64_t{cdtell()} > int64_t{page} * kPageSize; }

void dump_branch(int32_t page) {
  int n = cdgetbyte();
  int count = cdgetword();
  fprintf(engine.output, ", length=%d, num=%d\n", n, count);
  char previous[256];
  bool has_previous = false;
  for (int i = 0; i < count; ++i) {
    char* key = cdshowkey(n);
    uint32_t high = static_cast<uint32_t>(cdgetword());
    long child = static_cast<long>(static_cast<int32_t>((high << 16) | static_cast<uint32_t>(cdgetword())));
    fprintf(engine.output, " %ld\n", child);
    if (has_previous && strncmp(previous, key, static_cast<size_t>(n)) >= 0)
      fprintf(engine.std_err, "%s has same entry in page %ld\n", key, static_cast<long>(page));
    memcpy(previous, key, static_cast<size_t>(n) + 1);
    has_previous = true;
    if (past_page(page)) return;
  }
}

void dump_positions() {
  fprintf(engine.output, "-> %ld,", static_cast<long>(read_index_position()));
  fprintf(engine.output, "-> %ld\n", static_cast<long>(read_index_position()));
}

void dump_plain_leaf(int32_t page) {
  cdgetbyte();
  int count = cdgetword();
  fprintf(engine.output, ", num=%d\n", count);
  for (int i = 0; i < count; ++i) {
    cdshowkey(cdgetbyte());
    dump_positions();
    if (past_page(page)) return;
  }
}

// An ordinary member's folded spelling must start like its group head's
// key; a book whose folding differs from the engine's shows here.
void check_member_folding(int32_t page, const char* head_key, const char* member_key) {
  char member[256];
  strcpy(member, member_key);
  const char* folded = cdfoldkey(member);
  if (strncmp(folded, head_key, strlen(member_key)) == 0) return;
  fprintf(engine.std_err, "\npage %ld\n", static_cast<long>(page));
  cdshowjis(engine.std_err, head_key);
  fputc('\n', engine.std_err);
  cdshowjis(engine.std_err, member_key);
  fputc('\n', engine.std_err);
  cdshowjis(engine.std_err, folded);
  fputc('\n', engine.std_err);
}

// `head_key` and `members_left` carry a group over the end of a page;
// members_left is negative for a group too large to count.
void dump_group_leaf(int32_t page, char* head_key, int* members_left) {
  const bool group = engine.flags & DF_GROUP_SEARCH;
  const bool odd = engine.index_id & 1;
  cdgetbyte();
  int count = cdgetword();
  fprintf(engine.output, ", num=%d\n", count);
  for (int i = 0; i < count; ++i) {
    int32_t at = cdtell();
    int type = cdgetbyte();
    fprintf(engine.output, "%02X:", type);
    if (type == 0x00) {
      *members_left = 0;
      cdshowkey(cdgetbyte());
      dump_positions();
    } else if (type == 0x80) {
      int n = cdgetbyte();
      if (group) fprintf(engine.output, "[%X]", cdgetword());
      int members = cdgetword();
      strcpy(head_key, cdshowkey(n));
      if (group && !odd) fprintf(engine.output, "-> %ld,", static_cast<long>(read_index_position()));
      fprintf(engine.output, " %d 個\n", members);
      *members_left = members == 0 ? -1 : members;
    } else if (type == 0xC0) {
      if (*members_left > 0) --*members_left;
      if (group) {
        if (odd) fprintf(engine.output, "-> %ld\t", static_cast<long>(read_index_position()));
        fprintf(engine.output, "-> %ld\n", static_cast<long>(read_index_position()));
      } else {
        check_member_folding(page, head_key, cdshowkey(cdgetbyte()));
        dump_positions();
      }
    } else {
      fprintf(engine.std_err, "\n変なＩＤ at page %ld, pos %ld, %02X\n", static_cast<long>(page),
              static_cast<long>(at), type);
      return;  // the rest of the page can't be told apart
    }
    if (past_page(page)) return;
  }
  if (*members_left != 0) fputs("次ページに継続します\n", engine.output);
}

}  // namespace

void cdindexdump(int32_t identifier) {
  const int32_t saved_index = engine.index_id;
  engine.index_id = identifier;
  int32_t page = find_index(engine.multi_index > 0 ? 0xFF : identifier);
  engine.index_pages = engine.found_pages;
  if ((engine.index_id & 0xD0) == 0x80) engine.flags |= DF_GROUP_SEARCH;
  cdseekpage(page);
  char head_key[256] = "";
  int members_left = 0;
  // The count runs down past 0, and -A shows it so.
  for (; engine.index_pages-- > 0; ++page) {
    cdseekpage(page);
    int kind = cdgetbyte();
    if (cdeof()) break;  // a damaged page count may reach far past the book
    fprintf(engine.output, "Page %ld, i=%02X", static_cast<long>(page), kind);
    if ((kind & 0x9F) == 0x00) {
      dump_branch(page);
    } else if ((kind & 0x9F) == 0x80) {
      dump_plain_leaf(page);
    } else if ((kind & 0x9F) == 0x90 && kind != 0xF0) {
      dump_group_leaf(page, head_key, &members_left);
    } else {
      // No page of an index: a damaged page count runs on into other
      // areas, and nothing behind this page is read as an index.
      fprintf(engine.std_err, "\n変なページＩＤ %ld %02X\n", static_cast<long>(page), kind);
      break;
    }
  }
  engine.flags &= ~DF_GROUP_SEARCH;
  engine.index_id = saved_index;
}
