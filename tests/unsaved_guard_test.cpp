// The guard before another image is loaded, and at shut-down.
#include "core/unsaved_guard.h"

#include "support.h"

namespace {

class UnsavedGuard : public ProgramTest {
 protected:
  UnsavedGuard() {
    startWithMap(smallMap());
    loadImage(image);
  }
  // What the guard asks about another image; the file dialog is cancelled if it opens.
  std::string asked(BoxAnswer answer = BoxAnswer::no) {
    desk.boxAnswers.assign(1, answer);
    desk.openAnswers.assign(1, "");
    pick("load_bin_file");
    const std::string asked = told();
    EXPECT_EQ(desk.openAnswers.empty(), asked.empty() || answer == BoxAnswer::yes);
    desk.boxAnswers.clear();
    desk.openAnswers.clear();
    return asked;
  }
  const Bytes image = patternImage(0x400);
  Grid& cells = form1().Grid1;
  const std::string first = std::to_string(image[0x100]);
  const std::string question = "It is crowded as reading, though it aren't preserved for data ?";
};

TEST_F(UnsavedGuard, AsksInTheLanguageOnlyIfAByteDiffers) {
  EXPECT_EQ(asked(), "");
  cells.setText(1, 1, "9");
  EXPECT_EQ(asked(), question);
  editorState.english = 0;
  EXPECT_EQ(asked(), "データを保存しないで新しいデータを読み込みますか？");
  cells.setText(1, 1, first);
  EXPECT_EQ(asked(), "") << "changed back";
  editorState.image[0x3FF] ^= 1;
  EXPECT_NE(asked(), "") << "a byte that no map shows";
  pick("update_bin_file");
  EXPECT_EQ(asked(), "");
}

TEST_F(UnsavedGuard, YesLosesTheEditsOnlyWhenTheLoadSucceeds) {
  cells.setText(1, 1, "9");
  EXPECT_EQ(asked(BoxAnswer::yes) + cells.text(1, 1), question + "9");
  cells.setText(1, 2, "256");
  EXPECT_EQ(asked(), "ERROR (Function:SET_MEMORY)|" + question) << "a failing write-back asks too";
  desk.boxAnswers.push_back(BoxAnswer::yes);
  loadImage(image, "again.bin");
  told();
  EXPECT_EQ(asked() + cells.text(1, 1), first);
}

TEST_F(UnsavedGuard, ClosingAsksUntilTheAnswerIsYesAndSavesNothing) {
  cells.setText(1, 1, "9");
  for (const auto& [english, answer, closeBox] :
       {std::tuple(1, BoxAnswer::no, false), std::tuple(1, BoxAnswer::no, true),
        std::tuple(0, BoxAnswer::no, false), std::tuple(1, BoxAnswer::yes, true)}) {
    editorState.english = english;
    desk.boxAnswers.push_back(answer);
    closeBox ? form1().userClose() : pick("owari");
    EXPECT_EQ(told(), english ? "Do you end without preserving data?"
                              : "データを保存しないで終了しますか？");
    EXPECT_TRUE(desk.ended == (answer == BoxAnswer::yes) && desk.ended != form1().loaded());
  }
  EXPECT_TRUE(readBytes("image.bin") == image &&
              readText("zelkova.ini") == firstSettings("map.adr"));
}

}  // namespace
