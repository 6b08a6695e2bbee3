// The guard before another image is loaded, and at shut-down.
#include "core/unsaved_guard.h"

#include "core/rom_image.h"
#include "support.h"

namespace {

class UnsavedGuard : public ProgramTest {
 protected:
  UnsavedGuard() {
    startWithMap(smallMap());
    loadImage(image);
  }
  // Picks a load that the guard lets pass and the user then cancels; how many questions it asked.
  std::size_t questions(BoxAnswer answer, bool dialogOpens) {
    desk.boxes.clear();
    desk.boxAnswers.assign(1, answer);
    if (dialogOpens) desk.openAnswers.push_back("");
    pick("load_bin_file");
    desk.boxAnswers.clear();
    return desk.boxes.size();
  }
  const Bytes image = patternImage(0x400);
};

TEST_F(UnsavedGuard, AsksInTheLanguageOnlyIfAByteDiffers) {
  EXPECT_EQ(questions(BoxAnswer::no, true), 0U);
  const std::string before = form1().Grid1.text(1, 1);
  form1().Grid1.setText(1, 1, before == "9" ? "10" : "9");
  EXPECT_EQ(questions(BoxAnswer::no, false), 1U);
  EXPECT_EQ(desk.boxes[0].title, "I confirm it including a reading");
  EXPECT_EQ(lastBox(), "It is crowded as reading, though it aren't preserved for data ?");
  EXPECT_EQ(desk.boxes[0].icon, BoxIcon::information);
  editorState.english = 0;
  EXPECT_EQ(questions(BoxAnswer::no, false), 1U);
  EXPECT_EQ(desk.boxes[0].title + lastBox(),
            "読み込み確認データを保存しないで新しいデータを読み込みますか？");
  form1().Grid1.setText(1, 1, before);
  EXPECT_EQ(questions(BoxAnswer::no, true), 0U) << "changed back";
}

TEST_F(UnsavedGuard, EveryKindOfEditCounts) {
  const auto asksAfter = [this](const std::function<void()>& edit) {
    edit();
    const bool asked = questions(BoxAnswer::no, false) == 1;
    desk.openAnswers.clear();
    pick("update_bin_file");
    return asked;
  };
  Form1& form = form1();
  EXPECT_TRUE(
      asksAfter([&] { form.Grid5.setText(1, 8, form.Grid5.text(1, 8) == "1" ? "2" : "1"); }));
  EXPECT_TRUE(asksAfter(
      [&] { form.RPM_FUEL.setText(3, 0, form.RPM_FUEL.text(3, 0) == "50" ? "100" : "50"); }));
  EXPECT_TRUE(
      asksAfter([&] { form.AddGrid1.setText(4, 4, form.AddGrid1.text(4, 4) == "2" ? "4" : "2"); }));
  EXPECT_TRUE(asksAfter([&] {
    form.Text1.userFocus();
    form.Text1.userType(form.Text1.text() == "12AB" ? "12AC" : "12AB");
  }));
  EXPECT_TRUE(asksAfter([&] { editorState.image[0x3FF] ^= 1; })) << "a byte that no map shows";
}

TEST_F(UnsavedGuard, YesLosesTheEditsOnlyWhenTheLoadSucceeds) {
  form1().Grid1.setText(1, 1, image[0x100] == 9 ? "10" : "9");
  const std::string edited = form1().Grid1.text(1, 1);
  EXPECT_EQ(questions(BoxAnswer::yes, true), 1U);
  EXPECT_EQ(form1().Grid1.text(1, 1), edited);
  EXPECT_EQ(questions(BoxAnswer::yes, true), 1U) << "asks again";
  desk.boxAnswers.push_back(BoxAnswer::yes);
  loadImage(image, "again.bin");
  EXPECT_EQ(form1().Grid1.text(1, 1), std::to_string(image[0x100]));
  EXPECT_EQ(questions(BoxAnswer::no, true), 0U);
}

TEST_F(UnsavedGuard, AFailingWriteBackDoesNotStopTheQuestion) {
  form1().Grid1.setText(1, 1, image[0x100] == 9 ? "10" : "9");
  form1().Grid1.setText(1, 2, "256");
  desk.boxAnswers.push_back(BoxAnswer::no);
  pick("load_bin_file");
  ASSERT_EQ(desk.boxes.size(), 2U);
  EXPECT_EQ(desk.boxes[0].text, "ERROR (Function:SET_MEMORY)");
  EXPECT_EQ(form1().ProgressBar1.value(), 0);
  EXPECT_EQ(desk.pointerChanges.back(), false);
}

TEST_F(UnsavedGuard, AShownLimitThatLosesItsFractionCountsAsAnEdit) {
  writeText("map.adr", "TYPE_UNIT\nX\n" + mapBlock("REV1_LIMIT", "0", 1, 1, 1, "0.3"));
  desk.openAnswers.push_back(path("map.adr"));
  pick("load_map_addr");
  desk.boxAnswers.push_back(BoxAnswer::yes);
  loadImage({10, 1});
  EXPECT_EQ(form1().Text4.text(), "3");
  EXPECT_EQ(questions(BoxAnswer::no, false), 1U);
  EXPECT_EQ(editorState.image[0], 9);
}

TEST_F(UnsavedGuard, ClosingAsksUntilTheAnswerIsYes) {
  struct Row {
    bool edit;
    int english;
    BoxAnswer answer;
    std::size_t asked;
    bool ends;
  };
  for (const Row& row :
       {Row{true, 1, BoxAnswer::no, 1, false}, Row{true, 0, BoxAnswer::no, 1, false},
        Row{true, 1, BoxAnswer::yes, 1, true}}) {
    desk.boxes.clear();
    editorState.english = row.english;
    form1().Grid1.setText(1, 1, image[0x100] == 9 ? "10" : "9");
    desk.boxAnswers.assign(1, row.answer);
    pick("owari");
    ASSERT_EQ(desk.boxes.size(), row.asked);
    EXPECT_EQ(desk.boxes[0].title + lastBox(),
              row.english ? "I confirm a preservationDo you end without preserving data?"
                          : "保存確認データを保存しないで終了しますか？");
    EXPECT_EQ(desk.ended, row.ends);
    EXPECT_EQ(form1().loaded(), !row.ends);
  }
  EXPECT_EQ(readBytes("image.bin"), image) << "nothing is saved";
}

TEST_F(UnsavedGuard, ClosingWithoutEditsAsksNothingAndWritesNothing) {
  const std::string settings = readText("zelkova.ini");
  editorState.graphStepX = 99;
  form1().userClose();
  EXPECT_TRUE(desk.ended && desk.boxes.empty());
  EXPECT_EQ(readText("zelkova.ini"), settings);
}

}  // namespace
