// The manual against the program: its address map is read and fits the demo car, and no command
// and no failure number is missing from it.
#include <filesystem>

#include "core/rom_image.h"
#include "frontend/main_menu.h"
#include "platform/failure.h"
#include "support.h"

namespace {

namespace fs = std::filesystem;

struct Language {
  const char* page;
  const char* MenuRow::*caption;
  const char* model;
};

const Language languages[] = {
    {"manual_en.html", &MenuRow::english, "My car 2.0 turbo"},
    {"manual_ja.html", &MenuRow::japanese, "マイカー 2.0 ターボ"},
};

class ManualTest : public ProgramTest {
 protected:
  ManualTest() { fs::copy(MANUAL_FOLDER, path("manual")); }

  std::string page(const Language& language) const {
    return readText(std::string("manual/") + language.page);
  }
  // The first listing whose first line is a comment.
  std::string listedMap(const Language& language) const {
    std::string text = page(language);
    text = text.substr(text.find("<pre>\n#") + 6);
    text.resize(text.find("</pre>"));
    for (auto at = text.find("&amp;"); at != std::string::npos; at = text.find("&amp;")) {
      text.replace(at, 5, "&");
    }
    return text;
  }
};

TEST_F(ManualTest, TheListedAddressMapFitsTheDemoCar) {
  writeText("en.adr", listedMap(languages[0]));
  writeText("ja.adr", listedMap(languages[1]));
  fs::copy(fs::path(DEMO_FOLDER) / "demo.bin", path("demo.bin"));
  start();
  desk.boxes.clear();
  for (const Language& language : languages) {
    desk.openAnswers.push_back(path(&language == languages ? "en.adr" : "ja.adr"));
    pick("load_map_addr");
    desk.openAnswers.push_back(path("demo.bin"));
    pick("load_bin_file");
    EXPECT_TRUE(desk.boxes.empty()) << language.page << ": " << lastBox();
    EXPECT_EQ(form1().Label1.caption(), language.model);
    EXPECT_TRUE(isRomLoaded());
    int present = 0;
    for (const MapEntry& entry : editorState.addressMap.maps) present += entry.present();
    for (const ParamEntry& entry : editorState.addressMap.params) present += entry.present();
    EXPECT_EQ(present, 18) << language.page;
    EXPECT_EQ(form1().RPM_FIRE.text(15, 0), "8000");
    EXPECT_EQ(form1().Text4.text(), "6500");
  }
}

TEST_F(ManualTest, EveryCommandIsTold) {
  for (const Language& language : languages) {
    const std::string text = page(language);
    for (const MenuRow& row : menuRows()) {
      if (!row.routine || row.level == 4) continue;  // the airflow tables are told together
      EXPECT_NE(text.find(row.*language.caption), std::string::npos)
          << row.*language.caption << " in " << language.page;
    }
  }
}

TEST_F(ManualTest, EveryFailureNumberIsTold) {
  const int numbers[] = {overflow,     outOfMemory,   badSubscript,   divisionByZero,
                         typeMismatch, internalError, fileNotFound,   deviceError,
                         diskFull,     diskNotReady,  pathFileAccess, pathNotFound};
  for (const Language& language : languages) {
    const std::string text = page(language);
    for (const int number : numbers) {
      const std::string row = "<td class=\"number\">" + std::to_string(number) + "</td><td>" +
                              failureText(number) + "</td>";
      EXPECT_NE(text.find(row), std::string::npos) << number << " in " << language.page;
    }
  }
}

TEST_F(ManualTest, EveryPictureIsThere) {
  for (const Language& language : languages) {
    const std::string text = page(language);
    const std::string opening = "src=\"";
    int pictures = 0;
    for (auto at = text.find(opening); at != std::string::npos; at = text.find(opening, at + 1)) {
      const auto begin = at + opening.size();
      const std::string name = text.substr(begin, text.find('"', begin) - begin);
      EXPECT_TRUE(fs::exists(fs::path(MANUAL_FOLDER) / name)) << name;
      ++pictures;
    }
    EXPECT_GT(pictures, 0);
  }
}

}  // namespace
