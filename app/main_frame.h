// CMainFrame: the reader's one frame window. Nobody looks at it: it owns
// the controls and every list of the application, receives the keys and
// the device's events, and keeps the screen state. Exactly one control has
// the focus at a time; the one list box and the one edit control are
// rebuilt for each change of focus (app/renderer.cc), so the frame, not
// the controls, holds what the user selected and typed.
//
// A Braille key goes by routingMode to the menu, the prompt, or
// HandleScreenKey: there the current screen's key handler runs, and a key
// that it leaves goes to the focused control (app/key_routing.cc).
#ifndef APP_MAIN_FRAME_H_
#define APP_MAIN_FRAME_H_

#include <cstdint>
#include <memory>
#include <span>

#include "app/frame_ids.h"
#include "app/frame_window.h"
#include "books/books.h"
#include "controls/vek_button_ctrl.h"
#include "controls/vek_edit.h"
#include "controls/vek_file_dialog.h"
#include "controls/vek_listbox_ctrl.h"
#include "controls/vek_menu_ctrl.h"
#include "controls/vek_prompt_ctrl.h"
#include "platform/wide_string.h"
#include "results/gaiji_mapping.h"
#include "books/result_item.h"
#include "store/dictionary_list.h"
#include "books/display_options.h"

// The selection a list focus id left behind.
struct ListState {
  int32_t selection = 0;  // list index; users compare it with the count before use
  CString text;           // the item at that index when it was saved; may be empty
};

class CMainFrame : public CVekFrameWnd {
 public:
  // No controls yet (a test may put its own in before creation); empty
  // lists; announcements on; the five options at their defaults.
  explicit CMainFrame(Books& books);
  ~CMainFrame() override;

  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

  // Set-up steps of creation (app/main_frame.cc).
  void CreateControls();
  void AttachControlWindows();
  void DiscoverBooks();
  void LoadSettings();
  void SaveSettings();

  // Output to the user outside a control's own presentation: a message on
  // Braille and speech through editCtrl (nothing while muted), and a beep
  // that the task manager sounds.
  void Announce(CString text, int a, int b, int sync);
  void NotifyBeep(int code);

  // Key handling (app/key_routing.cc).
  void OnBrailleKeyMessage(uint32_t key, long lParam);
  void OnCursorKeyMessage(uint32_t key, long lParam);
  void HandleScreenKey(uint32_t key, long lParam);
  unsigned HandleMenuKey(uint32_t key, long lParam);
  unsigned HandlePromptKey(uint32_t key, long lParam);
  // The key handler of the current screen: 1 when it dealt with the key.
  int ScreenKey(uint32_t key, long lParam);
  int SearchScreenKey(uint32_t key, long lParam);
  int ResultScreenKey(uint32_t key, long lParam);
  int ArticleScreenKey(uint32_t key, long lParam);
  int DictionaryScreenKey(uint32_t key, long lParam);
  int RegisterScreenKey(uint32_t key, long lParam);
  int SettingsScreenKey(uint32_t key, long lParam);

  // The menu of the lookup screens: built for the current screen and
  // opened; its keys come to HandleMenuKey (app/main_menu.cc).
  void OpenMainMenu();
  // Looks `word` up in the dictionary `entry` into ArticleList,
  // CandidateList and GaijiTable, as typed: when it finds no article, its
  // forms in turn (results/typed_lookup.h); `foundAs` is the form that found
  // the articles listed, empty for the word itself. 0, kLookupStopped when
  // the run was stopped at its limits, or kLookupNoBook when the folder
  // holds no book any more (app/lookup_run.cc).
  int32_t LookupWord(const DictionaryEntry& entry, const CString& word, CString& foundAs);

  // The ways into the management and settings screens, for the button and
  // the menu of the lookup screens: each sets the screen up and renders.
  // OpenDictionaryScreen lands on the dictionary list (app/dictionary_screen.cc);
  // OpenSettingsScreen remembers the screen it came from and loads the
  // working copies of the options (app/settings_screen.cc).
  void OpenDictionaryScreen();
  void OpenSettingsScreen();
  // Runs the folder chooser from rootPath; the folder chosen, which also
  // becomes rootPath, or the empty string (app/register_screen.cc).
  CString ChooseFolder();

  // The renderer (app/renderer.cc). Both do nothing outside MODE_SCREEN.
  void SaveFocusState();
  void RenderFocus();
  void ShowEditField(CString label, CString text);
  void ShowArticleField(CString label, CString text);
  void ShowValueField(CString label, CString text);
  void ShowDictionaryList();
  void ShowBookList();
  void ShowResultList();
  void ShowCandidateList();
  void ShowGaijiReplaceOption();
  void ShowGaijiVisibleOption();
  void ShowSyllableOption();
  void ShowPhoneticOption();

