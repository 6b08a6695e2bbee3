// The address-designated editor: its two dialogs, editing in hexadecimal, and the way back into the
// image.

#include "core/map_display.h"
#include "editing/address_dialog.h"
#include "editing/address_grid.h"
#include "map_tools_bed.h"
#include "platform/numbers.h"

namespace {

class AddressEditor : public LoadedCarTest {
 protected:
  // Start in hexadecimal, width and height, with commas between them.
  void askFor(const std::string& stretch) {
    pick("ADR_EDIT");
    const std::vector<std::string> parts = fields(stretch);
    typeOver(form13.Text1, parts[0]);
    typeOver(form13.Text2, parts[1]);
    typeOver(form13.Text3, parts[2]);
    form13.userEnter();
  }
  // The image's bytes from `address` on, as cells.
  static std::string bytes(int address, int count) {
    std::string texts;
    for (int i = 0; i < count; ++i) {
      const std::uint32_t byte = editorState.image.at(static_cast<std::size_t>(address + i));
      texts += (i == 0 ? "" : " ") + padHex(hexText(byte), 1);
    }
    return texts;
  }
  std::string paste(int row, int column) {
    drag(grid, row, column, 1, 1);
    form6.menuBar.find("HSARITUKE")->userPick();
    return selected(grid);
  }
  Grid& grid = form6.eGrid;
};

// Up to the image's last byte, and to the largest grid with its headers.
TEST_F(AddressEditor, StretchesAreAcceptedUpToTheImagesLastByte) {
  loadCar(std::size_t{4} << 20);
  // What is typed, and the address of the last byte shown, 0 where it is refused.
  const std::pair<const char*, int> table[] = {
      {" 3fff00,16x,16", 0x3FFFFF}, {"0,2048,2048", 0}, {"0,-4,-4", 0},
      {"0,512,512", 0x3FFFF},       {"0,524288,1", 0},  {"0,16,0", 0},
      {"0,524287,1", 524286},       {"400000,1,1", 0},  {",16,16", 0},
      {"FFFFFFFFFF,16,16", 0},      {"12G,16,16", 0},   {"0,,x", 0},
      {"0,65536,65536", 0},         {"-1,16,16", 0},    {"3FFF00,16,17", 0}};
  for (const auto& [typed, last] : table) {
    SCOPED_TRACE(typed);
    askFor(typed);
    EXPECT_EQ(told(), last > 0 ? "" : "An address value will exceed ROM DATA size.");
    EXPECT_TRUE(form6.loaded() == (last > 0) && form13.loaded() == (last == 0));
    EXPECT_FALSE(form13.topmost() || form1().enabled());
    form13.userEscape();
    if (!last) continue;
    EXPECT_EQ(grid.text(grid.rows() - 1, grid.columns() - 1), bytes(last, 1));
    form6.userEscape();
  }
  pick("ADR_EDIT");  // what was refused is in force
  EXPECT_EQ(form13.Text1.text() + form13.Text2.text() + form13.Text3.text(), "3FFF001617");
}

TEST_F(AddressEditor, ShowsTheStretchAsTheUserSeesTheImage) {
  form1().Grid1.setText(2, 3, "171");  // 0x10A
  askFor("102,20,3");
  EXPECT_EQ(form6.Frame1.caption(), "TARGET &H0102  X:20  Y:3");
  EXPECT_EQ(grid.text(0, 1) + grid.text(0, 16) + grid.text(0, 17), "+0+F+10");
  EXPECT_EQ(grid.text(1, 0) + " " + grid.text(3, 0) + " " + grid.text(1, 9), "0102 012A AB");
  EXPECT_EQ(grid.background(1, 9), cellColour(0xAB));
  drag(grid, 1, 1, 3, 20);
  EXPECT_EQ(selected(grid), bytes(0x102, 20) + "|" + bytes(0x116, 20) + "|" + bytes(0x12A, 20));
  grid.userMouseDown(MouseButton::right);
  EXPECT_EQ(desk.popUps.back()->name(), "edit_02");
  form6.userClose();
  EXPECT_EQ(editorState.image[0x10A], 171) << "the way in has written the grids back";
  EXPECT_NE(editorState.savedImage[0x10A], 171);
  EXPECT_NE(readText("zelkova.ini").find("\r\n 258 \r\n 20 \r\n 3 \r\n"), std::string::npos);
}

TEST_F(AddressEditor, ADoubleClickAsksInHexadecimalAndTheKeysStepTheSelection) {
  askFor("102,4,4");
  desk.whileAsking = [] { EXPECT_FALSE(form6.topmost()); };
  // What was answered, what then stands there, and what both keys make of it.
  const std::tuple<const char*, const char*, const char*, const char*> table[] = {
      {"7F", "7F", "80", "7E"},         {"200", "FF", "FF", "FE"},      {"0", "00", "01", "00"},
      {"", "0A", "0B", "09"},           {"zz", "00", "01", "00"},       {" 1c", "1C", "1D", "1B"},
      {"-5", "00", "01", "00"},         {"5G9", "05", "06", "04"},      {"  ", "00", "01", "00"},
      {"FFFFFFFFFF", "FF", "FF", "FE"}, {"00000000f", "0F", "10", "0E"}};
  for (const auto& [answer, entered, raised, lowered] : table) {
    grid.setText(2, 2, "0A");
    drag(grid, 2, 2, 2, 2);
    desk.textAnswers = {answer};
    grid.userDoubleClick();
    EXPECT_EQ(grid.text(2, 2), entered) << answer;
    EXPECT_TRUE(form6.topmost() && grid.redraw());
    for (const auto& [key, expected] : {std::pair(U'+', raised), std::pair(U'-', lowered)}) {
      for (const int c : {2, 3}) grid.setText(2, c, entered);
      drag(grid, 2, 3, 2, 2);
      grid.userKey(key);
      EXPECT_EQ(grid.text(2, 2) + grid.text(2, 3), std::string(expected) + expected);
      EXPECT_EQ(grid.selection(), (GridSelection{2, 3, 2, 2}));
    }
  }
  EXPECT_EQ(desk.prompts[0].text + ": " + desk.prompts[0].answer,
            "Data?\r\n\r\nFor a size of data that I can set up, 00-FF: 0A");
  enterCell(grid, 1, 1, "A");
  EXPECT_EQ(grid.background(1, 1), cellColour(0x0A));
  EXPECT_EQ(grid.background(2, 2), cellColour(0x0E));
}

TEST_F(AddressEditor, PropertyBlocksInsideTheGrid) {
  for (int trial = 0; trial < 100; ++trial) {
    const int wide = random(1, 30), high = random(1, 30), start = random(0, 0x1000 - wide * high);
    askFor(hexText(static_cast<std::uint32_t>(start)) + "," + std::to_string(wide) + "," +
           std::to_string(high));
    RomImage expected = editorState.image;
    const GridBlock source = dragAtRandom(grid);
    form6.menuBar.find("e_cpy")->userPick();
    ASSERT_EQ(grid.selection(), ordered(source));
    const GridBlock target = dragAtRandom(grid);
    form6.menuBar.find("HSARITUKE")->userPick();
    ASSERT_EQ(grid.selection(), ordered(target));
    const auto place = [&](int row, int column) {
      return static_cast<std::size_t>(start + (row - 1) * wide + column - 1);
    };
    for (int r = 0; r < std::min(source.rows(), target.rows()); ++r) {
      for (int c = 0; c < std::min(source.columns(), target.columns()); ++c) {
        expected[place(target.top + r, target.left + c)] =
            editorState.image[place(source.top + r, source.left + c)];
      }
    }
    form6.userEnter();
    ASSERT_EQ(editorState.image, expected) << "trial " << trial;
  }
  EXPECT_FALSE(desk.clipboard);
}

TEST_F(AddressEditor, PasteTakesTheBufferWhateverFilledIt) {
  askFor("100,50,45");
  EXPECT_EQ(paste(1, 2), "00 " + bytes(0x101, 1)) << "nothing was copied yet";
  form6.userEscape();

  selectTab(airflowTab);
  fill(form1().Grid5, {{65535, 256, 16, -3}});
  drag(form1().Grid5, 1, 1, 1, 4);
  pick("CPY");
  form1().Grid5.setText(1, 4, "0");
  askFor("100,50,45");
  EXPECT_EQ(paste(1, 4), "FF FF 10 00");
  form6.userEscape();

  desk.clipboard = "1,2147483647,2147483647";  // leaves huge extents behind
  pick("PST");
  askFor("100,50,45");
  EXPECT_TRUE(paste(45, 50).starts_with("01 FF 10 00 00"));
  EXPECT_EQ(grid.text(42, 1), bytes(0x100 + 41 * 50, 1));
}

TEST_F(AddressEditor, OkShowsTheBytesInMapsAndParametersCancelDropsThem) {
  const int first = editorState.image[0x100];
  form1().Text1.setText("5A00");
  form1().TP_FIRE.setText(0, 1, "old");
  for (const bool ok : {false, true}) {
    askFor("20,225,1");
    enterCell(grid, 1, 1, "A5");
    enterCell(grid, 1, 225, "A5");
    ok ? form6.userEnter() : form6.userEscape();
    EXPECT_EQ(editorState.image[0x20], ok ? 0xA5 : 0x5A);
    EXPECT_EQ(form1().Text1.text(), ok ? "A500" : "5A00");
    EXPECT_EQ(form1().Grid1.text(1, 1), std::to_string(ok ? 0xA5 : first));
    EXPECT_EQ(form1().TP_FIRE.text(0, 1) == "old", !ok);
  }
  EXPECT_EQ(editorState.savedImage, patternImage(0x1000));
}

}  // namespace
