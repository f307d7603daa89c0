// The menu of the lookup screens. It is built afresh each time it opens,
// from kMainMenu: three groups (close, go to, options), each holding the
// entries that make sense on the screen it opens over. The entries carry
// no labels of their own: the menu control finds the text of each id in
// "EPWING_MENU.lng".
#ifndef APP_MAIN_MENU_H_
#define APP_MAIN_MENU_H_

#include <cstdint>

constexpr unsigned MENU_GROUP_CLOSE = 1;      // holds MENU_CLOSE
constexpr unsigned MENU_CLOSE = 2;            // closes the application
constexpr unsigned MENU_TO_SEARCH = 3;        // back to the search screen's dictionary list
constexpr unsigned MENU_GROUP_GOTO = 4;       // holds MENU_TO_SEARCH or MENU_TO_DICTIONARIES
constexpr unsigned MENU_TO_DICTIONARIES = 5;  // to the dictionary management screen
constexpr unsigned MENU_GROUP_OPTIONS = 6;    // holds MENU_TO_SETTINGS
constexpr unsigned MENU_TO_SETTINGS = 7;      // to the settings screen

// One entry, as it goes to AddMenu.
struct MainMenuEntry {
  unsigned id;        // what GetSelectID gives when it is chosen
  unsigned parent;    // id of the group it stands in; 0 at the top level
  unsigned keyValue;  // the key value handed to the menu control
  int hasChildren;    // 1 for a group
  uint32_t screens;   // bit n set: present when the menu opens over screen n
};

constexpr uint32_t MENU_ON_SEARCH = 1u << 0;   // SCREEN_SEARCH
constexpr uint32_t MENU_ON_RESULTS = 1u << 1;  // SCREEN_RESULTS
constexpr uint32_t MENU_ON_ARTICLE = 1u << 2;  // SCREEN_ARTICLE
constexpr uint32_t MENU_ON_ALL = MENU_ON_SEARCH | MENU_ON_RESULTS | MENU_ON_ARTICLE;

// In the order they are added; a group comes before its entries.
inline constexpr MainMenuEntry kMainMenu[] = {
    {MENU_GROUP_CLOSE, 0, 44, 1, MENU_ON_ALL},
    {MENU_CLOSE, MENU_GROUP_CLOSE, 202, 0, MENU_ON_ALL},
    {MENU_GROUP_GOTO, 0, 72, 1, MENU_ON_ALL},
    {MENU_TO_SEARCH, MENU_GROUP_GOTO, 44, 0, MENU_ON_RESULTS | MENU_ON_ARTICLE},
    {MENU_TO_DICTIONARIES, MENU_GROUP_GOTO, 104, 0, MENU_ON_SEARCH},
    {MENU_GROUP_OPTIONS, 0, 74, 1, MENU_ON_ALL},
    {MENU_TO_SETTINGS, MENU_GROUP_OPTIONS, 74, 0, MENU_ON_ALL},
};

#endif  // APP_MAIN_MENU_H_