  // A focus move on the current screen: SaveFocusState, `id` becomes
  // `focus` and the screen's remembered focus, RenderFocus.
  void MoveFocus(int32_t id);
  // KEY_NEXT_CTRL and KEY_PREV_CTRL move round `ring`, passing over `skip`
  // (app/focus_ring.h); false for any other key.
  bool StepRing(uint32_t key, std::span<const int32_t> ring, int32_t skip = -1);
  // Back to screen `to` on the control it had last: SaveFocusState first,
  // RenderFocus after.
  void ReturnToScreen(int32_t to);

  // The button of focus id 8 to 16, else null.
  CVekButtonCtrl* ButtonOf(int32_t focusId) const;

  std::unique_ptr<CVekMenuCtrl> menuCtrl;         // the menu
  std::unique_ptr<CVekFileDialog> fileDialog;     // the folder chooser
  std::unique_ptr<CVekEdit> editCtrl;             // fields, article, values, announcements
  std::unique_ptr<CVekButtonCtrl> searchButton;   // FOCUS_BTN_SEARCH
  std::unique_ptr<CVekButtonCtrl> openButton;     // FOCUS_BTN_OPEN
  std::unique_ptr<CVekButtonCtrl> closeButton;    // FOCUS_BTN_CLOSE
  std::unique_ptr<CVekButtonCtrl> manageButton;   // FOCUS_BTN_MANAGE
  std::unique_ptr<CVekButtonCtrl> addButton;      // FOCUS_BTN_ADD
  std::unique_ptr<CVekButtonCtrl> deleteButton;   // FOCUS_BTN_DELETE
  std::unique_ptr<CVekButtonCtrl> registerButton; // FOCUS_BTN_REGISTER
  std::unique_ptr<CVekButtonCtrl> cancelButton;   // FOCUS_BTN_CANCEL
  std::unique_ptr<CVekButtonCtrl> applyButton;    // FOCUS_BTN_APPLY
  std::unique_ptr<CVekListboxCtrl> listCtrl;      // the one list box
  std::unique_ptr<CVekPromptCtrl> promptCtrl;     // the yes/no prompt
  int32_t routingMode = MODE_SCREEN;              // MODE_MENU, MODE_SCREEN or MODE_PROMPT
  int32_t announceOn = 1;                         // 0 while muted: Announce says nothing
  int32_t editPopup = 0;                          // 1 while editCtrl is in the sub-state of key 41
  int32_t screen = SCREEN_SEARCH;                 // current screen
  int32_t focus = FOCUS_DICT_LIST;                // current focus id
  int32_t screenFocus[SCREEN_COUNT] = {};         // remembered focus id, by screen
  int32_t returnScreen = SCREEN_SEARCH;           // screen the settings screen was opened from
  DictionaryEntryArray DictionaryList;            // dictionaries offered for lookup
  ResultItemArray ArticleList;                    // articles of the latest lookup
  ResultItemArray CandidateList;                  // forward-match candidates of the latest lookup
  GaijiMappingArray GaijiTable;                   // Braille replacements of the latest lookup
  DictionaryEntryArray BookCandidateList;         // books of the folder just chosen
  CString rootPath;                               // folder the chooser opens in
  ListState listState[LIST_STATE_COUNT];          // by list focus id 0 to 7
  int32_t optionFocus = FOCUS_OPT_GAIJI_REPLACE;  // option the user left last on the settings screen
  CString searchWord;                             // the word typed at FOCUS_EDIT_WORD
  CStringArray BookTitleList;                     // editable title of each BookCandidateList entry
  CString articleText;                            // the article in view
  int32_t builtinCount = 0;                       // leading DictionaryList entries that stay
  DisplayOptions options;                         // the five options of the settings file
  Books& books;                                   // the dictionaries' books, asked for everything

 protected:
  int OnCreate() override;
  void OnClose();
  void OnCopyData(CWnd* window, tagCOPYDATASTRUCT* data);
  void OnSetting(WPARAM setting, LPARAM value);

 private:
  // One content list or option list of the list box (app/renderer.cc).
  void ShowContentList(const char16_t* label, const CStringArray& items, int32_t focusId);
  void ShowOptionList(const char16_t* label, const char16_t* off, const char16_t* on,
                      int32_t focusId);
  void ShowField(CString label, CString text, int multiLine, int control, bool readOnly);
  bool ControlsExist() const;

  // Steps of the lookup screens (app/search_screen.cc, app/result_screen.cc,
  // app/article_screen.cc, app/lookup_run.cc); each ends the handling of
  // its key. RunLookup announces, looks `word` up in the dictionary
  // selected on the search screen (a beep when there is none) and goes to
  // the results, or says that the dictionary has gone.
  void LookupTypedWord();
  void LookupCandidate();
  void RunLookup(const CString& word);
  void OpenArticle();
  // Steps of the management screens (app/dictionary_screen.cc,
  // app/register_screen.cc); each ends the handling of its key.
  void AddDictionary();
  void AskToDeleteDictionary();
  void RegisterBook();
  void CancelRegistering();
  // Steps of the settings screen (app/settings_screen.cc).
  void StepOptionValue();
  void ApplySettings();
  void LeaveSettingsScreen();
};

#endif  // APP_MAIN_FRAME_H_
