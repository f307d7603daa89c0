// The key codes the controls interpret. The frame's own names for the
// codes it compares live with the frame; these name what a code means
// inside a control. Cursor-routing keys come apart from these, as the
// number of a Braille cell.
#ifndef CONTROLS_CONTROL_KEYS_H_
#define CONTROLS_CONTROL_KEYS_H_

#include <cstdint>

constexpr uint32_t CK_PREV = 24;          // previous item, entry, choice or line
constexpr uint32_t CK_PREV_ALT = 8192;    // the same
constexpr uint32_t CK_NEXT = 48;          // next item, entry, choice or line
constexpr uint32_t CK_NEXT_ALT = 16384;   // the same
constexpr uint32_t CK_POPUP = 41;         // edit control: opens its editing menu
constexpr uint32_t CK_BACK = 88;          // closes without a choice
constexpr uint32_t CK_POPUP_CLOSE = 106;  // edit control: closes its editing menu
constexpr uint32_t CK_EXIT = 218;         // closes without a choice
constexpr uint32_t CK_YES = 234;          // prompt: yes at once; answer value of yes
constexpr uint32_t CK_ENTER = 256;        // opens or chooses

// Edit control: moving and deleting in the text.
constexpr uint32_t CK_BACKSPACE = 64;    // deletes the character before the cursor
constexpr uint32_t CK_CHAR_LEFT = 1024;  // cursor one character back
constexpr uint32_t CK_CHAR_RIGHT = 2048; // cursor one character on
constexpr uint32_t CK_DELETE = 4096;     // deletes the character at the cursor
constexpr uint32_t CK_LINE_START = 512;  // cursor to the start of its line
constexpr uint32_t CK_LINE_END = 32768;  // cursor to the end of its line

// A value line: the next value. The screen that shows the value takes the
// key; the field names it in its help.
constexpr uint32_t CK_NEXT_VALUE = 16;

// Every control: telling the user where they are and what the keys do.
// The frame compares neither, so they reach the control in view.
constexpr uint32_t CK_HELP = 65536;       // says the keys of the control in focus and the common ones
constexpr uint32_t CK_POSITION = 131072;  // says the position: item or line n of N ("3/12")

// True for the keys that move back or on in a list, menu or prompt.
constexpr bool IsPrevKey(uint32_t key) { return key == CK_PREV || key == CK_PREV_ALT; }
constexpr bool IsNextKey(uint32_t key) { return key == CK_NEXT || key == CK_NEXT_ALT; }

#endif  // CONTROLS_CONTROL_KEYS_H_
