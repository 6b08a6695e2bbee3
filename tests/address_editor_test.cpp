// The address-designated editor: its two dialogs, editing in hexadecimal, and the way back into the
// image.

#include "core/map_display.h"
#include "editing/address_dialog.h"
#include "editing/address_grid.h"
#include "map_tools_bed.h"

namespace {

class AddressEditor : public MapToolsTest {
 protected:
  void askFor(const std::string& start, const std::string& wide, const std::string& high) {
    pick("ADR_EDIT");
    typeOver(form13.Text1, start);
    typeOver(form13.Text2, wide);
    typeOver(form13.Text3, high);
    form13.userEnter();
  }
  Grid& grid() { return form6.eGrid; }
  static std::string hexText(int byte) {
    const char* const digits = "0123456789ABCDEF";
    return {digits[byte / 16], digits[byte % 16]};
  }
  void menu(const char* name) { form6.menuBar.find(name)->userPick(); }
};

TEST_F(AddressEditor, TheStartDialogLeadsToTheGrid) {
  loadCar();
  editorState.addressEditStart = 0x1C0;
  pick("ADR_EDIT");
  EXPECT_EQ(form13.Text1.text() + " " + form13.Text2.text() + " " + form13.Text3.text(),
            "1C0 16 16");
  form13.userEnter();
  EXPECT_TRUE(form6.topmost() && !form13.loaded() && !form1().enabled());
  EXPECT_EQ(form6.Frame1.caption(), "TARGET &H01C0  X:16  Y:16");
  grid().userMouseDown(MouseButton::right);
  EXPECT_EQ(desk.popUps.back()->name(), "edit_02");
  form6.userClose();
  EXPECT_TRUE(form1().enabled());
}

TEST_F(AddressEditor, StretchesAreAcceptedUpToTheImagesLastByte) {
  loadCar(0x8000);
  struct Row {
    const char *start, *wide, *high;
    bool accepted;
    std::vector<int> stored;
  };
  const Row table[] = {{"7F00", "16", "16", true, {0x7F00, 16, 16}},
                       {"7F00", "16", "17", false, {0x7F00, 16, 17}},
                       {" 7f00 ", "16x", "1.6e1", true, {0x7F00, 16, 16}},
                       {"0", "32768", "1", true, {0, 32768, 1}},
                       {"0", "32769", "1", false, {0, 32769, 1}},
                       {"8000", "1", "1", false, {0x8000, 1, 1}},
                       {"", "16", "16", false, {0, 16, 16}},
                       {"12G", "16", "16", false, {0x12, 16, 16}},
                       {"-1", "16", "16", false, {0, 16, 16}},
                       {"FFFFFFFFFF", "16", "16", false, {0x7FFFFFFF, 16, 16}},
                       {"0", "16", "0", false, {0, 16, 0}},
                       {"0", "-4", "-4", false, {0, -4, -4}},
                       {"0", "65536", "65536", false, {0, 65536, 65536}},
                       {"0", "99999999999", "99999999999", false, {0, 2147483647, 2147483647}},
                       {"0", "", "x", false, {0, 0, 0}}};
  for (const Row& row : table) {
    askFor(row.start, row.wide, row.high);
    EXPECT_EQ((std::vector{editorState.addressEditStart, editorState.addressEditColumns,
                           editorState.addressEditRows}),
              row.stored)
        << row.start << " " << row.wide << " " << row.high;
    EXPECT_EQ(form6.loaded(), row.accepted);
    EXPECT_EQ(form13.loaded(), !row.accepted);
    EXPECT_FALSE(form13.topmost());
    if (row.accepted) {
      form6.userEscape();
      continue;
    }
    EXPECT_EQ(lastBox(), "An address value will exceed ROM DATA size.");
    EXPECT_FALSE(form1().enabled());
    form13.userEscape();
  }
}

TEST_F(AddressEditor, AnImageTooLargeForAGridIsRefused) {
  loadCar(std::size_t{4} << 20);
  askFor("0", "2048", "2048");
  EXPECT_TRUE(form13.loaded());
  typeOver(form13.Text2, "512");
  typeOver(form13.Text3, "512");
  form13.userEnter();
  EXPECT_EQ(grid().text(512, 512), hexText(editorState.image[512 * 512 - 1]));
}

TEST_F(AddressEditor, ShowsTheStretchAsTheUserSeesTheImage) {
  loadCar();
  form1().Grid1.setText(2, 3, "171");  // 0x10A
  askFor("102", "20", "3");
  EXPECT_EQ(grid().rows(), 4);
  EXPECT_EQ(grid().columns(), 21);
  EXPECT_EQ(grid().text(0, 1) + grid().text(0, 16) + grid().text(0, 17), "+0+F+10");
  EXPECT_EQ(grid().text(1, 0) + " " + grid().text(3, 0), "0102 012A");
  EXPECT_EQ(grid().text(1, 9), "AB");
  EXPECT_EQ(grid().background(1, 9), cellColour(0xAB));
  for (int k = 0; k < 60; ++k) {
    const int byte = editorState.image[static_cast<std::size_t>(0x102 + k)];
    ASSERT_EQ(grid().text(1 + k / 20, 1 + k % 20), hexText(byte));
  }
  form6.userEscape();
  EXPECT_EQ(editorState.image[0x10A], 171);  // the way in has written the grids back
  EXPECT_NE(editorState.savedImage[0x10A], 171);
  EXPECT_NE(readText("zelkova.ini").find("\r\n 258 \r\n 20 \r\n 3 \r\n"), std::string::npos);
}

TEST_F(AddressEditor, DoubleClickAsksInHexadecimal) {
  loadCar();
  askFor("102", "4", "4");
  const std::pair<const char*, const char*> table[] = {
      {"7F", "7F"},         {"1ff", "FF"}, {"0", "00"},        {"", "0A"},
      {"zz", "00"},         {" 1c", "1C"}, {"-5", "00"},       {"5G9", "05"},
      {"FFFFFFFFFF", "FF"}, {"  ", "00"},  {"00000000a", "0A"}};
  for (const auto& [answer, expected] : table) {
    grid().setText(2, 2, "0A");
    drag(grid(), 2, 2, 3, 3);
    desk.textAnswers = {answer};
    desk.whileAsking = [] { EXPECT_FALSE(form6.topmost()); };
    grid().userDoubleClick();
    EXPECT_EQ(grid().text(2, 2), expected) << answer;
    EXPECT_TRUE(form6.topmost() && grid().redraw());
    EXPECT_EQ(grid().selection(), (GridSelection{2, 2, 3, 3}));
  }
  EXPECT_EQ(desk.prompts[0].text, "Data?\r\n\r\nFor a size of data that I can set up, 00-FF");
  EXPECT_EQ(grid().background(2, 2), cellColour(10));
}

TEST_F(AddressEditor, PropertyKeysAndBlocksInsideTheGrid) {
  loadCar();
  for (int trial = 0; trial < 100; ++trial) {
    const int wide = random(1, 30);
    const int high = random(1, 30);
    const int start = random(0, 0x1000 - wide * high);
    char startText[9];
    std::snprintf(startText, sizeof startText, "%x", static_cast<unsigned>(start));
    askFor(startText, std::to_string(wide), std::to_string(high));
    RomImage expected = editorState.image;
    const auto byte = [&](int row, int column) -> std::uint8_t& {
      return expected[static_cast<std::size_t>(start + (row - 1) * wide + column - 1)];
    };
    for (int step = 0; step < 5; ++step) {
      const GridBlock stepped = dragAtRandom(grid());
      const GridSelection dragged = grid().selection();
      const bool plus = random(0, 1) == 0;
      grid().userKey(plus ? U'+' : U'-');
      for (int r = stepped.top; r <= stepped.bottom; ++r) {
        for (int c = stepped.left; c <= stepped.right; ++c) {
          std::uint8_t& cell = byte(r, c);
          if (cell != (plus ? 255 : 0)) cell = static_cast<std::uint8_t>(cell + (plus ? 1 : -1));
        }
      }
      ASSERT_EQ(grid().selection(), dragged);
    }
    const GridBlock source = dragAtRandom(grid());
    menu("e_cpy");
    ASSERT_EQ(grid().selection(), ordered(source));
    const RomImage copied = expected;
    const GridBlock target = dragAtRandom(grid());
    menu("HSARITUKE");
    for (int r = 0; r < std::min(source.rows(), target.rows()); ++r) {
      for (int c = 0; c < std::min(source.columns(), target.columns()); ++c) {
        byte(target.top + r, target.left + c) = copied[static_cast<std::size_t>(
            start + (source.top + r - 1) * wide + source.left + c - 1)];
      }
    }
    ASSERT_EQ(grid().selection(), ordered(target));
    form6.userEnter();
    ASSERT_EQ(editorState.image, expected) << "trial " << trial;
    ASSERT_EQ(form1().Grid1.text(2, 1), std::to_string(expected[0x108]));
    ASSERT_TRUE(form1().enabled() && !form6.loaded());
  }
  EXPECT_FALSE(desk.clipboard);
}

TEST_F(AddressEditor, PasteTakesTheBufferWhateverFilledIt) {
  loadCar();
  askFor("100", "4", "4");
  drag(grid(), 1, 1, 1, 1);
  menu("HSARITUKE");  // nothing was copied yet
  EXPECT_EQ(grid().text(1, 1), "00");
  form6.userEscape();

  fill(form1().Grid5, {{65535, 256, 16}});
  form1().Grid5.setText(1, 4, "-3");
  selectTab(airflowTab);
  drag(form1().Grid5, 1, 1, 1, 4);
  pick("CPY");
  form1().Grid5.setText(1, 4, "0");
  askFor("100", "4", "4");
  drag(grid(), 2, 1, 2, 4);
  menu("HSARITUKE");
  drag(grid(), 2, 1, 2, 4);
  EXPECT_EQ(grid().clip(), "FF\tFF\t10\t00");

  desk.clipboard = "1,2147483647,2147483647";  // leaves huge extents behind
  form6.userEscape();
  pick("PST");
  askFor("100", "50", "45");
  drag(grid(), 45, 50, 1, 1);
  menu("HSARITUKE");
  EXPECT_EQ(grid().text(1, 1), "01");
  EXPECT_EQ(grid().text(42, 1), hexText(editorState.image[0x100 + 41 * 50]));
}

TEST_F(AddressEditor, OkShowsTheBytesInMapsAndParametersCancelDropsThem) {
  loadCar();
  const std::uint8_t before = editorState.image[0x20];
  form1().TP_FIRE.setText(0, 1, "old");
  for (const bool ok : {false, true}) {
    askFor("20", "4", "1");
    desk.textAnswers = {before == 0x5A ? "A5" : "5A"};
    grid().userDoubleClick();
    ok ? form6.Command1.userClick() : form6.Command2.userClick();
    EXPECT_EQ(editorState.image[0x20] == before, !ok);
    EXPECT_EQ(form1().TP_FIRE.text(0, 1) == "old", !ok);
  }
  EXPECT_TRUE(form1().Text1.text().starts_with(before == 0x5A ? "A5" : "5A"));
  EXPECT_EQ(editorState.savedImage[0x20], before);
}

}  // namespace
