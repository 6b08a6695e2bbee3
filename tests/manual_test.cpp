// The manual against the program: its address map is read and fits the demo car, and no command,
// no failure number and no picture is missing from it.
#include <filesystem>

#include "core/rom_image.h"
#include "frontend/main_menu.h"
#include "platform/failure.h"
#include "support.h"

namespace {

namespace fs = std::filesystem;

const struct {
  const char* page;
  const char* MenuRow::*caption;
  const char* model;
} languages[] = {{"manual/manual_en.html", &MenuRow::english, "My car 2.0 turbo"},
                 {"manual/manual_ja.html", &MenuRow::japanese, "マイカー 2.0 ターボ"}};

class ManualTest : public ProgramTest {
 protected:
  ManualTest() {
    fs::copy(MANUAL_FOLDER, path("manual"));
    fs::copy(fs::path(DEMO_FOLDER) / "demo.bin", path("demo.bin"));
  }
};

TEST_F(ManualTest, TheListedAddressMapFitsTheDemoCar) {
  for (const auto& language : languages) {
    // The first listing whose first line is a comment.
    std::string listing = readText(language.page);
    listing = listing.substr(listing.find("<pre>\n#") + 6);
    listing.resize(listing.find("</pre>"));
    while (listing.find("&amp;") != listing.npos) listing.erase(listing.find("&amp;") + 1, 4);
    startAnewWithMap(listing);
    pickFile("load_bin_file", "demo.bin");
    EXPECT_EQ(told() + form1().Label1.caption(), language.model);
    EXPECT_TRUE(isRomLoaded());
    int present = 0;
    for (const MapEntry& entry : editorState.addressMap.maps) present += entry.present();
    for (const ParamEntry& entry : editorState.addressMap.params) present += entry.present();
    EXPECT_EQ(present, 18) << language.page;
    EXPECT_EQ(form1().RPM_FIRE.text(15, 0) + form1().Text4.text(), "80006500");
  }
}

TEST_F(ManualTest, EveryCommandFailureAndPictureIsThere) {
  for (const auto& language : languages) {
    const std::string text = readText(language.page);
    const auto expectTold = [&](const std::string& words) {
      EXPECT_NE(text.find(words), std::string::npos) << words << " in " << language.page;
    };
    for (const MenuRow& row : menuRows()) {  // the airflow tables are told together
      if (row.routine && row.level != 4) expectTold(row.*language.caption);
    }
    for (int number = 2; number < 100; ++number) {
      if (failureText(number) == failureText(1)) continue;
      expectTold("<td class=\"number\">" + std::to_string(number) + "</td><td>" +
                 failureText(number) + "</td>");
    }
    expectTold("src=\"");
    for (auto at = text.find("src=\""); at != std::string::npos; at = text.find("src=\"", at + 1)) {
      const std::string name = text.substr(at + 5, text.find('"', at + 5) - at - 5);
      EXPECT_TRUE(fs::exists(fs::path(MANUAL_FOLDER) / name)) << name;
    }
  }
}

}  // namespace
