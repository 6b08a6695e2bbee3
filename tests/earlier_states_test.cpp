// The store of earlier states: what comes into it, what the list shows and gives back, what goes,
// and a store that others damaged.
#include "core/earlier_states.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "changes/differences_window.h"
#include "core/differences.h"
#include "core/pending_image.h"
#include "imagefiles/earlier_states_window.h"
#include "imagefiles/intel_hex_file.h"
#include "imagefiles/odd_even.h"
#include "support.h"

namespace {

namespace fs = std::filesystem;

class EarlierStates : public ProgramTest {
 protected:
  EarlierStates() { desk.userData = path("data"); }

  void step() {
    drag(form1().Grid1, 1, 1, 1, 1);
    form1().Grid1.userKey(U'+');
    form1().Grid1.userKeyUp();
  }
  // Opens the list of all states: name, why, bytes and how many differ of each.
  std::string listed() {
    if (!earlierStatesWindow.loaded()) pick("earlier_states");
    if (earlierStatesWindow.thisFileOnly.checked()) earlierStatesWindow.thisFileOnly.userToggle();
    return textsOf(earlierStatesWindow.list, 1, 1, "|", "\n");
  }
  void choose(int row) { earlierStatesWindow.list.userSelect({row, 0, row, 0}); }
};

TEST_F(EarlierStates, WhatASaveReplacesIsListedComparedLoadedCopiedAndForgotten) {
  loadSmallCar();
  const Bytes original = patternImage(0x400), others = patternImage(77, 5);
  EXPECT_EQ(listed(), "|||\n");
  EXPECT_FALSE(earlierStatesWindow.forget.enabled() || earlierStatesWindow.loadState.enabled());
  earlierStatesWindow.userClose();
  step();
  for (int i = 0; i < 2; ++i) pick("update_bin_file");  // the second replaces nothing
  const Bytes saved = readBytes("image.bin");
  writeBytes("image.bin", others);
  step();
  pick("update_bin_file");
  writeIntelHex(path("other.hex"), original);
  const std::string hex = readText("other.hex");
  desk.boxAnswers.push_back(BoxAnswer::ok);
  pick("ANY_NAME_SAVE_IntelHEX", {"other.hex"});
  const std::string hexBytes = std::to_string(hex.size());
  EXPECT_EQ(listed(), "other.hex|before a save|" + hexBytes + "|1\nimage.bin|before a save|77|" +
                          std::to_string(1024) + "\nimage.bin|before a save|1024|1\n");

  choose(3);
  EXPECT_EQ(earlierStatesWindow.heading.caption(), path("image.bin"));
  earlierStatesWindow.showDifferences.userClick();
  EXPECT_EQ(*referenceImage(), original);
  EXPECT_TRUE(differencesWindow.loaded() && editorState.compareLoaded == 0);
  EXPECT_NE(differencesWindow.heading.caption().find(" - image.bin 20"), std::string::npos);
  differencesWindow.userClose();

  listed();
  choose(1);
  desk.saveAnswers.push_back(path("copy.hex"));
  earlierStatesWindow.saveCopy.userClick();
  EXPECT_EQ(readText("copy.hex"), hex);

  earlierStatesWindow.userClose();
  step();
  for (const BoxAnswer answer : {BoxAnswer::no, BoxAnswer::yes}) {
    listed();
    choose(3);
    desk.boxAnswers.push_back(answer);
    earlierStatesWindow.userEnter();
    EXPECT_FALSE(earlierStatesWindow.loaded());
    EXPECT_EQ(editorState.image == original, answer == BoxAnswer::yes);
  }
  EXPECT_EQ(editorState.imageTitle, "image.bin");
  EXPECT_EQ(readBytes("image.bin"), editorState.savedImage);
  EXPECT_NE(editorState.savedImage, original) << "it isn't saved yet";
  EXPECT_EQ(listed().substr(0, 40), "other.hex|given up unsaved|1024|1\nother.");
  choose(1);
  for (int left = 3; left >= 0; --left) {
    earlierStatesWindow.forget.userClick();
    EXPECT_EQ(static_cast<int>(earlierStates().size()), left);
  }
}

}  // namespace
