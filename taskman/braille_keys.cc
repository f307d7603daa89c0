#include "taskman/braille_keys.h"

#include <brlapi_constants.h>
#include <brlapi_keycodes.h>

#include "app/frame_ids.h"
#include "braille/brlapi_display.h"
#include "controls/control_keys.h"
#include "platform/utf16_units.h"

namespace {

struct KeyPair {
  uint64_t from;  // BRLTTY's command or the keyboard's symbol
  uint32_t to;    // the reader's key code
};

// Commands without an argument.
constexpr KeyPair kCommands[] = {
    {BRLAPI_KEY_CMD_LNUP, CK_PREV},           {BRLAPI_KEY_CMD_LNDN, CK_NEXT},
    {BRLAPI_KEY_CMD_PRDIFLN, CK_PREV_ALT},    {BRLAPI_KEY_CMD_NXDIFLN, CK_NEXT_ALT},
    {BRLAPI_KEY_CMD_CHRLT, CK_CHAR_LEFT},     {BRLAPI_KEY_CMD_CHRRT, CK_CHAR_RIGHT},
    {BRLAPI_KEY_CMD_LNBEG, CK_LINE_START},    {BRLAPI_KEY_CMD_LNEND, CK_LINE_END},
    {BRLAPI_KEY_CMD_TOP, CK_LINE_START},      {BRLAPI_KEY_CMD_BOT, CK_LINE_END},
    {BRLAPI_KEY_CMD_PREFMENU, KEY_MENU},      {BRLAPI_KEY_CMD_HOME, CK_POPUP},
    {BRLAPI_KEY_CMD_RETURN, CK_BACK},         {BRLAPI_KEY_CMD_HELP, CK_HELP},
};

// Keyboard symbols.
constexpr KeyPair kSymbols[] = {
    {BRLAPI_KEY_SYM_LINEFEED, CK_ENTER},       {BRLAPI_KEY_SYM_ESCAPE, CK_BACK},
    {BRLAPI_KEY_SYM_TAB, KEY_NEXT_CTRL},       {BRLAPI_KEY_SYM_BACKSPACE, CK_BACKSPACE},
    {BRLAPI_KEY_SYM_DELETE, CK_DELETE},        {BRLAPI_KEY_SYM_UP, CK_PREV},
    {BRLAPI_KEY_SYM_DOWN, CK_NEXT},            {BRLAPI_KEY_SYM_LEFT, CK_CHAR_LEFT},
    {BRLAPI_KEY_SYM_RIGHT, CK_CHAR_RIGHT},     {BRLAPI_KEY_SYM_HOME, CK_LINE_START},
    {BRLAPI_KEY_SYM_END, CK_LINE_END},         {BRLAPI_KEY_SYM_PAGE_UP, CK_PREV_ALT},
    {BRLAPI_KEY_SYM_PAGE_DOWN, CK_NEXT_ALT},   {BRLAPI_KEY_SYM_FUNCTION + 0, CK_HELP},
    {BRLAPI_KEY_SYM_FUNCTION + 1, KEY_MENU},   {BRLAPI_KEY_SYM_FUNCTION + 2, CK_POSITION},
    {BRLAPI_KEY_SYM_FUNCTION + 4, CK_NEXT_VALUE}, {BRLAPI_KEY_SYM_FUNCTION + 9, CK_EXIT},
};

constexpr uint32_t kDot7 = BRLAPI_DOT7;
constexpr uint32_t kDot8 = BRLAPI_DOT8;
constexpr uint32_t kSpace = BRLAPI_DOTC;

DisplayInput Key(uint32_t code) { return {DisplayInput::kKey, code}; }

// One character as UTF-16.
CString Character(uint32_t code) {
  std::u16string units;
  AppendCodePoint(units, code);
  return CString(units);
}

// A cell typed: dot 7 alone erases, dot 8 alone is Enter. Chords of the
// space bar are the keys of a note-taker without arrows: with dot 1 / 4
// up / down, 3 / 6 cursor left / right, 4-5 / 1-2 Tab / Shift-Tab, 1-3-4
// (m) menu, 1-2-5 back, 1-2-3-4-5-6 exit, 1-3-4-5-6 (y) yes, 2-3-5 the
// edit field's menu, 1-3-6 next value, 2-3-6 (?) help, 1-2-3-4 (p)
// position, 7 delete.
DisplayInput Dots(uint32_t dots) {
  if (dots == kDot7) return Key(CK_BACKSPACE);
  if (dots == kDot8) return Key(CK_ENTER);
  if ((dots & kSpace) == 0) return {DisplayInput::kDots, dots & 0xFF};
  switch (dots & ~kSpace) {
    case 0: return {DisplayInput::kDots, 0};
    case BRLAPI_DOT1: return Key(CK_PREV);
    case BRLAPI_DOT4: return Key(CK_NEXT);
    case BRLAPI_DOT3: return Key(CK_CHAR_LEFT);
    case BRLAPI_DOT6: return Key(CK_CHAR_RIGHT);
    case BRLAPI_DOT4 | BRLAPI_DOT5: return Key(KEY_NEXT_CTRL);
    case BRLAPI_DOT1 | BRLAPI_DOT2: return Key(KEY_PREV_CTRL);
    case BRLAPI_DOT1 | BRLAPI_DOT3 | BRLAPI_DOT4: return Key(KEY_MENU);
    case BRLAPI_DOT1 | BRLAPI_DOT2 | BRLAPI_DOT5: return Key(CK_BACK);
    case BRLAPI_DOT1 | BRLAPI_DOT2 | BRLAPI_DOT3 | BRLAPI_DOT4 | BRLAPI_DOT5 | BRLAPI_DOT6:
      return Key(CK_EXIT);
    case BRLAPI_DOT1 | BRLAPI_DOT3 | BRLAPI_DOT4 | BRLAPI_DOT5 | BRLAPI_DOT6: return Key(CK_YES);
    case BRLAPI_DOT2 | BRLAPI_DOT3 | BRLAPI_DOT5: return Key(CK_POPUP);
    case BRLAPI_DOT1 | BRLAPI_DOT3 | BRLAPI_DOT6: return Key(CK_NEXT_VALUE);
    case BRLAPI_DOT2 | BRLAPI_DOT3 | BRLAPI_DOT6: return Key(CK_HELP);
    case BRLAPI_DOT1 | BRLAPI_DOT2 | BRLAPI_DOT3 | BRLAPI_DOT4: return Key(CK_POSITION);
    case kDot7: return Key(CK_DELETE);
    default: return {};
  }
}

}  // namespace

