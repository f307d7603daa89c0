// The run of a lookup, shared by the search screen (the typed word) and
// the results screen (a candidate's key). It runs on the thread of the
// message loop: keys pressed meanwhile wait in the queue and meet the
// screen that the lookup left.
#include "app/main_frame.h"
#include "results/braille_gaiji.h"
#include "results/typed_lookup.h"

int32_t CMainFrame::LookupWord(const DictionaryEntry& entry, const CString& word,
                               CString& foundAs) {
  const int32_t result = LookupAsTyped(books, entry.path, entry.bookNumber, word, ArticleList,
                                       CandidateList, foundAs);
  // The folder's own Braille gaiji table, read anew: it may have changed.
  if (result != kLookupNoBook) LoadBrailleGaiji(entry.path, GaijiTable);
  return result;
}

void CMainFrame::RunLookup(const CString& word) {
  const int32_t dictionary = listState[FOCUS_DICT_LIST].selection;
  if (dictionary < 0 || dictionary >= static_cast<int32_t>(DictionaryList.size())) {
    NotifyBeep(BEEP_CODE);
    return;
  }
  // Said without waiting: the user hears it while the engine runs.
  Announce(u"検索開始", -1, -1, 0);
  CString foundAs;
  const int32_t result = LookupWord(DictionaryList[dictionary], word, foundAs);
  if (result == 0 || result == kLookupStopped) {
    // The user hears which word the results are of, before the list.
    if (!foundAs.IsEmpty()) Announce(u"「" + foundAs + u"」で見つかりました", -1, -1, 1);
    // A lookup stopped at its limits shows what was found until then.
    if (result == kLookupStopped) Announce(u"検索を途中で打ち切りました", -1, -1, 1);
    focus = FOCUS_RESULT_LIST;
    screenFocus[SCREEN_RESULTS] = FOCUS_RESULT_LIST;
    listState[FOCUS_RESULT_LIST].selection = 0;
    listState[FOCUS_CANDIDATE_LIST].selection = 0;
    screen = SCREEN_RESULTS;
  } else {
    // The lists are empty by now; screen and focus stay.
    Announce(u"辞書が見つかりませんでした", -1, -1, 1);
  }
  RenderFocus();
}
