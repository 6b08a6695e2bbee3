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
  // Goes for another image, answers the guard if it asks, and cancels the dialog if it opens. What
  // the guard asked.
  std::string asked(BoxAnswer answer) {
    desk.boxAnswers.assign(1, answer);
    desk.openAnswers.assign(1, "");
    pick("load_bin_file");
    desk.boxAnswers.clear();
    desk.openAnswers.clear();
    return told();
  }
  // Another value than the image's into the first cell.
  void edit() { form1().Grid1.setText(1, 1, image[0x100] == 9 ? "10" : "9"); }

  const Bytes image = patternImage(0x400);
  const std::string question = "It is crowded as reading, though it aren't preserved for data ?";
};

TEST_F(UnsavedGuard, AsksInTheLanguageOnlyIfAByteDiffers) {
  EXPECT_EQ(asked(BoxAnswer::no), "");
  edit();
  EXPECT_EQ(asked(BoxAnswer::no), question);
  editorState.english = 0;
  EXPECT_EQ(asked(BoxAnswer::no), "データを保存しないで新しいデータを読み込みますか？");
  form1().Grid1.setText(1, 1, std::to_string(image[0x100]));
  EXPECT_EQ(asked(BoxAnswer::no), "") << "changed back";
  editorState.image[0x3FF] ^= 1;
  EXPECT_NE(asked(BoxAnswer::no), "") << "a byte that no map shows";
  pick("update_bin_file");
  EXPECT_EQ(asked(BoxAnswer::no), "");
}

TEST_F(UnsavedGuard, YesLosesTheEditsOnlyWhenTheLoadSucceeds) {
  edit();
  const std::string edited = form1().Grid1.text(1, 1);
  EXPECT_EQ(asked(BoxAnswer::yes), question);
  EXPECT_EQ(form1().Grid1.text(1, 1), edited);
  EXPECT_EQ(asked(BoxAnswer::yes), question);
  desk.boxAnswers.push_back(BoxAnswer::yes);
  loadImage(image, "again.bin");
  EXPECT_EQ(form1().Grid1.text(1, 1), std::to_string(image[0x100]));
  told();
  EXPECT_EQ(asked(BoxAnswer::no), "");
}

TEST_F(UnsavedGuard, AFailingWriteBackDoesNotStopTheQuestion) {
  edit();
  form1().Grid1.setText(1, 2, "256");
  EXPECT_EQ(asked(BoxAnswer::no), "ERROR (Function:SET_MEMORY)|" + question);
  EXPECT_TRUE(form1().ProgressBar1.value() == 0 && !desk.busy);
}

TEST_F(UnsavedGuard, ClosingAsksUntilTheAnswerIsYesAndSavesNothing) {
  const std::string settings = readText("zelkova.ini");
  edit();
  for (const auto& [english, answer] :
       {std::pair(1, BoxAnswer::no), std::pair(0, BoxAnswer::no), std::pair(1, BoxAnswer::yes)}) {
    editorState.english = english;
    desk.boxAnswers.push_back(answer);
    pick("owari");
    EXPECT_EQ(desk.boxes.at(0).title, english ? "I confirm a preservation" : "保存確認");
    EXPECT_EQ(told(), english ? "Do you end without preserving data?"
                              : "データを保存しないで終了しますか？");
    EXPECT_EQ(desk.ended, answer == BoxAnswer::yes);
    EXPECT_EQ(form1().loaded(), answer == BoxAnswer::no);
  }
  EXPECT_EQ(readBytes("image.bin"), image);
  EXPECT_EQ(readText("zelkova.ini"), settings);
}

TEST_F(UnsavedGuard, ClosingWithoutEditsAsksNothing) {
  form1().userClose();
  EXPECT_EQ(told(), "");
  EXPECT_TRUE(desk.ended);
}

}  // namespace
