// The address-designated editor: its two dialogs, editing in hexadecimal, and the way back into the
// image.

#include <algorithm>
#include <array>

#include "core/map_colours.h"
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
  Grid& grid = form6.eGrid;
};

// Up to the image's last byte, and to the largest grid with its headers.
TEST_F(AddressEditor, StretchesAreAcceptedUpToTheImagesLastByte) {
  loadImage(patternImage(4 << 20));
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
    EXPECT_FALSE(form1().enabled());
    form13.userEscape();
    if (!last) continue;
    EXPECT_EQ(grid.text(grid.rows() - 1, grid.columns() - 1), bytes(last, 1));
    form6.userEscape();
  }
}

TEST_F(AddressEditor, GoesToAnAddressOfTheStretchAndSteppingWithCtrlIsByTen) {
  askFor("20,10,3");
  for (const auto& [answer, cell] : {std::pair("", 11),
                                     {"3D", 40},
                                     {" 2a", 21},
                                     {"3E", 21},
                                     {"1F", 21},
                                     {"x", 21},
                                     {"20", 11}}) {
    desk.textAnswers = {answer};
    form6.menuBar.find("go_to_address")->userPick();
    EXPECT_EQ(grid.row() * 10 + grid.column(), cell) << answer;
  }
  EXPECT_EQ(told().find("This address is not in the stretch"), 0U);
  EXPECT_EQ(desk.prompts.back().answer + desk.prompts.back().text, "002AAddress &H0020 - 003D");
  grid.setText(1, 1, "F8");
  grid.userControlKey(U'+');
  EXPECT_EQ(grid.text(1, 1), "FF");
}

TEST_F(AddressEditor, ShowsTheStretchAndOkBringsItIntoMapsAndParametersCancelDropsIt) {
  Form1& form = form1();
  form.Grid1.setText(2, 3, "171");  // 0x10A
  form.Text1.setText("5A00");
  form.TP_FIRE.setText(0, 1, "old");
  for (const bool ok : {false, true}) {
    askFor("20,225,2");
    EXPECT_EQ(grid.text(0, 17) + grid.text(2, 0) + grid.text(2, 10), "+100101AB");
    EXPECT_EQ(grid.background(2, 10), cellColour(0xAB));
    drag(grid, 1, 1, 2, 225);
    EXPECT_EQ(selected(grid), bytes(0x20, 225) + "|" + bytes(0x101, 225));
    grid.userMouseDown(MouseButton::right);
    EXPECT_EQ(desk.popUps.back()->name(), "edit_02");
    enterCell(grid, 1, 1, "A5");
    enterCell(grid, 1, 225, "A5");  // 0x100
    ok ? form6.userEnter() : form6.userEscape();
    EXPECT_EQ(form.Text1.text(), ok ? "A500" : "5A00");
    EXPECT_EQ(form.Grid1.text(1, 1) == std::to_string(0xA5), ok);
    EXPECT_EQ(form.Grid1.text(2, 3), "171") << "the way in has written the grids back";
    EXPECT_EQ(form.TP_FIRE.text(0, 1) == "old", !ok);
  }
  EXPECT_EQ(editorState.savedImage, patternImage(0x1000));
  EXPECT_NE(readText("zelkova.ini").find("\r\n 32 \r\n 225 \r\n 2 \r\n"), std::string::npos);
}

TEST_F(AddressEditor, ADoubleClickAsksInHexadecimalAndTheKeysStepTheSelection) {
  askFor("102,4,4");
  desk.whileAsking = [] { EXPECT_FALSE(form6.topmost()) << "it would hide the question"; };
  // What was answered, what then stands there, and what both keys make of it.
  const std::tuple<const char*, const char*, const char*, const char*> table[] = {
      {"7F", "7F", "80", "7E"},  {"200", "FF", "FF", "FE"},        {"0", "00", "01", "00"},
      {"", "0A", "0B", "09"},    {"zz", "00", "01", "00"},         {" 1c", "1C", "1D", "1B"},
      {"5G9", "05", "06", "04"}, {"FFFFFFFFFF", "FF", "FF", "FE"}, {"00000000f", "0F", "10", "0E"}};
  for (const auto& [answer, entered, raised, lowered] : table) {
    grid.setText(2, 2, "0A");
    enterCell(grid, 2, 2, answer);
    EXPECT_EQ(grid.text(2, 2), entered) << answer;
    for (const auto& [key, expected] : {std::pair(U'+', raised), std::pair(U'-', lowered)}) {
      for (const int c : {2, 3}) grid.setText(2, c, entered);
      drag(grid, 2, 3, 2, 2);
      grid.userKey(key);
      EXPECT_EQ(grid.text(2, 2) + grid.text(2, 3), std::string(expected) + expected);
      EXPECT_EQ(grid.selection(), (GridSelection{2, 3, 2, 2}));
    }
  }
  EXPECT_TRUE(form6.topmost() && desk.prompts[0].answer == "0A");
  EXPECT_EQ(grid.background(2, 2), cellColour(0x0E));
}

TEST_F(AddressEditor, ABlockIsPastedInsideTheSelectionAndReachesItsBytesAlone) {
  // The target's corners; the four bytes of it that take 107, 108, 10C and 10D, -1: none does.
  const std::pair<GridSelection, std::array<int, 4>> table[] = {
      {{4, 5, 3, 4}, {0x10F, 0x110, 0x114, 0x115}},
      {{1, 2, 3, 1}, {0x102, 0x103, 0x107, 0x108}},
      {{1, 5, 4, 5}, {0x106, -1, 0x10B, -1}}};
  for (const auto& [target, places] : table) {
    askFor("102,5,4");
    drag(grid, 3, 2, 2, 1);
    RomImage expected = editorState.image;
    form6.menuBar.find("e_cpy")->userPick();
    grid.userSelect(target);
    form6.menuBar.find("HSARITUKE")->userPick();
    EXPECT_LT(grid.row(), grid.rowSel()) << "the selection stands in order";
    for (std::size_t i = 0; i < 4; ++i) {
      const std::size_t source = std::array{0x107, 0x108, 0x10C, 0x10D}[i];
      if (places[i] >= 0) expected[std::size_t(places[i])] = editorState.image[source];
    }
    form6.userEnter();
    EXPECT_EQ(editorState.image, expected) << places[0];
  }
  EXPECT_FALSE(desk.clipboard);
}

TEST_F(AddressEditor, PasteTakesTheBufferWhateverFilledIt) {
  const auto pasted = [this](int row, int column) {
    askFor("100,50,45");
    drag(grid, row, column, 1, 1);
    form6.menuBar.find("HSARITUKE")->userPick();
    const std::string texts = selected(grid);
    form6.userEscape();
    return texts;
  };
  EXPECT_EQ(pasted(1, 2), "00 " + bytes(0x101, 1)) << "nothing was copied yet";
  std::ranges::fill(editorState.copyBuffer, 0x77);
  selectTab(airflowTab);
  fill(form1().Grid5, {{65535, 256, 16, -3}});
  drag(form1().Grid5, 1, 1, 1, 4);
  pick("CPY");
  EXPECT_EQ(pasted(1, 4), "FF FF 10 00");
  desk.clipboard = "1,2147483647,2147483647";  // leaves huge extents behind
  pick("PST");
  const std::string all = pasted(45, 50);
  EXPECT_TRUE(all.starts_with("01 FF 10 00 00") && all.ends_with(bytes(0x100 + 44 * 50, 50)));
}

}  // namespace
