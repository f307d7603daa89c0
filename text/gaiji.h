// External characters (gaiji): definition tables that replace a book's own
// character codes by texts, and the dump of a book's bitmap areas.
#ifndef TEXT_GAIJI_H_
#define TEXT_GAIJI_H_

// The built-in empty definition table: only the end record 0xFFFF.
extern const unsigned char empty_gaiji_table[4];

// Loads the definition file at `path` into *table (engine.gaiji_table or
// engine.hankaku_table); returns the table now in force.
const unsigned char* cdgaijiload(const char* path, const unsigned char** table);
// The replacement text of `code`, or null when no table defines it.
const char* cdgaijifind(int code);
// Prints the bitmap area that starts at the current position to output.
void cdgaijidump();
// -$: cdgaijidump over the plain file at `path`, which stands in for the
// book file for the time of the dump; failure 25 when it can't be opened.
void dump_gaiji_file(const char* path);

#endif  // TEXT_GAIJI_H_
