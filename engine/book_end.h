// Whether the reads of a book have run off its end. A book's counts (of
// directory entries, definitions, characters) are 16-bit and may claim far
// more than the book holds; loops over such counts stop when this says so,
// so that no run reads on through failure after failure.
#ifndef ENGINE_BOOK_END_H_
#define ENGINE_BOOK_END_H_

// 1 when no book file is current or the last read of the current one ran
// past its end (and no later file of the table took it on), else 0. A seek
// clears it: ask right after the read.
int cdeof();

#endif  // ENGINE_BOOK_END_H_
