// Copy and paste between the maps: the clipboard's text, the copy buffer, and what a paste leaves;
// and the copies of whole maps and scales over their counterparts.

#include "editing/copy_paste.h"

#include "core/map_colours.h"
#include "core/map_kinds.h"
#include "editing/map_copy.h"
#include "map_tools_bed.h"

namespace {

class CopyPaste : public LoadedCarTest {
 protected:
  static std::uint8_t& byteOf(RomImage& image, MapId id, int place) {
    return image.at(static_cast<std::size_t>(editorState.addressMap.map(id).address + place));
  }
  bool coin() { return random(0, 1) == 1; }
};

TEST_F(CopyPaste, TakesWhateverTheClipboardHolds) {
  const std::string commas(10'000'000, ',');
  const std::pair<std::string, const char*> table[] = {
      {"10,20,30,40,50,1,1", "10 20|30 40"}, {"10,20,30,2,0", "10 20|3 4"},
      {commas + "1,2147483647", "0 0|0 0"},  {"300,-5,1,0", "300 -5|3 4"},
      {commas + "2147483647,9", "0 0|3 4"},  {"1.5,3e2,1,0", "2 300|3 4"},
      {"10,20,-99999999999,1", "1 2|3 4"},   {"10,20,0,1", "10 2|20 4"},
      {"10\t20\r\n30\t40\r\n", "1 2|3 4"},   {" 12x,-,1,0", "12 0|3 4"},
      {"-1e99,0,0", "-2147483648 2|3 4"},    {"10,20,-1,0", "1 2|3 4"},
      {"10,20,30,40,1,1", "10 20|30 40"},    {"10,20,1,x", "1 2|3 4"},
      {"10,20,1e9,1e9\r\n", "10 20|3 4"},    {"9,2,3", "9 2|3 4"}};
  Grid& grid = form1().Grid1;
  pick("PST");  // no text at all
  EXPECT_EQ(grid.text(1, 1), std::to_string(editorState.image[0x100]));
  for (const auto& [text, expected] : table) {
    fill(grid, {{1, 2}, {3, 4}});
    drag(grid, 1, 1, 2, 2);
    desk.clipboard = text;
    pick("PST");
    EXPECT_EQ(selected(grid), expected) << text.substr(0, 60);
  }
}

TEST_F(CopyPaste, ABlockBeyondTheBufferIsCutAndTheSelectionShowsIt) {
  startWithMap("TYPE_UNIT\nCAR\n" + mapBlock("HIGH_FUEL", "0", 520, 45, 23400, "1"));
  loadImage(patternImage(30000));
  Grid& grid = form1().Grid1;
  drag(grid, 45, 520, 2, 3);
  pick("CPY");
  EXPECT_EQ(grid.selection(), (GridSelection{2, 3, 42, 515}));
  EXPECT_TRUE(desk.clipboard->starts_with(grid.text(2, 3) + "," + grid.text(2, 4) + ","));
  EXPECT_EQ(std::count(desk.clipboard->begin(), desk.clipboard->end(), ','), 513 * 41 + 1);
  EXPECT_TRUE(desk.clipboard->ends_with("," + grid.text(42, 515) + ",512,40"));
  // A column of 600 cells, over a selection that is wider than it.
  desk.clipboard = "";
  for (int i = 0; i < 600; ++i) *desk.clipboard += "999,";
  *desk.clipboard += "0,599";
  const std::string below = grid.text(42, 1);
  drag(grid, 1, 1, 45, 520);
  pick("PST");
  EXPECT_EQ(grid.text(41, 1) + grid.text(42, 1), "999" + below);
}

// The rule: four grids reach the image, then the ticked pairs' bytes go over their counterparts,
// and both show in the grids. The boost follows a copy of the loads.
TEST_F(CopyPaste, PropertyAnyChoiceOfWholeMapsAfterAnyEdit) {
  const std::pair<MapId, MapId> pairs[2][2] = {
      {{HIGH_FUEL, REG_FUEL}, {HIGH_FIRE, REG_FIRE}},
      {{TP_SCALE_FUEL, TP_SCALE_FIRE}, {RPM_SCALE_FUEL, RPM_SCALE_FIRE}}};
  for (int trial = 0; trial < 100; ++trial) {
    const bool scales = coin(), forward = coin(), ticked[2] = {coin(), coin()};
    selectTab(random(1, 14));
    RomImage expected = editorState.image;
    for (int i = 0; i < 2; ++i) {
      const auto [first, second] = pairs[scales][i];
      for (const MapId id : {first, second}) {
        const int cell = random(0, 3), value = random(0, 255);
        const bool rpm = scales && i == 1;
        const int shown = rpm ? value * editorState.addressMap.map(id).scale : value;
        gridOf(*findMapKind(id)).setText(rpm ? cell : 1, rpm ? 0 : cell + 1, std::to_string(shown));
        byteOf(expected, id, cell) = static_cast<std::uint8_t>(value);
      }
      for (int k = 0; ticked[i] && k < editorState.addressMap.map(first).bytes; ++k) {
        std::uint8_t &a = byteOf(expected, first, k), &b = byteOf(expected, second, k);
        forward ? b = a : a = b;
      }
    }
    form1().AddGrid1.setText(1, 1, "unsaved");
    form1().TP_FIRE.setText(0, 1, "old");
    pick(scales ? "T_R" : "F_F");
    MapCopyDialog& dialog = scales ? form4 : form3;
    (forward ? dialog.Option1 : dialog.Option2).userSelect();
    if (!ticked[0]) dialog.Check1.userToggle();
    if (!ticked[1]) dialog.Check2.userToggle();
    dialog.userEnter();
    ASSERT_EQ(editorState.image, expected) << "trial " << trial;
    ASSERT_EQ(form1().AddGrid1.text(1, 1), "unsaved");
    ASSERT_EQ(form1().Grid3.text(1, 2), std::to_string(expected[0x181]));
    ASSERT_EQ(form1().RPM_FIRE.text(2, 0), std::to_string(100 * expected[0x25A]));
    ASSERT_EQ(form1().TP_FIRE.text(0, 1) != "old", scales && ticked[0]);
  }
}

TEST_F(CopyPaste, UnequalAndAbsentMapsCopyTheSmallerSizeInsideTheImage) {
  startWithMap(
      "TYPE_UNIT,CAR\nHIGH_FUEL,&H100,8,4,32,0,c\nREG_FUEL,&H0,4,4,16,0,c\n"
      "HIGH_FIRE,&H140,8,4,32,0,c\nTP_SCALE_FUEL,&H1FE,8,1,8,0,c\n"
      "TP_SCALE_FIRE,&H180,8,1,8,0,c\nRPM_SCALE_FIRE,&H190,4,1,4,50,c\n");
  loadImage(patternImage(0x200));
  RomImage expected = editorState.image;
  std::copy_n(expected.begin() + 0x100, 16, expected.begin());
  // The fuel scale reaches past the image: its first two bytes exist.
  std::copy_n(expected.begin() + 0x1FE, 2, expected.begin() + 0x180);
  pick("F_F");
  EXPECT_TRUE(form3.Check1.enabled() && !form3.Check2.enabled());
  form3.userEnter();
  pick("T_R");
  form4.userEnter();
  EXPECT_EQ(editorState.image, expected);
}

}  // namespace
