// The Braille gaiji table of a dictionary: what each external character
// code that the engine writes ("[A121]") becomes on the display, read from
// the file "BrailleGaiji.txt" in the dictionary's own folder at each
// lookup.
#ifndef RESULTS_BRAILLE_GAIJI_H_
#define RESULTS_BRAILLE_GAIJI_H_

#include "platform/wide_string.h"
#include "results/gaiji_mapping.h"

// Empties `table` and fills it from `path` + "\BrailleGaiji.txt", a row a
// record in file order. A missing file leaves the table empty; reading
// stops at the first record that does not fit the format.
void LoadBrailleGaiji(const CString& path, GaijiMappingArray& table);

#endif  // RESULTS_BRAILLE_GAIJI_H_
