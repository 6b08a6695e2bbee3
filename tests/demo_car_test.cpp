// The demo car as a newcomer meets it: the delivered settings start without a question, both
// address maps fit the image, and nothing changes that nobody edited.
#include <filesystem>

#include "core/map_kinds.h"
#include "core/settings_file.h"
#include "support.h"

namespace {

namespace fs = std::filesystem;

using DemoCar = ProgramTest;

TEST_F(DemoCar, StartsInEnglishAndWritesItsSettingsAndEveryMapUnchanged) {
  const fs::path made = DEMO_FOLDER;
  fs::copy(made, path("demo"));
  fs::copy(made / "vqmap", path("vqmap"));
  fs::copy(made / "zelkova.ini", path("zelkova.ini"));
  start();
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

}  // namespace
