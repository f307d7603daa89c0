// The display filters: what a stored head line or article becomes when it
// is shown and read out. The stored strings keep the engine's inline forms
// (links, phonetic signs, syllable marks, external character codes); a
// fixed chain of five steps, each governed by one display option, works on
// a copy at every showing, so a changed option acts at the next render.
#ifndef RESULTS_DISPLAY_FILTER_H_
#define RESULTS_DISPLAY_FILTER_H_

#include "platform/wide_string.h"
#include "results/gaiji_mapping.h"
#include "books/display_options.h"

// The shown form of `text`. In this order: links stripped unless
// linkVisible; phonetic signs stripped unless phSignsVisible; syllable
// marks shown as "-" or hidden by syllableVisible; codes replaced through
// `gaiji` when gaijiReplace; codes that remain stripped unless
// gaijiVisible. Options count as on when nonzero.
CString FilterDisplayText(CString text, const DisplayOptions& options,
                          const GaijiMappingArray& gaiji);

// A link "<→text|1234>" keeps its text and loses its wrapper and position;
// "<→1234>" and "<→>" vanish. A form with anything but digits behind its
// last "|" (or no "|" and anything but digits) is no link and stays.
void StripLinks(CString& text);
// A pair of slashes goes with all between them when that is below U+0100
// and on one line; a slash that opens no pair stays.
void StripPhoneticSigns(CString& text);
// A mark "･" (U+FF65) with a letter on both sides becomes "-"; a mark at
// index 0 is never touched.
void ShowSyllableMarks(CString& text);
// As ShowSyllableMarks, but the mark is deleted.
void HideSyllableMarks(CString& text);
// Every row of `gaiji` in order replaces all occurrences of its code text,
// each row acting on the result of the rows before it.
void ApplyGaijiTable(CString& text, const GaijiMappingArray& gaiji);
// Removes every external character code "[XXXX]" (upper-case hex).
void StripGaijiCodes(CString& text);
// True for exactly "[", four of 0-9 and A-F, "]".
bool IsGaijiCode(const CString& text);

#endif  // RESULTS_DISPLAY_FILTER_H_
