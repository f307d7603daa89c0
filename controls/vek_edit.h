// CVekEdit: the text field. One object serves as the one-line word and name
// fields, the read-only article text of several lines, the read-only option
// value, and the channel of announcements (PlayBrl, PlayTts).
//
// Presenting: SetFocus takes the focus (controls/control_focus.h). A line
// gets the cursor at the end of its text and shows and speaks the label and
// the text (an empty field is spoken as the label and "空欄"); a text of
// several lines gets the cursor at its start, shows the label and its first
// line, and reads the label and the whole text out, ending in "文末".
// Keys (controls/control_keys.h):
//   24, 8192 / 48, 16384  previous / next line; at the first or last line
//                         a beep is asked for and the line told again; in
//                         a one-line field both present the field again
//   1024 / 2048           cursor one character back / on; speaks the
//                         character now at the cursor
//   512 / 32768           cursor to the start / end of its line
//   64 / 4096             deletes before / at the cursor (writable only);
//                         speaks what went, or that nothing is there
//   41                    opens the editing menu: the sub-state below
//   CK_POSITION, CK_HELP  line (or character) "n/N"; the keys
// Typed text (OnReadJPNEditTXT) goes in at the cursor, which moves behind
// it, only while the field has the focus and is writable; a one-line field
// drops line breaks. Elsewhere typing is refused with a beep, and "?"
// presents the help.
//
// The sub-state of key 41, the editing menu: "全文を読む", "先頭へ",
// "末尾へ" and, when writable, "全文削除". 24/48 move among them; 256 or
// 234 carries out the one in view and closes the menu; 88 and 106 close it
// without doing anything; any other key presents the one in view again.
// These are the keys on which the frame ends its own sub-state.
#ifndef CONTROLS_VEK_EDIT_H_
#define CONTROLS_VEK_EDIT_H_

#include <cstdint>
#include <vector>

#include "controls/control_focus.h"
#include "controls/device_settings.h"
#include "controls/jpn_data.h"
#include "platform/wide_string.h"
#include "platform/window.h"

class CVekEdit : public FocusTaker {
 public:
  CVekEdit() = default;
  virtual ~CVekEdit() = default;

  virtual void SetLocalWnd(HWND wnd) { localWnd_ = wnd; }
  virtual void SetTaskWnd(HWND wnd) { taskWnd_ = wnd; }

  // Set-up of a field. Empty drops the text; the other constants are kept.
  virtual void Empty();
  virtual void SetMask(unsigned mask) { mask_ = mask; }
  virtual void SetAsciiOnly(unsigned asciiOnly) { asciiOnly_ = asciiOnly; }
  // 0 one line, nonzero several lines.
  virtual void SetMultiLine(int multiLine) { multiLine_ = multiLine != 0; }
  virtual void SetViewMode(unsigned viewMode) { viewMode_ = viewMode; }
  // Kind of field: 4 writable line, 7 reading text, 11 value line.
  virtual void SetControl(int control) { control_ = control; }
  virtual void SetLanguMode(int languMode) { languMode_ = languMode; }
  // Nonzero: the user can read and move, not change the text.
  virtual void SetReadOnlyMode(int readOnly) { readOnly_ = readOnly != 0; }
  virtual void SetLabel(CString label) { label_ = label; }
  // Replaces the text; the cursor goes to its start.
  virtual void SetText(CString text, int unused);
  virtual CString GetText(int unused);
  // Makes the field current and presents label and text: a line with the
  // cursor at its end; a text of several lines with the cursor at its
  // start, its first line on Braille, and read out whole.
  virtual void SetFocus(CString label, int unused);

  CString HelpTitle() const override;
  std::vector<KeyHelp> HelpKeys() const override;

  // Result nonzero when the key meant something to the field.
  virtual int OnBrailleKey(uint32_t key, long lParam);
  // The cursor goes under Braille cell `cell` of the line in view.
  virtual void OnBrailleCursor(unsigned cell, long lParam);

  // Announcements. PlayBrl with `start` 0 clears the display (the text is
  // not looked at, nothing is shown yet); any other `start` shows `text`.
  // `cursorCell` is kept for the device's cursor and has no effect here.
  virtual int PlayBrl(int start, CString text, int cursorCell);
  // Speaks `text`, synchronously after SetSync(1). The empty text silences
  // the utterance under way.
  virtual int PlayTts(CString text);
  virtual void SetSync(int sync) { sync_ = sync != 0; }

  // Device settings, kept.
  virtual void SetReadingGrade(unsigned grade) { settings_.readingGrade = grade; }
  virtual void SetAdvanceVoice(int voice) { settings_.advanceVoice = voice; }
  virtual void SetJpnLangMode(LANMODE mode) { settings_.jpnLangMode = mode; }
  virtual void SetJpnKeyMode(int mode) { settings_.jpnKeyMode = mode; }
  const DeviceSettings& Settings() const { return settings_; }

  // Read-all speaks the text from the start of the cursor's line to its
  // end, as one utterance. PositionAtReadStop puts the cursor `offset`
  // units behind where that reading began, as far as the text goes, and
  // presents its line; OnReadAllEnd stops the reading. A field without the
  // focus beeps at read-all and takes no stop.
  virtual void OnReadAll();
  virtual void OnReadAllEnd(int unused);
  virtual void PositionAtReadStop(unsigned offset, long lParam);

  // Typed Japanese text, inserted at the cursor.
  virtual void OnReadJPNEditTXT(_JPNDATA* data);

  // What the field holds now, for the frame's tests and our own.
  int Cursor() const { return cursor_; }
  bool InEditMenu() const { return menuOpen_; }
  bool IsReadOnly() const { return readOnly_; }
  bool IsMultiLine() const { return multiLine_; }
  int Control() const { return control_; }

 private:
  int LineStart(int position) const;
  int LineEnd(int position) const;
  CString CursorLine() const;
  // Shows `prefix` and the cursor's line on Braille, with the cursor.
  void ShowCursorLine(const CString& prefix);
  void PresentLine(bool withLabel);
  void PresentCharacter();
  void TellPosition();
  // How `text` is read out: its lines one after the other, and the end.
  CString ReadingOf(const CString& text) const;
  // Asks the task manager for a beep: a key that can't do what it asks.
  void Beep();
  void MoveToLine(bool next);
  void DeleteAt(int position);
  void Insert(const CString& typed);
  int EditMenuKey(uint32_t key);
  int EditMenuSize() const;
  CString EditMenuItem(int index) const;
  void PresentEditMenuItem();
  void RunEditMenuItem();

  HWND localWnd_ = 0;        // the frame's window
  HWND taskWnd_ = 0;         // the task manager's window
  unsigned mask_ = 0;        // set-up constant, kept
  unsigned asciiOnly_ = 0;   // set-up constant, kept
  unsigned viewMode_ = 0;    // set-up constant, kept
  int languMode_ = 0;        // set-up constant, kept
  int control_ = 4;          // kind of field
  bool multiLine_ = false;   // several lines
  bool readOnly_ = false;    // no changes by the user
  bool sync_ = false;        // PlayTts waits for its speech
  CString label_;            // goes ahead of the text
  CString text_;             // the field's text
  int cursor_ = 0;           // unit index in text_, 0 to its length
  int labelCells_ = 0;       // cells ahead of the text in the line in view
  int readStart_ = 0;        // where the latest read-all began
  bool menuOpen_ = false;    // the sub-state of key 41
  int menuIndex_ = 0;        // the editing menu's entry in view
  DeviceSettings settings_;  // passed through
};

#endif  // CONTROLS_VEK_EDIT_H_
