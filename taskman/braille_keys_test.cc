// The display's keys as the reader's: commands, keyboard symbols, cells
// typed and the space bar's chords, routing keys.
#include "taskman/braille_keys.h"

#include <brlapi_constants.h>
#include <brlapi_keycodes.h>
#include <gtest/gtest.h>

#include "app/frame_ids.h"
#include "controls/control_keys.h"

namespace {

::testing::AssertionResult Means(uint64_t key, DisplayInput::Kind kind, uint32_t value) {
  const DisplayInput input = MapDisplayKey(key);
  if (input.kind == kind && input.value == value) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "key " << std::hex << key << " gives kind "
                                       << input.kind << " value " << std::dec << input.value;
}

constexpr uint64_t Passdots(uint32_t dots) {
  return BRLAPI_KEY_TYPE_CMD | BRLAPI_KEY_CMD_PASSDOTS | dots;
}

}  // namespace

TEST(BrailleKeysTest, CommandsSymbolsAndChordsBecomeTheReadersKeys) {
  EXPECT_TRUE(Means(BRLAPI_KEY_TYPE_CMD | BRLAPI_KEY_CMD_LNUP, DisplayInput::kKey, CK_PREV));
  EXPECT_TRUE(Means(BRLAPI_KEY_TYPE_CMD | BRLAPI_KEY_CMD_LNDN, DisplayInput::kKey, CK_NEXT));
  EXPECT_TRUE(Means(BRLAPI_KEY_TYPE_CMD | BRLAPI_KEY_CMD_PREFMENU, DisplayInput::kKey, KEY_MENU));
  EXPECT_TRUE(Means(BRLAPI_KEY_TYPE_CMD | BRLAPI_KEY_CMD_FWINRT, DisplayInput::kPanRight, 0));
  EXPECT_TRUE(Means(BRLAPI_KEY_TYPE_CMD | BRLAPI_KEY_CMD_FWINLT, DisplayInput::kPanLeft, 0));
  EXPECT_TRUE(Means(BRLAPI_KEY_TYPE_CMD | BRLAPI_KEY_CMD_ROUTE | 7, DisplayInput::kRoute, 7));
  EXPECT_TRUE(Means(BRLAPI_KEY_SYM_LINEFEED, DisplayInput::kKey, CK_ENTER));
  EXPECT_TRUE(Means(BRLAPI_KEY_SYM_ESCAPE, DisplayInput::kKey, CK_BACK));
  EXPECT_TRUE(Means(BRLAPI_KEY_SYM_FUNCTION + 9, DisplayInput::kKey, CK_EXIT));
  EXPECT_TRUE(Means(BRLAPI_KEY_SYM_FUNCTION + 0, DisplayInput::kKey, CK_HELP));
  EXPECT_TRUE(Means(BRLAPI_KEY_TYPE_CMD | BRLAPI_KEY_CMD_HELP, DisplayInput::kKey, CK_HELP));
  // Modifier flags don't change the key.
  EXPECT_TRUE(Means(BRLAPI_KEY_FLG_SHIFT | BRLAPI_KEY_SYM_TAB, DisplayInput::kKey, KEY_NEXT_CTRL));
  // Cells typed, the blank, dots 7 and 8, chords of the space bar.
  EXPECT_TRUE(Means(Passdots(BRLAPI_DOT1 | BRLAPI_DOT3 | BRLAPI_DOT6), DisplayInput::kDots, 0x25));
  EXPECT_TRUE(Means(Passdots(BRLAPI_DOTC), DisplayInput::kDots, 0));
  EXPECT_TRUE(Means(Passdots(BRLAPI_DOT7), DisplayInput::kKey, CK_BACKSPACE));
  EXPECT_TRUE(Means(Passdots(BRLAPI_DOT8), DisplayInput::kKey, CK_ENTER));
  EXPECT_TRUE(Means(Passdots(BRLAPI_DOTC | BRLAPI_DOT4 | BRLAPI_DOT5), DisplayInput::kKey,
                    KEY_NEXT_CTRL));
  EXPECT_TRUE(Means(Passdots(BRLAPI_DOTC | BRLAPI_DOT1), DisplayInput::kKey, CK_PREV));
  EXPECT_TRUE(Means(Passdots(BRLAPI_DOTC | BRLAPI_DOT1 | BRLAPI_DOT2 | BRLAPI_DOT3 | BRLAPI_DOT4),
                    DisplayInput::kKey, CK_POSITION));
  // Characters: a Braille pattern is a cell, others text.
  EXPECT_TRUE(Means(BRLAPI_KEY_SYM_UNICODE | 0x2825, DisplayInput::kDots, 0x25));
  EXPECT_TRUE(Means(BRLAPI_KEY_SYM_UNICODE | 0x306F, DisplayInput::kText, 0x306F));
  EXPECT_TRUE(Means('a', DisplayInput::kText, 'a'));
  // What means nothing here.
  EXPECT_TRUE(Means(BRLAPI_KEY_TYPE_CMD | BRLAPI_KEY_CMD_NOOP, DisplayInput::kNone, 0));
  EXPECT_TRUE(Means(BRLAPI_KEY_SYM_INSERT, DisplayInput::kNone, 0));
  EXPECT_TRUE(Means(Passdots(BRLAPI_DOTC | BRLAPI_DOT2 | BRLAPI_DOT8), DisplayInput::kNone, 0));
}
