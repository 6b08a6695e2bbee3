// What differs from the file or the comparison image: marks, the list, the way from one to the
// next, and what the status line and the notice strip say of it.
#include "core/differences.h"
#include "changes/differences_window.h"
#include "core/difference_list.h"
#include "core/map_kinds.h"
#include "core/notices.h"
#include "core/pending_image.h"
#include "core/rom_image.h"
#include "editing/add_multiply.h"
#include "editing/address_dialog.h"
#include "editing/address_grid.h"
#include "support.h"

namespace {

Bytes evenImage(std::size_t size = 0x400) {
  Bytes image = patternImage(size);
  image[0x30] = 0;  // a multiple of the limit's scale
  image[0x31] = 10;
  return image;
}

class Differences : public ProgramTest {
 protected:
  Differences() {
    startWithMap(smallMap());
    loadImage(evenImage());
  }
  void compareWith(const Bytes& image) {
    writeBytes("friend.bin", image);
    pickFile("comp_bin", "friend.bin");
  }
  // Marked cells as "keyword row,column", marked boxes by their keyword; "!": can't be stored.
  static std::string marks() {
    std::string text;
    const auto add = [&text](Mark mark, const std::string& name) {
      if (mark != Mark::none) text += name + (mark == Mark::differs ? "; " : "!; ");
    };
    forEachCell([&add](const MapKind& kind, const Grid& grid, int r, int c) {
      add(grid.mark(r, c), kind.keyword + (" " + std::to_string(r)) + "," + std::to_string(c));
    });
    for (const ParamKind& kind : paramKinds()) add((form1().*kind.box).mark(), kind.keyword);
    return text;
  }
  static std::string rows() { return textsOf(differencesWindow.list, 1, 0, "|", "|"); }
  // What a save would write is what a write-back makes.
  static void expectPendingIsWrittenBack() {
    const RomImage pending = pendingImage.bytes();
    writeBackAll();
    EXPECT_EQ(pending, editorState.image);
  }
};

TEST_F(Differences, MarksFollowEachGestureAndItsUndo) {
  Form1& form = form1();
  const std::pair<std::function<void()>, const char*> gestures[] = {
      {[&] { enterCell(form.Grid1, 2, 3, "77"); }, "HIGH_FUEL 2,3; "},
      {[&] { enterCell(form.RPM_FUEL, 1, 0, "100"); }, "RPM_SCALE_FUEL 1,0; "},
      {[&] { enterCell(form.Grid5, 1, 2, "300"); }, "VQ_MAP 1,2; "},
      {[&] { enterCell(form.Grid7, 1, 4, "3"); }, "TTP_MAX 1,4; "},
      {[&] { typeOver(form.Text4, "250"); }, "REV1_LIMIT; "},
      {[&] { typeOver(form.Text1, "0102"); }, "K_DATA; "}};
  for (const auto& [gesture, marked] : gestures) {
    SCOPED_TRACE(marked);
    EXPECT_EQ(marks(), "");
    gesture();
    EXPECT_EQ(marks(), marked);
    expectPendingIsWrittenBack();
    pick("undo");
    EXPECT_EQ(marks(), "");
    pick("redo");
    EXPECT_EQ(marks(), marked);
    expectPendingIsWrittenBack();
    pick("against_nothing");
    EXPECT_EQ(marks(), "");
    pick("against_file");
    EXPECT_EQ(marks(), marked);
    saveImage(std::string(marked, 4) + ".bin");
    EXPECT_EQ(marks(), "");
    EXPECT_EQ(form.unsavedStatus.caption(), "");
  }
}

TEST_F(Differences, TabsCountTheirCellsAndTheStatusLineTellsTheCursors) {
  Form1& form = form1();
  const std::string former = form.Grid1.text(2, 3);
  enterCell(form.Grid1, 2, 3, "255");
  EXPECT_EQ(form.TabStrip1.tab(1).note, "Different: 1");
  EXPECT_EQ(form.TabStrip1.tab(14).note, "");
  EXPECT_EQ(form.unsavedStatus.caption(), "● bytes that will change: 1");
  EXPECT_EQ(form.doneStatus.caption(), "1 cell changed, 1 at its limit");
  form.Grid1.userFocus();
  EXPECT_EQ(form.cursorStatus.caption(),
            "&H010A   RPM " + form.RPM_FUEL.text(1, 0) + "   TP " + form.TP_FUEL.text(1, 3) +
                "   Boost " + form.TP_FUEL.text(0, 3) + "   255 = &HFF   file " + former);
  form.Text4.userFocus();
  EXPECT_EQ(form.cursorStatus.caption(), "&H0030   2 bytes");
  enterCell(form.Grid1, 1, 1, "10");
  enterCell(form.Grid1, 1, 2, "12");
  drag(form.Grid1, 1, 1, 1, 2);
  form.Grid1.userFocus();
  EXPECT_NE(form.cursorStatus.caption().find("1 x 2: sum 22, 10 to 12"), std::string::npos);
}

TEST_F(Differences, ACellThatNoByteHoldsIsNamedAndOneStepAway) {
  Form1& form = form1();
  enterCell(form.RPM_FUEL, 2, 0, "15000");
  EXPECT_EQ(marks(), "RPM_SCALE_FUEL 2,0!; ");
  EXPECT_TRUE(form.RPM_FUEL.spokenCell(2, 0).ends_with(": 15000, can't be stored"));
  enterCell(form.RPM_FUEL, 3, 0, "100");
  EXPECT_EQ(marks(), "RPM_SCALE_FUEL 2,0!; RPM_SCALE_FUEL 3,0!; ") << "what stands behind it";
  selectTab(3);
  ASSERT_TRUE(shownNotice() && form.noticeText.visible());
  EXPECT_NE(form.noticeText.caption().find("&H0192: \"15000\""), std::string::npos);
  form.noticeAction1.userClick();
  EXPECT_EQ(editorState.currentTab, 1);
  EXPECT_EQ(form.focus(), &form.RPM_FUEL);
  EXPECT_EQ(form.RPM_FUEL.row(), 2);
  enterCell(form.RPM_FUEL, 2, 0, "100");
  EXPECT_EQ(marks(), "RPM_SCALE_FUEL 2,0; RPM_SCALE_FUEL 3,0; ");
  EXPECT_FALSE(shownNotice() || form.noticeText.visible());
}

TEST_F(Differences, TheListNamesMapsParametersAndBytesOutsideAndTakesThemOverOneByOne) {
  Bytes other = editorState.image;
  other[0x102] = static_cast<std::uint8_t>(other[0x102] ^ 0x10);
  other[0x31] = 20;
  other[0x300] = static_cast<std::uint8_t>(~other[0x300]);
  other[0x305] = static_cast<std::uint8_t>(~other[0x305]);
  other[0x350] = static_cast<std::uint8_t>(~other[0x350]);
  other.resize(0x380);
  compareWith(other);
  pick("differences");
  const int cell = editorState.image[0x102] - other[0x102];
  const std::string change = cell > 0 ? "+16||" : "|-16|";
  EXPECT_EQ(rows(), "caption|1|" + change + "&H0102-&H0102|caption|1||-125|&H0030-&H0031|" +
                        "Outside the address map|2|||&H0300-&H0305|"
                        "Outside the address map|1|||&H0350-&H0350|");
  EXPECT_NE(differencesWindow.heading.caption().find("as far as the shorter"), std::string::npos);
  differencesWindow.copyAsText.userClick();
  EXPECT_NE(desk.clipboard->find("  &H0030: 250 -> 125\r\n"), std::string::npos) << *desk.clipboard;
  differencesWindow.list.userSelect({3, 0, 3, 0});
  differencesWindow.userEnter();
  EXPECT_EQ(form13.Text1.text() + " " + form13.Text2.text() + " " + form13.Text3.text(), "300 6 1");
  differencesWindow.takeOver.userClick();
  EXPECT_NE(rows().find("&H0300"), std::string::npos) << "a dialog stands before it";
  form13.userEscape();
  for (int left = 4; left > 0; --left) {
    const std::string before = rows();
    const RomImage pending = pendingImage.bytes();
    differencesWindow.list.userSelect({1, 0, 1, 0});
    differencesWindow.takeOver.userClick();
    EXPECT_EQ(differencesWindow.list.rows(), std::max(left, 2));
    pick("undo");
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(pendingImage.bytes(), pending);
    pick("redo");
  }
  const Bytes saved = saveImage("taken.bin");
  EXPECT_TRUE(std::equal(other.begin(), other.end(), saved.begin()));
  differencesWindow.userClose();
  EXPECT_FALSE(differencesWindow.loaded());
}

TEST_F(Differences, ManyStretchesOutsideAreToldAsOneButNeverAcrossAMap) {
  startWithMap("TYPE_UNIT\r\nMANY\r\n" + mapBlock("HIGH_FUEL", "&H4000", 5, 3, 15));
  Bytes other(0x5000);
  loadImage(other);
  for (std::size_t at = 4; at < other.size(); at += 20) other[at] = 1;
  compareWith(other);
  const std::vector<Difference> list = differences();
  ASSERT_EQ(list.size(), 502U);
  EXPECT_EQ(list[500].to, 0x4000 - 20);
  EXPECT_EQ(list[501].from, 0x4000 + 20);
}

TEST_F(Differences, StepsGoOverAllTabsRoundAndRound) {
  Form1& form = form1();
  enterCell(form.Grid1, 1, 8, "1");
  enterCell(form.Grid1, 4, 2, "2");
  enterCell(form.TP_FUEL, 1, 5, "3");
  enterCell(form.AddGrid1, 2, 2, "4");
  typeOver(form.Text6, "5");
  selectTab(1);
  form.Grid1.userSelect({1, 8, 1, 8});
  form.Grid1.userFocus();
  // Where each step leads: the grid's row and column, or the box, and the tab.
  const auto way = [&](const char* command, int steps) {
    std::string places;
    for (int i = 0; i < steps; ++i) {
      pick(command);
      const auto* const grid = dynamic_cast<const Grid*>(form.focus());
      if (grid) places += std::to_string(grid->row()) + "," + std::to_string(grid->column());
      if (form.focus() == &form.Text6) places += "box";
      places += "@" + std::to_string(editorState.currentTab) + " ";
    }
    return places;
  };
  EXPECT_EQ(way("next_difference", 5), "4,2@1 1,5@1 2,2@6 box@14 1,8@1 ");
  EXPECT_EQ(way("last_difference", 2), "box@14 2,2@6 ");
}

TEST_F(Differences, WhatASaveWouldChangeUnaskedIsSeenBeforeIt) {
  Bytes image = evenImage();
  image[0x30] = 1;  // 315 times 12.5 is shown as 3937, which is stored as 314
  image[0x31] = 59;
  enterCell(form1().Grid1, 1, 1, "9");
  pick("undo");
  loadImage(image);
  EXPECT_EQ(form1().doneStatus.caption(), "");
  EXPECT_EQ(marks(), "REV1_LIMIT; ");
  EXPECT_EQ(form1().unsavedStatus.caption(), "● bytes that will change: 1");
  expectPendingIsWrittenBack();
}

TEST_F(Differences, MapsThatShareBytesAndImagesThatEndWithinThem) {
  startWithMap("TYPE_UNIT\r\nSHARED\r\n" + mapBlock("HIGH_FUEL", "&H100", 5, 3, 15) +
               mapBlock("HIGH_FIRE", "&H10A", 5, 3, 15) + mapBlock("K_DATA", "&H10C", 1, 1, 2));
  loadImage(evenImage());
  enterCell(form1().Grid2, 1, 1, "9");  // the byte of the first map's last row
  EXPECT_EQ(marks(), "HIGH_FUEL 3,1!; HIGH_FIRE 1,1; ");
  expectPendingIsWrittenBack();
  pick("undo");
  EXPECT_EQ(marks(), "");
  expectPendingIsWrittenBack();
  enterCell(form1().Grid1, 3, 3, "1");
  typeOver(form1().Text1, "0000");
  expectPendingIsWrittenBack();
  const Bytes other = patternImage(0x102, 9);
  compareWith(other);
  EXPECT_EQ(marks(),
            "HIGH_FUEL 1,1; HIGH_FUEL 1,2; HIGH_FUEL 3,3!; HIGH_FUEL 3,4!; "
            "HIGH_FIRE 1,3!; HIGH_FIRE 1,4!; ");
  compareWith({1});
  EXPECT_EQ(editorState.compareImage.size(), 1u);
}

}  // namespace
