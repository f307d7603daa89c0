// A registered dictionary: one book of one folder. A folder may hold
// several books, and each that the user registers is an entry of its own.
#ifndef STORE_DICTIONARY_ENTRY_H_
#define STORE_DICTIONARY_ENTRY_H_

#include <cstdint>

#include "platform/wide_string.h"

struct DictionaryEntry {
  CString title;           // the name shown and spoken: the catalog's, else the folder's
  CString path;            // the book folder, the engine's -D value
  int32_t bookNumber = 0;  // the book's index in the folder's catalog from 0, the -B value
};

#endif  // STORE_DICTIONARY_ENTRY_H_
