// The numbers the frame and its screens share: routing levels, screens,
// focus ids and the frame's own key codes. Every key the frame does not
// take passes to the focused control.
#ifndef APP_FRAME_IDS_H_
#define APP_FRAME_IDS_H_

#include <cstdint>

#include "controls/beep_request.h"
#include "controls/control_keys.h"

// Routing level: who gets a Braille key first.
constexpr int32_t MODE_MENU = 0;    // the menu is open
constexpr int32_t MODE_SCREEN = 1;  // the screen's handler, then the focused control
constexpr int32_t MODE_PROMPT = 2;  // the yes/no prompt is open

constexpr int32_t SCREEN_SEARCH = 0;        // pick a dictionary, type a word
constexpr int32_t SCREEN_RESULTS = 1;       // result list, candidate list
constexpr int32_t SCREEN_ARTICLE = 2;       // read one article
constexpr int32_t SCREEN_DICTIONARIES = 3;  // add and delete dictionaries
constexpr int32_t SCREEN_REGISTER = 4;      // name and register a book
constexpr int32_t SCREEN_SETTINGS = 5;      // the display options
constexpr int32_t SCREEN_COUNT = 6;

// Ids 0 to 7: the list box; 8 to 16: the nine buttons; 17 to 19: the edit
// control.
constexpr int32_t FOCUS_DICT_LIST = 0;
constexpr int32_t FOCUS_BOOK_LIST = 1;
constexpr int32_t FOCUS_RESULT_LIST = 2;
constexpr int32_t FOCUS_CANDIDATE_LIST = 3;
constexpr int32_t FOCUS_OPT_GAIJI_REPLACE = 4;
constexpr int32_t FOCUS_OPT_GAIJI_VISIBLE = 5;
constexpr int32_t FOCUS_OPT_SYLLABLE = 6;
constexpr int32_t FOCUS_OPT_PHONETIC = 7;
constexpr int32_t FOCUS_BTN_SEARCH = 8;
constexpr int32_t FOCUS_BTN_OPEN = 9;
constexpr int32_t FOCUS_BTN_CLOSE = 10;
constexpr int32_t FOCUS_BTN_MANAGE = 11;
constexpr int32_t FOCUS_BTN_ADD = 12;
constexpr int32_t FOCUS_BTN_DELETE = 13;
constexpr int32_t FOCUS_BTN_REGISTER = 14;
constexpr int32_t FOCUS_BTN_CANCEL = 15;
constexpr int32_t FOCUS_BTN_APPLY = 16;
constexpr int32_t FOCUS_EDIT_WORD = 17;
constexpr int32_t FOCUS_EDIT_NAME = 18;
constexpr int32_t FOCUS_EDIT_ARTICLE = 19;

constexpr int32_t FIRST_LIST_FOCUS = FOCUS_DICT_LIST;
constexpr int32_t LAST_LIST_FOCUS = FOCUS_OPT_PHONETIC;
constexpr int32_t FIRST_BUTTON_FOCUS = FOCUS_BTN_SEARCH;
constexpr int32_t LAST_BUTTON_FOCUS = FOCUS_BTN_APPLY;
constexpr int32_t FIRST_EDIT_FOCUS = FOCUS_EDIT_WORD;
constexpr int32_t LAST_EDIT_FOCUS = FOCUS_EDIT_ARTICLE;
constexpr int32_t BUTTON_COUNT = LAST_BUTTON_FOCUS - FIRST_BUTTON_FOCUS + 1;
constexpr int32_t LIST_STATE_COUNT = LAST_LIST_FOCUS - FIRST_LIST_FOCUS + 1;

// The frame's own keys, which no control interprets. The codes the
// controls interpret (controls/control_keys.h) the frame compares by the
// controls' names: CK_ENTER activates, CK_BACK and CK_EXIT leave (CK_EXIT on
// screen 0 closes the application), CK_POPUP and CK_POPUP_CLOSE open and
// end the edit control's sub-state, CK_PREV and CK_NEXT move between the
// options of the settings screen and CK_NEXT_VALUE steps an option's value.
constexpr uint32_t KEY_PREV_CTRL = 28;   // previous control of the screen
constexpr uint32_t KEY_MENU = 58;        // opens the menu on screens 0 to 2
constexpr uint32_t KEY_NEXT_CTRL = 112;  // next control of the screen

// The code of every beep the screens ask for: the controls' own.
constexpr int BEEP_CODE = CONTROL_BEEP_CODE;

#endif  // APP_FRAME_IDS_H_