DisplayInput MapDisplayKey(uint64_t key) {
  const uint64_t code = key & BRLAPI_KEY_CODE_MASK;
  if ((key & BRLAPI_KEY_TYPE_MASK) == BRLAPI_KEY_TYPE_CMD) {
    const uint64_t block = code & BRLAPI_KEY_CMD_BLK_MASK;
    const uint32_t argument = static_cast<uint32_t>(code & BRLAPI_KEY_CMD_ARG_MASK);
    if (block == BRLAPI_KEY_CMD_ROUTE) return {DisplayInput::kRoute, argument};
    if (block == BRLAPI_KEY_CMD_PASSDOTS) return Dots(argument);
    if (code == BRLAPI_KEY_CMD_FWINLT || code == BRLAPI_KEY_CMD_FWINLTSKIP)
      return {DisplayInput::kPanLeft, 0};
    if (code == BRLAPI_KEY_CMD_FWINRT || code == BRLAPI_KEY_CMD_FWINRTSKIP)
      return {DisplayInput::kPanRight, 0};
    for (const KeyPair& pair : kCommands)
      if (pair.from == code) return Key(pair.to);
    return {};
  }
  for (const KeyPair& pair : kSymbols)
    if (pair.from == code) return Key(pair.to);
  // A character: a Braille pattern is a cell typed, anything else text.
  const uint32_t character = KeyCharacter(key);
  if (character >= 0x2800 && character <= 0x28FF) return Dots(character - 0x2800);
  if (character >= 0x20 && character <= 0x10FFFF && character != 0x7F)
    return {DisplayInput::kText, character};
  return {};
}

bool NextBrailleAction(BraillePresenter& braille, TaskAction& action) {
  uint64_t key = 0;
  while (braille.ReadKey(key)) {
    const DisplayInput input = MapDisplayKey(key);
    action = TaskAction();
    switch (input.kind) {
      case DisplayInput::kNone:
        continue;
      case DisplayInput::kPanLeft:
      case DisplayInput::kPanRight:
        braille.Pan(input.kind == DisplayInput::kPanLeft ? -1 : 1);
        continue;
      case DisplayInput::kKey:
        action.number = input.value;
        return true;
      case DisplayInput::kRoute:
        action.kind = TaskAction::kCursor;
        action.number = static_cast<uint32_t>(braille.UnitAt(static_cast<int>(input.value)));
        return true;
      case DisplayInput::kDots:
        action.kind = TaskAction::kDots;
        action.text = CString(std::u16string(1, static_cast<char16_t>(input.value)));
        return true;
      case DisplayInput::kText:
        action.kind = TaskAction::kText;
        action.text = Character(input.value);
        return true;
    }
  }
  return false;
}
