#include "braille/brlapi_display.h"

#include <brlapi.h>

#include <string>

#include "platform/utf8_text.h"

namespace {

// The library's words for the failure at hand.
std::string LibraryError() { return brlapi_strerror(&brlapi_error); }

// Errors the server sends on its own: the library's default handler ends
// the program. Here they are left to the next call, which fails and tells.
void KeepGoing(int, brlapi_packetType_t, const void*, size_t) {}

}  // namespace

uint32_t KeyCharacter(uint64_t key) {
  if ((key & BRLAPI_KEY_TYPE_MASK) != BRLAPI_KEY_TYPE_SYM) return 0;
  const uint64_t code = key & BRLAPI_KEY_CODE_MASK;
  if ((code & 0xFF000000) == BRLAPI_KEY_SYM_UNICODE) return static_cast<uint32_t>(code & 0xFFFFFF);
  return code >= 0x20 && code < 0x100 ? static_cast<uint32_t>(code) : 0;
}

BrlapiDisplay::~BrlapiDisplay() {
  if (descriptor_ < 0) return;
  Release();
  brlapi_closeConnection();
}

bool BrlapiDisplay::Lost(std::string& why) {
  why = LibraryError();
  if (descriptor_ >= 0) brlapi_closeConnection();
  descriptor_ = -1;
  taken_ = false;
  return false;
}

bool BrlapiDisplay::Open(std::string& why) {
  if (descriptor_ >= 0) {  // opened again: the old connection goes first
    Release();
    brlapi_closeConnection();
    descriptor_ = -1;
  }
  brlapi_setExceptionHandler(KeepGoing);
  descriptor_ = brlapi_openConnection(nullptr, nullptr);
  if (descriptor_ < 0) {
    why = LibraryError();
    descriptor_ = -1;
    return false;
  }
  unsigned int x = 0, y = 0;
  if (brlapi_getDisplaySize(&x, &y) < 0) return Lost(why);
  if (x == 0) {
    why = "the display has no cells";
    brlapi_closeConnection();
    descriptor_ = -1;
    return false;
  }
  width_ = static_cast<int>(x);
  return Take(why);
}

bool BrlapiDisplay::Take(std::string& why) {
  // The Braille keyboard's cells are asked for as dots, which the reader
  // reads as Japanese Braille. Where BRLTTY still makes characters of them
  // (through its text table), ReadKey turns them back into their cells.
  const brlapi_param_retainDots_t retain = 1;
  brlapi_setParameter(BRLAPI_PARAM_RETAIN_DOTS, 0, BRLAPI_PARAMF_LOCAL, &retain, sizeof retain);
  rows_.clear();
  if (brlapi_enterTtyMode(BRLAPI_TTY_DEFAULT, nullptr) < 0 &&
      brlapi_enterTtyModeWithPath(nullptr, 0, nullptr) < 0)
    return Lost(why);
  taken_ = true;
  return true;
}

bool BrlapiDisplay::Write(const std::u16string& cells, int cursor, std::string& why) {
  if (!taken_) {
    why = "the display is not ours";
    return false;
  }
  std::u16string shown = cells.substr(0, static_cast<size_t>(width_));
  shown.resize(static_cast<size_t>(width_), u'\u2800');
  const std::string text = ToUtf8(std::u16string_view(shown));
  brlapi_writeArguments_t arguments = BRLAPI_WRITEARGUMENTS_INITIALIZER;
  arguments.regionBegin = 1;
  arguments.regionSize = width_;
  arguments.text = text.c_str();
  arguments.textSize = static_cast<int>(text.size());
  arguments.charset = "UTF-8";
  arguments.cursor = cursor >= 0 && cursor < width_ ? cursor + 1 : BRLAPI_CURSOR_OFF;
  if (brlapi_write(&arguments) < 0) return Lost(why);
  return true;
}

int BrlapiDisplay::ReadKey(uint64_t& key, std::string& why) {
  if (descriptor_ < 0) {
    why = "not connected";
    return -1;
  }
  brlapi_keyCode_t code = 0;
  const int got = brlapi_readKey(0, &code);
  if (got < 0) {
    Lost(why);
    return -1;
  }
  key = got > 0 ? TypedCell(code) : code;
  return got;
}

uint64_t BrlapiDisplay::TypedCell(uint64_t key) {
  const uint32_t character = KeyCharacter(key);
  if (character == 0) return key;
  const uint32_t row = character >> 8;
  auto found = rows_.find(row);
  if (found == rows_.end()) {
    brlapi_param_computerBrailleRowCells_t cells{};
    if (brlapi_getParameter(BRLAPI_PARAM_COMPUTER_BRAILLE_ROW_CELLS, row, BRLAPI_PARAMF_GLOBAL,
                            &cells, sizeof cells) != static_cast<ssize_t>(sizeof cells))
      cells = {};  // a row the table leaves out: nothing defined
    found = rows_.emplace(row, cells).first;
  }
  const uint8_t column = static_cast<uint8_t>(character & 0xFF);
  if ((found->second.defined[column / 8] & (1u << (column % 8))) == 0) return key;
  return BRLAPI_KEY_TYPE_CMD | BRLAPI_KEY_CMD_PASSDOTS | found->second.cells[column];
}

void BrlapiDisplay::Release() {
  if (!taken_) return;
  brlapi_leaveTtyMode();
  taken_ = false;
}

bool BrlapiDisplay::Retake(std::string& why) {
  if (descriptor_ < 0) {
    why = "not connected";
    return false;
  }
  return taken_ || Take(why);
}
