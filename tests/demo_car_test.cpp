// The demo car as a newcomer meets it: the delivered settings start without a question, both
// address maps and the one that the manual lists fit the image, and nothing changes that nobody
// edited.
#include <algorithm>
#include <filesystem>

#include "core/map_kinds.h"
#include "core/settings_file.h"
#include "graphs/dr_graph.h"
#include "support.h"

namespace {

namespace fs = std::filesystem;

class DemoCar : public ProgramTest {
 protected:
  DemoCar() {
    const fs::path made = DEMO_FOLDER;
    fs::copy(made, path("demo"));
    fs::copy(made / "vqmap", path("vqmap"));
    fs::copy(made / "zelkova.ini", path("zelkova.ini"));
    start();
  }
};

TEST_F(DemoCar, StartsInEnglishAndWritesItsSettingsAndEveryMapUnchanged) {
  EXPECT_EQ(form1().Label1.caption(), "Demo car 2.0 turbo (made up)");
  const Bytes delivered = readBytes("zelkova.ini");
  fs::remove(path("zelkova.ini"));
  writeSettings();
  EXPECT_EQ(readBytes("zelkova.ini"), delivered);
  pickFile("load_bin_file", "demo/demo.bin");
  EXPECT_EQ(told(), "");
  int drawn = 0;
  for (const MapKind& kind : mapKinds()) {
    EXPECT_TRUE(gridOf(kind).visible()) << kind.keyword;
    drawn += editorState.addressMap.map(kind.id).present();
  }
  EXPECT_EQ(drawn, 18);
  EXPECT_EQ(saveImage("again.bin"), readBytes("demo/demo.bin"));
  pickFile("load_map_addr", "demo/demo_ja.adr");
  EXPECT_EQ(form1().Label1.caption(), "デモカー 2.0 ターボ (架空)");
  pickFile("load_bin_file", "demo/demo.bin");
  EXPECT_EQ(told(), "");
  EXPECT_EQ(saveImage("once more.bin"), readBytes("demo/demo.bin"));
}

TEST_F(DemoCar, LiesWholeInThePictureOfThe3DGraphFromBothSides) {
  pickFile("load_bin_file", "demo/demo.bin");
  for (int tab = HIGH_FUEL; tab <= REG_FIRE; ++tab) {
    selectTab(tab);
    pick("DISP_3D_Graph");
    for (Option* side : DR_GRAPH.viewDirection.members()) {
      side->userSelect();
      for (const CanvasItem& item : DR_GRAPH.Picture1.items()) {
        const auto [left, right] = std::minmax({item.x1, item.x2});
        const auto [top, bottom] = std::minmax({item.y1, item.y2});
        const bool inside = left >= 0 && right < DR_GRAPH.Picture1.width() && top >= 0 &&
                            bottom < DR_GRAPH.Picture1.height();
        ASSERT_TRUE(inside) << "tab " << tab << " at " << right << ", " << top;
      }
    }
    DR_GRAPH.Command1.userClick();
  }
}

TEST_F(DemoCar, FitsTheAddressMapThatTheManualLists) {
  fs::copy(MANUAL_FOLDER, path("manual"));
  for (const auto& [page, model] : {std::pair("manual/manual_en.html", "My car 2.0 turbo"),
                                    {"manual/manual_ja.html", "マイカー 2.0 ターボ"}}) {
    // The first listing whose first line is a comment.
    std::string listing = readText(page);
    listing = listing.substr(listing.find("<pre>\n#") + 6);
    listing.resize(listing.find("</pre>"));
    while (listing.find("&amp;") != listing.npos) listing.erase(listing.find("&amp;") + 1, 4);
    startWithMap(listing);
    pickFile("load_bin_file", "demo/demo.bin");
    EXPECT_EQ(told() + form1().Label1.caption(), model);
    std::ptrdiff_t present = 0;
    for (const MapEntry& entry : editorState.addressMap.maps) present += entry.present();
    for (const ParamEntry& entry : editorState.addressMap.params) present += entry.present();
    EXPECT_EQ(present, 18) << page;
    EXPECT_EQ(form1().RPM_FIRE.text(15, 0) + form1().Text4.text(), "80006500");
  }
}

}  // namespace
