// The numbers the frame and its screens share: routing levels, screens,
// focus ids and the key codes that the handlers compare. Every key not
// named here passes to the focused control.
#ifndef APP_FRAME_IDS_H_
#define APP_FRAME_IDS_H_

#include <cstdint>

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

constexpr uint32_t KEY_OPTION_VALUE = 16;      // settings: next value of the option
constexpr uint32_t KEY_OPTION_UP = 24;         // settings: previous option
constexpr uint32_t KEY_OPTION_UP_ALT = 8192;   // the same
constexpr uint32_t KEY_PREV_CTRL = 28;         // previous control of the screen
constexpr uint32_t KEY_EDIT_POPUP = 41;        // on a field: the edit control's sub-state
constexpr uint32_t KEY_OPTION_DOWN = 48;       // settings: next option
constexpr uint32_t KEY_OPTION_DOWN_ALT = 16384;  // the same
constexpr uint32_t KEY_MENU = 58;              // opens the menu on screens 0 to 2
constexpr uint32_t KEY_BACK = 88;              // leaves a screen, menu, prompt or sub-state
constexpr uint32_t KEY_EDIT_CLOSE = 106;       // ends the edit sub-state
constexpr uint32_t KEY_NEXT_CTRL = 112;        // next control of the screen
constexpr uint32_t KEY_EXIT = 218;             // screen 0: closes the application; else as 88
constexpr uint32_t KEY_YES = 234;              // the prompt's yes; ends the edit sub-state
constexpr uint32_t KEY_ENTER = 256;            // activates the focused control

// The code of every beep the screens ask for.
constexpr int BEEP_CODE = 32;

#endif  // APP_FRAME_IDS_H_
