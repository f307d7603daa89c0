// The Braille line on a fake display: translated, cut to the window,
// panned, the cursor shown where the edit field has it, routing keys read
// back to units of the line, and a display that goes away.
#include "braille/braille_presenter.h"

#include <gtest/gtest.h>
#include <poll.h>

#include <chrono>
#include <cstdio>
#include <memory>
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

using std::chrono::milliseconds;

// True once `descriptor` is readable, within a while that only a broken
// wake-up runs out.
bool Readable(int descriptor) {
  pollfd wait{descriptor, POLLIN, 0};
  return descriptor >= 0 && poll(&wait, 1, 10000) == 1;
}

}  // namespace

TEST(BraillePresenterTest, ShowsTheWindowPansAndFollowsTheCursor) {
  auto display = std::make_shared<FakeDisplay>(4);
  Notices notices;
  BraillePresenter braille(display, Cells, notices.File());
  ASSERT_TRUE(braille.Start());
  braille.ShowBraille(u"語ABCDEF");  // 8 cells
  EXPECT_EQ(display->written.back(), u"⠓⠁⠁⠂");
  EXPECT_EQ(display->cursors.back(), -1);
  EXPECT_TRUE(braille.Pan(1));
  EXPECT_EQ(display->written.back(), u"⠃⠄⠅⠆");
  EXPECT_FALSE(braille.Pan(1));  // the line ends in this window
  EXPECT_TRUE(braille.Pan(-1));
  EXPECT_FALSE(braille.Pan(-1));
  // The cursor before "E" (unit 5) is cell 6: in the second window.
  braille.ShowBrailleCursor(5);
  EXPECT_EQ(braille.WindowStart(), 4);
  EXPECT_EQ(display->cursors.back(), 2);
  // Behind the end of the line.
  braille.ShowBrailleCursor(7);
  EXPECT_EQ(display->written.back(), u"");
  EXPECT_EQ(display->cursors.back(), 0);
  // A new line starts at its beginning, without a cursor.
  braille.ShowBraille(u"AB");
  EXPECT_EQ(braille.WindowStart(), 0);
  EXPECT_EQ(display->written.back(), u"⠁⠂");
  EXPECT_EQ(notices.Text(), "");
}

TEST(BraillePresenterTest, RoutingKeysNameTheUnitUnderTheCell) {
  auto display = std::make_shared<FakeDisplay>(4);
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
  EXPECT_EQ(display->cursors.back(), 2);
  braille.ShowBrailleCursor(4);
  EXPECT_EQ(display->cursors.back(), 0);  // in the second window
  EXPECT_EQ(braille.UnitAt(0), 4);
  braille.ShowBrailleCursor(0);
  EXPECT_EQ(braille.UnitAt(3), 2);

  // On a blank without a cell of its own the cursor stands behind the cells
  // before it, not on the last of them.
  braille.ShowBraille(u"AB ");
  braille.ShowBrailleCursor(2);
  EXPECT_EQ(display->cursors.back(), 2);
}

TEST(BraillePresenterTest, WithoutADisplayOrOnceItIsLostItSaysSoOnceAndGoesOn) {
  auto none = std::make_shared<FakeDisplay>(4, false);
  Notices notices;
  BraillePresenter absent(none, Cells, notices.File(), milliseconds(1));
  EXPECT_FALSE(absent.Start());
  absent.ShowBraille(u"AB");
  EXPECT_TRUE(none->written.empty());
  EXPECT_EQ(notices.Text(), "epwingdict: no Braille display: fake cannot be used (no server)\n");
  EXPECT_FALSE(absent.Reconnect());  // quietly
  none->Refuse(0);                   // BRLTTY has started: the line at once
  ASSERT_TRUE(Readable(absent.ReconnectDescriptor()));
  EXPECT_TRUE(absent.Reconnect());
  EXPECT_EQ(absent.ReconnectDescriptor(), -1);  // no more tries
  EXPECT_EQ(none->written, std::vector<std::u16string>{u"⠁⠂"});
  EXPECT_EQ(notices.Text(),
            "epwingdict: no Braille display: fake cannot be used (no server)\n"
            "epwingdict: the Braille display of fake is back\n");

  auto display = std::make_shared<FakeDisplay>(4);
  display->failAt = 2;
  Notices lost;
  BraillePresenter braille(display, Cells, lost.File());
  ASSERT_TRUE(braille.Start());
  braille.ShowBraille(u"AB");
  braille.ShowBraille(u"CD");
  braille.ShowBraille(u"EF");
  EXPECT_FALSE(braille.Connected());
  EXPECT_EQ(display->written, std::vector<std::u16string>{u"⠁⠂"});
  EXPECT_EQ(lost.Text(),
            "epwingdict: the Braille display of fake was lost (gone); Braille goes on on the "
            "terminal until it is back\n");
  uint64_t key = 0;
  EXPECT_FALSE(braille.ReadKey(key));
  EXPECT_EQ(braille.KeyDescriptor(), -1);
}

TEST(BraillePresenterTest, KeysComeUntilTheDisplayIsLost) {
  auto display = std::make_shared<FakeDisplay>(4);
  display->keys = {7, 8};
  Notices notices;
  BraillePresenter braille(display, Cells, notices.File());
  ASSERT_TRUE(braille.Start());
  display->keysLost = true;
  uint64_t key = 0;
  ASSERT_TRUE(braille.ReadKey(key));
  EXPECT_EQ(key, 7u);
  ASSERT_TRUE(braille.ReadKey(key));
  EXPECT_EQ(key, 8u);
  EXPECT_FALSE(braille.ReadKey(key));
  EXPECT_FALSE(braille.Connected());
  EXPECT_NE(notices.Text().find("was lost (gone)"), std::string::npos);
}

// A BRLTTY that takes the connection and never answers: the start waits
// for it no longer than its patience, and the display is taken when the
// open ends at last. The presenter's end never waits for an open either.
TEST(BraillePresenterTest, AnOpenThatHangsHoldsUpNeitherTheStartNorTheEnd) {
  auto display = std::make_shared<FakeDisplay>(4);
  display->Hold();
  Notices notices;
  {
    BraillePresenter braille(display, Cells, notices.File(), milliseconds(1));
    EXPECT_FALSE(braille.Start(milliseconds(20)));
    braille.ShowBraille(u"AB");
    EXPECT_FALSE(braille.Reconnect());
    ASSERT_TRUE(display->AwaitOpening());
    display->Let();
    ASSERT_TRUE(Readable(braille.ReconnectDescriptor()));
    EXPECT_TRUE(braille.Reconnect());
    EXPECT_EQ(display->written, std::vector<std::u16string>{u"⠁⠂"});
    EXPECT_EQ(notices.Text(),
              "epwingdict: no Braille display: fake cannot be used (it does not answer)\n"
              "epwingdict: the Braille display of fake is back\n");

    // Lost again, and the next open hangs until after the presenter's end.
    display->Hold();
    display->failAt = 2;
    braille.ShowBraille(u"CD");
    EXPECT_FALSE(braille.Connected());
    ASSERT_TRUE(display->AwaitOpening());
  }
  EXPECT_EQ(display->Opened(), 1);
  display->Let();  // the thread ends on its own, holding the display to the last
}
