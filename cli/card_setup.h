// Where epwingdict's card ("\SD") lies, and the folders of books mounted on
// it (docs/epwingdict.md, "The card and your dictionaries"):
//
// - the card: --card DIR, else $EPWINGDICT_CARD, else the user's own card
//   $XDG_DATA_HOME/epwingdict/card (~/.local/share/epwingdict/card). The
//   user's card is made on first start, and wherever its built-in folders
//   epwing/plus and epwing/wadai hold nothing, they become links to the demo
//   books the program ships (share/epwingdict/epwing/...).
// - mounted folders: each --books DIR, else each folder of $EPWINGDICT_BOOKS
//   (separated by ":"), appears as "\SD\<last part of DIR>" without being
//   copied, so that the folder chooser reaches it.
#ifndef CLI_CARD_SETUP_H_
#define CLI_CARD_SETUP_H_

#include <string>
#include <vector>

// Points "\SD" at its folder and mounts the book folders. `card` and `books`
// are what the options gave (empty: none). False, with `error` set, when a
// book folder can't be mounted: it is no folder, or its name is taken.
// Failing to make the user's card is no error (the reader then starts with
// no built-in dictionaries); it is told on standard error.
bool SetUpCard(const std::string& card, const std::vector<std::string>& books, std::string& error);

#endif  // CLI_CARD_SETUP_H_
