// The Braille line on a fake display: translated, cut to the window,
// panned, the cursor shown where the edit field has it, routing keys read
// back to units of the line, and a display that goes away.
#include "braille/braille_presenter.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "testing/fake_braille_display.h"
#include "testing/notice_stream.h"

namespace {

// A translation where a word of kanji makes two cells, both from its first
// kanji, a blank at the end none, and anything else one cell.
std::u16string Cells(std::u16string_view text, std::vector<int>& sources) {
  std::u16string cells;
  sources.clear();
  for (size_t at = 0; at < text.size(); ++at) {
    const bool kanji = text[at] >= 0x4E00;
    if (kanji && at > 0 && text[at - 1] >= 0x4E00) continue;
    if (text[at] == u' ' && at + 1 == text.size()) continue;
    cells += kanji ? std::u16string(u"⠓⠁") : std::u16string(1, 0x2800 + (text[at] & 0x3F));
    sources.resize(cells.size(), static_cast<int>(at));
  }
  return cells;
}

}  // namespace

TEST(BraillePresenterTest, ShowsTheWindowPansAndFollowsTheCursor) {
  FakeDisplay display(4);
  Notices notices;
  BraillePresenter braille(display, Cells, notices.File());
  ASSERT_TRUE(braille.Start());
  braille.ShowBraille(u"語ABCDEF");  // 8 cells
  EXPECT_EQ(display.written.back(), u"⠓⠁⠁⠂");
  EXPECT_EQ(display.cursors.back(), -1);
  EXPECT_TRUE(braille.Pan(1));
  EXPECT_EQ(display.written.back(), u"⠃⠄⠅⠆");
  EXPECT_FALSE(braille.Pan(1));  // the line ends in this window
  EXPECT_TRUE(braille.Pan(-1));
  EXPECT_FALSE(braille.Pan(-1));
  // The cursor before "E" (unit 5) is cell 6: in the second window.
  braille.ShowBrailleCursor(5);
  EXPECT_EQ(braille.WindowStart(), 4);
  EXPECT_EQ(display.cursors.back(), 2);
  // Behind the end of the line.
  braille.ShowBrailleCursor(7);
  EXPECT_EQ(display.written.back(), u"");
  EXPECT_EQ(display.cursors.back(), 0);
  // A new line starts at its beginning, without a cursor.
  braille.ShowBraille(u"AB");
  EXPECT_EQ(braille.WindowStart(), 0);
  EXPECT_EQ(display.written.back(), u"⠁⠂");
  EXPECT_EQ(notices.Text(), "");
}

TEST(BraillePresenterTest, RoutingKeysNameTheUnitUnderTheCell) {
  FakeDisplay display(4);
  Notices notices;
  BraillePresenter braille(display, Cells, notices.File());
  ASSERT_TRUE(braille.Start());
  braille.ShowBraille(u"語ABCDEF");
  EXPECT_EQ(braille.UnitAt(0), 0);  // both cells of the kanji
  EXPECT_EQ(braille.UnitAt(1), 0);
  EXPECT_EQ(braille.UnitAt(2), 1);
  EXPECT_EQ(braille.UnitAt(3), 2);
  ASSERT_TRUE(braille.Pan(1));
  EXPECT_EQ(braille.UnitAt(0), 3);
  EXPECT_EQ(braille.UnitAt(3), 6);
  EXPECT_EQ(braille.UnitAt(39), 7);  // behind the end

  // Within a word whose cells all come from its first character, the
  // cursor is on the word's first cell.
  braille.ShowBraille(u"AB語彙C");
  braille.ShowBrailleCursor(3);
  EXPECT_EQ(display.cursors.back(), 2);
  braille.ShowBrailleCursor(4);
  EXPECT_EQ(display.cursors.back(), 0);  // in the second window
  EXPECT_EQ(braille.UnitAt(0), 4);
  braille.ShowBrailleCursor(0);
  EXPECT_EQ(braille.UnitAt(3), 2);

  // On a blank without a cell of its own the cursor stands behind the cells
  // before it, not on the last of them.
  braille.ShowBraille(u"AB ");
  braille.ShowBrailleCursor(2);
  EXPECT_EQ(display.cursors.back(), 2);
}

TEST(BraillePresenterTest, WithoutADisplayOrOnceItIsLostItSaysSoOnceAndGoesOn) {
  FakeDisplay none(4, false);
  Notices notices;
  BraillePresenter absent(none, Cells, notices.File());
  EXPECT_FALSE(absent.Start());
  absent.ShowBraille(u"AB");
  EXPECT_TRUE(none.written.empty());
  EXPECT_EQ(notices.Text(), "epwingdict: no Braille display: fake cannot be used (no server)\n");
  EXPECT_FALSE(absent.Reconnect());  // quietly
  none.refusals = 0;                 // BRLTTY has started: the line at once
  EXPECT_TRUE(absent.Reconnect());
  EXPECT_EQ(none.written, std::vector<std::u16string>{u"⠁⠂"});
  EXPECT_EQ(notices.Text(),
            "epwingdict: no Braille display: fake cannot be used (no server)\n"
            "epwingdict: the Braille display of fake is back\n");

  FakeDisplay display(4);
  display.failAt = 2;
  Notices lost;
  BraillePresenter braille(display, Cells, lost.File());
  ASSERT_TRUE(braille.Start());
  braille.ShowBraille(u"AB");
  braille.ShowBraille(u"CD");
  braille.ShowBraille(u"EF");
  EXPECT_FALSE(braille.Connected());
  EXPECT_EQ(display.written, std::vector<std::u16string>{u"⠁⠂"});
  EXPECT_EQ(lost.Text(),
            "epwingdict: the Braille display of fake was lost (gone); Braille goes on on the "
            "terminal until it is back\n");
  uint64_t key = 0;
  EXPECT_FALSE(braille.ReadKey(key));
  EXPECT_EQ(braille.KeyDescriptor(), -1);
}

TEST(BraillePresenterTest, KeysComeUntilTheDisplayIsLost) {
  FakeDisplay display(4);
  display.keys = {7, 8};
  Notices notices;
  BraillePresenter braille(display, Cells, notices.File());
  ASSERT_TRUE(braille.Start());
  display.keysLost = true;
  uint64_t key = 0;
  ASSERT_TRUE(braille.ReadKey(key));
  EXPECT_EQ(key, 7u);
  ASSERT_TRUE(braille.ReadKey(key));
  EXPECT_EQ(key, 8u);
  EXPECT_FALSE(braille.ReadKey(key));
  EXPECT_FALSE(braille.Connected());
  EXPECT_NE(notices.Text().find("was lost (gone)"), std::string::npos);
}
