// Recent files: which saves enter the list, its order in store and menu, clearing it, and loading
// from it.
#include "imagefiles/recent_files.h"

#include "imagefiles/intel_hex_file.h"
#include "support.h"

namespace {

using Names = std::vector<std::string>;

class RecentFiles : public ProgramTest {
 protected:
  RecentFiles() { startWithMap(smallMap()); }
  Names shown() {
    Names names;
    for (const MenuItem* item : form1().mnuRecentFile) {
      if (item->visible()) names.push_back(item->caption());
    }
    return names;
  }
  // Puts a file at the top of the list and picks it.
  void pickEntry(const std::string& name) {
    addRecentFile(path(name));
    form1().mnuRecentFile[0]->userPick();
  }
};

TEST_F(RecentFiles, NineSavedFilesAreListedNewestFirstAndKeptUntilTheListIsCleared) {
  loadImage(patternImage(4096));
  desk.storeWorks = false;
  EXPECT_EQ(saveImage("saved.bin"), patternImage(4096)) << "the store harms no save";
  desk.storeWorks = true;
  pick("update_bin_file");
  Names expected{path("saved.bin")};
  const auto save = [&](const std::string& name) {
    saveImage(name);
    expected.insert(expected.begin(), path(name));
    if (expected.size() > 9) expected.pop_back();
    EXPECT_EQ(shown(), expected);
  };
  for (int i = 1; i <= 10; ++i) save("save" + std::to_string(i) + ".bin");
  desk.boxAnswers = {BoxAnswer::ok, BoxAnswer::ok};
  saveImage("save5.bin");
  EXPECT_EQ(shown(), expected) << "listed files stay where they are";
  save("save1.bin");
  start();
  EXPECT_EQ(shown(), expected);
  clearRecentFiles();
  addRecentFile(expected.back());
  EXPECT_EQ(shown(), Names{}) << "cleared files count as known";
  addRecentFile("X.bin");
  EXPECT_EQ(shown(), Names{"X.bin"});
}

TEST_F(RecentFiles, AnEntryLoadsByItsExtensionUnlessItIsRefusedOrGone) {
  const Bytes image = patternImage(4096);
  writeBytes("raw.Bin", image);
  writeIntelHex(path("text.HEX"), image);
  for (const std::string name : {"raw.Bin", "text.HEX"}) {
    editorState.imageSize = 0;
    pickEntry(name);
    EXPECT_TRUE(editorState.image == image && editorState.savedImage == image) << name;
    EXPECT_EQ(form1().Label20.caption() + form1().caption() + form1().Grid1.text(1, 1),
              "File size =  4096 Bytes" + name + " - ZELKOVA" + std::to_string(image[0x100]));
  }
  editorState.image[0] ^= 1;
  const Bytes edited = editorState.image;
  desk.boxAnswers = {BoxAnswer::no};
  pickEntry("raw.Bin");
  pickEntry("car.rom");
  editorState.addressMap.typeUnit = "";
  pickEntry("raw.Bin");
  EXPECT_EQ(
      told(),
      std::string(discardQuestion) +
          "|The extension child can judge it.|An address file reads and been crowded, it aren't "
          "possible to read ROM data and be crowded.");
  EXPECT_EQ(editorState.image, edited);
  useMap(smallMap());
  desk.boxAnswers = {BoxAnswer::yes};
  pickEntry("gone.hex");
  EXPECT_TRUE(told().ends_with(
      "|A file don't exist.  Are transported whether a file were deleted or not.gone.hex"));
  EXPECT_TRUE(editorState.imageSize == 0 && editorState.image.empty());
}

}  // namespace
