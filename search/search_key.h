// What a typed key becomes before it meets an index: the search_string (the
// key in JIS X 0208, in index order) and the normalized_key (that string
// folded for the kana indexes, the form they are sorted by).
#ifndef SEARCH_SEARCH_KEY_H_
#define SEARCH_SEARCH_KEY_H_

#include <cstdint>

// Columns 0x21..0x78 of rows 0x24 and 0x25, indexed by column - 0x21.
constexpr int kKanaColumns = 88;
// The column of the plain, large kana (voicing and smallness removed).
extern const unsigned char kana_fold[kKanaColumns];
// The column of the kana's vowel (あいうえお), or ん for ん; 0 for no kana.
extern const unsigned char kana_vowel[kKanaColumns];

// What a key is made for: the flags in force and the index.
struct KeyMode {
  uint32_t flags;    // EngineFlags
  int32_t index_id;  // the index the key is compared with
};

// Converts the typed Shift-JIS key for engine.index_id into
// engine.key_buffer and returns it (engine.search_string is not set here).
// Null, after the failure message, for a bad key. Keys longer than 255
// characters are cut there.
char* cdnormkey(const char* typed);
// cdnormkey in `mode`, into `key_buffer` (kKeyBufferSize bytes).
char* normalize_key(const char* typed, KeyMode mode, char* key_buffer);
// Folds a search_string into engine.fold_buffer and returns it. In
// encyclopedia mode also turns the kana rows of `key` itself into hiragana.
char* cdfoldkey(char* key);
// cdfoldkey in `mode`, into `fold_buffer` (kFoldBufferSize bytes).
char* fold_key(char* key, KeyMode mode, char* fold_buffer);
// Reverses `text` in place, byte by byte; returns its length.
int cdreverse(char* text);
// Shift-JIS code (lead byte in bits 8..15) to JIS X 0208; no validity check.
int sjis_to_jis(int code);
// 1 when every code of the JIS string lies in rows 0x21..0x23, else 0.
int key_in_ascii_rows(const char* key);
// 1 when every code is hiragana, katakana or ー (0x213C), else 0.
int key_is_kana(const char* key);

// The first steps of a search: a negative engine.index_id is the automatic
// choice (-1 the forward family 0x91, else the backward 0x71), the key is
// converted, and in Japanese mode the automatic choice is refined by the
// key's class (kana 0x90/0x70, alphabet 0x92/0x72). Sets *automatic and
// returns the key of cdnormkey (null for a bad key).
char* start_search_key(const char* typed, bool* automatic);
// The last steps of preparing a key, once cdsearch has chosen the index:
// the encyclopedia's final ー, folding for an automatically chosen kana
// index, and the key_length cut. `key` is the result of cdnormkey for
// `typed`. Sets engine.search_string and engine.normalized_key.
void finish_search_keys(const char* typed, char* key, bool automatic);

#endif  // SEARCH_SEARCH_KEY_H_
