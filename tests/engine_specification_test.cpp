// The dialog of the engine's three numbers: what it shows, what may be typed, OK and its ways out.
#include "calc/engine_specification.h"

#include "support.h"

namespace {

class EngineSpecification : public ProgramTest {
 protected:
  ~EngineSpecification() override { form2.unload(); }
  void load() {
    startWithMap(smallMap());
    loadImage(patternImage(0x400));
  }
  void open() {
    pick("set_spl");
    ASSERT_TRUE(form2.loaded());
  }
  void type(const std::string& displacement, const std::string& injector,
            const std::string& cylinders) {
    open();
    typeOver(form2.Text1, displacement);
    typeOver(form2.Text2, injector);
    typeOver(form2.Text3, cylinders);
  }
  std::string engine() const {
    return std::to_string(editorState.displacement) + ' ' +
           std::to_string(editorState.injectorSize) + ' ' + std::to_string(editorState.cylinders);
  }
};

TEST_F(EngineSpecification, OpensOverTheMainWindowInBothLanguages) {
  start();
  const char* const japanese =
      "仕様設定|排気量|インジェクター噴射量|気筒数|エンジンの総排気量を入力してください。|"
      "インジェクター１本あたりの噴射量を入力してください。|エンジンの気筒数を入力してください。";
  const char* const english =
      "Specification set up|Exhaust quantity|Injector blast-off quantity|Cylinder number|"
      "I input exhaust quantity of an engine.|I input injector around 1 capacity.|"
      "I input a cylinder number of an engine.";
  for (const auto& [language, texts] : {std::pair{1, english}, std::pair{0, japanese}}) {
    editorState.english = language;
    open();
    EXPECT_EQ(form2.caption() + '|' + form2.Label1.caption() + '|' + form2.Label2.caption() + '|' +
                  form2.Label5.caption() + '|' + form2.Text1.toolTip() + '|' +
                  form2.Text2.toolTip() + '|' + form2.Text3.toolTip(),
              texts);
    EXPECT_EQ(form2.Text3.text(), "0");
    EXPECT_TRUE(!form1().enabled() && form2.topmost() && form2.centredOn() == &form1());
    form2.userClose();
    EXPECT_TRUE(form1().enabled() && !form2.loaded() && !form2.topmost());
  }
}

TEST_F(EngineSpecification, OkStoresKeepsAndShowsTheNewEngine) {
  load();
  const std::string boost = form1().TP_FUEL.text(0, 1);
  EXPECT_EQ(form1().Label34.caption(), " 1998/4   Inj.370");
  type("2568", "440", "6");
  form2.Command2.userClick();
  EXPECT_EQ(engine(), "2568 440 6");
  EXPECT_EQ(form1().Label34.caption(), " 2568/6   Inj.440");
  EXPECT_NE(form1().TP_FUEL.text(0, 1), boost);
  EXPECT_NE(readText("zelkova.ini").find("\r\n 2568 \r\n 440 \r\n 6 \r\n"), std::string::npos);
  EXPECT_TRUE(form1().enabled() && !form2.loaded());
  open();
  EXPECT_EQ(form2.Text2.text(), "440");
}

TEST_F(EngineSpecification, EveryWayOutButOkChangesNothing) {
  load();
  const Bytes settings = readBytes("zelkova.ini");
  const std::function<void()> waysOut[] = {[] { form2.Command1.userClick(); },
                                           [] { form2.userEscape(); }, [] { form2.userClose(); }};
  for (const auto& leave : waysOut) {
    type("1", "2", "3");
    leave();
    EXPECT_FALSE(form2.loaded());
    EXPECT_TRUE(form1().enabled());
    EXPECT_EQ(engine(), "1998 370 4");
    EXPECT_EQ(form1().Label34.caption(), " 1998/4   Inj.370");
    EXPECT_EQ(readBytes("zelkova.ini"), settings);
  }
}

TEST_F(EngineSpecification, OnlyDigitsAreTypedAndTheFirstReplacesTheText) {
  start();
  open();
  EXPECT_EQ(form2.focus(), &form2.Text1);
  for (TextBox* box : {&form2.Text1, &form2.Text2, &form2.Text3}) {
    box->userFocus();
    EXPECT_EQ(box->selectionLength(), static_cast<int>(box->text().size()));
    box->userType("1a-.,+E 2\b3");
    EXPECT_EQ(box->text(), "13");
    box->userPaste("4x");
    EXPECT_EQ(box->text(), "134x");
  }
}

TEST_F(EngineSpecification, PastedNumbersAreReadAsFarAsTheyGo) {
  load();
  const std::string boost = form1().TP_FUEL.text(0, 1);
  struct Case {
    const char* pasted;
    int number;
  };
  const Case cases[] = {
      {"", 0},    {"abc", 0}, {"12cc", 12}, {"99999999999", 2147483647}, {"1e400", 2147483647},
      {"2.5", 2}, {"3.5", 4}, {" 7", 7}};
  for (const Case& c : cases) {
    open();
    for (TextBox* box : {&form2.Text1, &form2.Text2, &form2.Text3}) {
      typeOver(*box, "");
      box->userPaste(c.pasted);
    }
    form2.userEnter();
    const std::string number = std::to_string(c.number);
    EXPECT_EQ(engine(), number + ' ' + number + ' ' + number) << c.pasted;
    EXPECT_EQ(form1().Label34.caption(), ' ' + number + '/' + number + "   Inj." + number);
    EXPECT_EQ(form1().TP_FUEL.text(0, 1) == boost, c.number == 0) << c.pasted;
    form1().TP_FUEL.setText(0, 1, boost);
  }
  EXPECT_TRUE(desk.boxes.empty());
}

}  // namespace
