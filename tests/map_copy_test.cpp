// Copying maps and scales over their counterparts: what a copy leaves in the image and the grids.

#include "editing/map_copy.h"

#include "map_tools_bed.h"

namespace {

class MapCopying : public LoadedCarTest {
 protected:
  static std::uint8_t& byteOf(RomImage& image, MapId id, int place) {
    return image.at(static_cast<std::size_t>(editorState.addressMap.map(id).address + place));
  }
  bool coin() { return random(0, 1) == 1; }
};

// The rule: four grids reach the image, then the ticked pairs' bytes go over their counterparts,
// and both show in the grids. The boost follows a copy of the loads.
TEST_F(MapCopying, PropertyAnyChoiceAfterAnyEdit) {
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
    const RomImage saved = editorState.savedImage;
    form1().AddGrid1.setText(1, 1, "unsaved");
    form1().TP_FIRE.setText(0, 1, "old");
    pick(scales ? "T_R" : "F_F");
    MapCopyDialog& dialog = scales ? form4 : form3;
    (forward ? dialog.Option1 : dialog.Option2).userSelect();
    if (!ticked[0]) dialog.Check1.userToggle();
    if (!ticked[1]) dialog.Check2.userToggle();
    dialog.userEnter();
    ASSERT_EQ(editorState.image, expected) << "trial " << trial;
    ASSERT_EQ(editorState.savedImage, saved);
    ASSERT_EQ(form1().AddGrid1.text(1, 1), "unsaved");
    ASSERT_EQ(form1().Grid3.text(1, 2), std::to_string(expected[0x181]));
    ASSERT_EQ(form1().RPM_FIRE.text(2, 0), std::to_string(100 * expected[0x25A]));
    ASSERT_EQ(form1().TP_FIRE.text(0, 1) != "old", scales && ticked[0]);
    ASSERT_EQ(form1().ProgressBar1.value(), 0);
  }
}

TEST_F(MapCopying, UnequalAndAbsentMapsCopyTheSmallerSizeInsideTheImage) {
  startAnewWithMap(
      "TYPE_UNIT,CAR\nHIGH_FUEL,&H100,8,4,32,0,c\nREG_FUEL,&H0,4,4,16,0,c\n"
      "HIGH_FIRE,&H140,8,4,32,0,c\nTP_SCALE_FUEL,&H1FE,8,1,8,0,c\n"
      "TP_SCALE_FIRE,&H180,8,1,8,0,c\nRPM_SCALE_FIRE,&H190,4,1,4,50,c\n");
  loadImage(patternImage(0x200));
  RomImage expected = editorState.image;
  std::copy_n(expected.begin() + 0x100, 16, expected.begin());
  pick("F_F");
  EXPECT_TRUE(form3.Check1.enabled() && !form3.Check2.enabled());
  form3.userEnter();
  EXPECT_EQ(editorState.image, expected);

  // The fuel scale reaches past the image: its first two bytes exist.
  std::copy_n(expected.begin() + 0x1FE, 2, expected.begin() + 0x180);
  pick("T_R");
  EXPECT_TRUE(form4.Check2.enabled());
  form4.userEnter();
  EXPECT_EQ(editorState.image, expected);
}

}  // namespace
