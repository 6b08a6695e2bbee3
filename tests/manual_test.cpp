// The manual against the program: the address map that it lists is read and fits the demo car.
#include <filesystem>

#include "core/rom_image.h"
#include "support.h"

namespace {

namespace fs = std::filesystem;

// A page, and the model that its address map names.
const std::pair<const char*, const char*> languages[] = {
    {"manual/manual_en.html", "My car 2.0 turbo"},
    {"manual/manual_ja.html", "マイカー 2.0 ターボ"}};

class ManualTest : public ProgramTest {
 protected:
  ManualTest() {
    fs::copy(MANUAL_FOLDER, path("manual"));
    fs::copy(fs::path(DEMO_FOLDER) / "demo.bin", path("demo.bin"));
  }
};

TEST_F(ManualTest, TheListedAddressMapFitsTheDemoCar) {
  for (const auto& [page, model] : languages) {
    // The first listing whose first line is a comment.
    std::string listing = readText(page);
    listing = listing.substr(listing.find("<pre>\n#") + 6);
    listing.resize(listing.find("</pre>"));
    while (listing.find("&amp;") != listing.npos) listing.erase(listing.find("&amp;") + 1, 4);
    startAnewWithMap(listing);
    pickFile("load_bin_file", "demo.bin");
    EXPECT_EQ(told() + form1().Label1.caption(), model);
    EXPECT_TRUE(isRomLoaded());
    int present = 0;
    for (const MapEntry& entry : editorState.addressMap.maps) present += entry.present();
    for (const ParamEntry& entry : editorState.addressMap.params) present += entry.present();
    EXPECT_EQ(present, 18) << page;
    EXPECT_EQ(form1().RPM_FIRE.text(15, 0) + form1().Text4.text(), "80006500");
  }
}

}  // namespace
