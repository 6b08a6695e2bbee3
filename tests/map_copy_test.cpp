// Copying maps and scales over their counterparts: the two dialogs and what a copy leaves in the
// image and in the grids.

#include "editing/map_copy.h"

#include "map_tools_bed.h"

namespace {

class MapCopying : public MapToolsTest {
 protected:
  struct Choice {
    bool forward, first, second;
  };
  void copy(const char* command, const Choice& choice) {
    pick(command);
    MapCopyDialog& dialog = dialogOf(command);
    (choice.forward ? dialog.Option1 : dialog.Option2).userSelect();
    if (!choice.first) dialog.Check1.userToggle();
    if (!choice.second) dialog.Check2.userToggle();
    dialog.userEnter();
  }
  static MapCopyDialog& dialogOf(const std::string& command) {
    return command == "F_F" ? form3 : form4;
  }
};

// The rule: four grids reach the image, then the ticked pairs' bytes go over their counterparts,
// and both show in the grids.
TEST_F(MapCopying, PropertyAnyChoiceAfterAnyEdit) {
  loadCar();
  const std::pair<MapId, MapId> pairs[2][2] = {
      {{HIGH_FUEL, REG_FUEL}, {HIGH_FIRE, REG_FIRE}},
      {{TP_SCALE_FUEL, TP_SCALE_FIRE}, {RPM_SCALE_FUEL, RPM_SCALE_FIRE}}};
  const AddressMap& map = editorState.addressMap;
  for (int trial = 0; trial < 100; ++trial) {
    const bool scales = random(0, 1) == 1;
    const Choice choice{random(0, 1) == 0, random(0, 1) == 0, random(0, 1) == 0};
    selectTab(random(1, 14));
    RomImage expected = editorState.image;
    const auto edited = [&](MapId id) {
      const int cell = random(0, 3);
      const int value = random(0, 255);
      const bool rpm = id == RPM_SCALE_FUEL || id == RPM_SCALE_FIRE;
      const int shown = rpm ? value * map.map(id).scale : value;
      gridOf(*findMapKind(id)).setText(rpm ? cell : 1, rpm ? 0 : cell + 1, std::to_string(shown));
      expected[static_cast<std::size_t>(map.map(id).address + cell)] =
          static_cast<std::uint8_t>(value);
    };
    for (const auto& [first, second] : pairs[scales]) {
      edited(first);
      edited(second);
    }
    for (int i = 0; i < 2; ++i) {
      if (!(i == 0 ? choice.first : choice.second)) continue;
      const auto [first, second] = pairs[scales][i];
      const MapEntry& from = map.map(choice.forward ? first : second);
      const MapEntry& to = map.map(choice.forward ? second : first);
      for (int k = 0; k < to.bytes; ++k) {
        expected[static_cast<std::size_t>(to.address + k)] =
            expected[static_cast<std::size_t>(from.address + k)];
      }
    }
    const RomImage saved = editorState.savedImage;
    const std::string unsaved = std::to_string(random(0, 255));
    form1().AddGrid1.setText(1, 1, unsaved);
    copy(scales ? "T_R" : "F_F", choice);
    ASSERT_EQ(editorState.image, expected) << "trial " << trial;
    ASSERT_EQ(editorState.savedImage, saved);
    ASSERT_EQ(form1().AddGrid1.text(1, 1), unsaved);
    ASSERT_EQ(form1().Grid3.text(1, 2), std::to_string(expected[0x181]));
    ASSERT_EQ(form1().RPM_FIRE.text(2, 0), std::to_string(100 * expected[0x25A]));
    ASSERT_EQ(form1().ProgressBar1.value(), 0);
  }
}

TEST_F(MapCopying, TheBoostFollowsATpCopyAlone) {
  loadCar();
  const auto boost = [] { return form1().TP_FIRE.text(0, 1); };
  form1().TP_FUEL.setText(1, 1, "64");
  form1().TP_FIRE.setText(0, 1, "old");
  copy("T_R", {true, false, true});
  EXPECT_EQ(boost(), "old");
  copy("T_R", {true, true, false});
  EXPECT_EQ(boost(), "-0.15");
}

TEST_F(MapCopying, UnequalAndAbsentMapsCopyTheSmallerSizeInsideTheImage) {
  startWithMap("TYPE_UNIT\r\nCAR\r\n" + mapBlock("HIGH_FUEL", "&H100", 8, 4, 32) +
               mapBlock("REG_FUEL", "&H0", 4, 4, 16) + mapBlock("HIGH_FIRE", "&H140", 8, 4, 32) +
               mapBlock("TP_SCALE_FUEL", "&H1FE", 8, 1, 8) +
               mapBlock("TP_SCALE_FIRE", "&H180", 8, 1, 8) +
               mapBlock("RPM_SCALE_FIRE", "&H190", 4, 1, 4, "50"));
  loadImage(patternImage(0x200));
  desk.boxes.clear();
  pick("F_F");
  EXPECT_TRUE(form3.Check1.enabled());
  EXPECT_FALSE(form3.Check2.enabled());
  RomImage expected = editorState.image;
  std::copy_n(expected.begin() + 0x100, 16, expected.begin());
  form3.userEnter();
  EXPECT_EQ(editorState.image, expected);

  // The fuel scale reaches past the image: its first two bytes exist.
  std::copy_n(expected.begin() + 0x1FE, 2, expected.begin() + 0x180);
  pick("T_R");
  EXPECT_TRUE(form4.Check2.enabled());
  form4.userEnter();
  EXPECT_EQ(editorState.image, expected);
  EXPECT_TRUE(form1().enabled());
}

}  // namespace
