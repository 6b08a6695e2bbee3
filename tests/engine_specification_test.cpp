// The dialog of the engine's three numbers: what it shows, what may be typed, OK and its ways out.
#include "calc/engine_specification.h"

#include "support.h"

namespace {

class EngineSpecification : public ProgramTest {
 protected:
  EngineSpecification() { loadSmallCar(); }
  ~EngineSpecification() override { form2.unload(); }
  // Opens the dialog and pastes a text into each of its boxes.
  void fill(const char* displacement, const char* injector, const char* cylinders) {
    pick("set_spl");
    for (const auto& [box, text] : {std::pair{&form2.Text1, displacement},
                                    {&form2.Text2, injector},
                                    {&form2.Text3, cylinders}}) {
      typeOver(*box, "");
      box->userPaste(text);
    }
  }
  static std::string engine() {
    return std::to_string(editorState.displacement) + ' ' +
           std::to_string(editorState.injectorSize) + ' ' + std::to_string(editorState.cylinders) +
           form1().Label34.caption();
  }
};

TEST_F(EngineSpecification, OkStoresKeepsAndShowsTheNewEngine) {
  fill("2568", "440", "6");
  form2.Command2.userClick();
  EXPECT_EQ(engine(), "2568 440 6 2568/6   Inj.440");
  EXPECT_NE(readText("zelkova.ini").find("\r\n 2568 \r\n 440 \r\n 6 \r\n"), std::string::npos);
  EXPECT_TRUE(form1().enabled() && !form2.loaded());
  pick("set_spl");
  EXPECT_EQ(form2.Text1.text() + form2.Text2.text() + form2.Text3.text(), "25684406");
  for (TextBox* box : {&form2.Text1, &form2.Text2, &form2.Text3}) {
    typeOver(*box, "1a-.,+E 2\b3");
    EXPECT_EQ(box->text(), "13") << "digits alone";
  }
}

TEST_F(EngineSpecification, EveryWayOutButOkChangesNothing) {
  const Bytes settings = readBytes("zelkova.ini");
  const std::function<void()> waysOut[] = {[] { form2.Command1.userClick(); },
                                           [] { form2.userEscape(); }, [] { form2.userClose(); }};
  for (const auto& leave : waysOut) {
    fill("1", "2", "3");
    leave();
    EXPECT_TRUE(form1().enabled() && !form2.loaded());
    EXPECT_EQ(engine(), "1998 370 4 1998/4   Inj.370");
    EXPECT_EQ(readBytes("zelkova.ini"), settings);
  }
}

TEST_F(EngineSpecification, PastedNumbersAreReadAsFarAsTheyGoAndTheBoostFollows) {
  for (const auto& [pasted, expected] :
       {std::pair{"", "0"}, std::pair{"12cc", "12"}, std::pair{"1e400", "2147483647"},
        std::pair{"2.5", "2"}, std::pair{"3.5", "4"}}) {
    form1().TP_FUEL.setText(0, 1, "old");
    fill(pasted, pasted, pasted);
    form2.userEnter();
    const std::string n = expected;
    EXPECT_EQ(engine(), n + ' ' + n + ' ' + n + ' ' + n + '/' + n + "   Inj." + n) << pasted;
    EXPECT_EQ(form1().TP_FUEL.text(0, 1) == "old", n == "0") << pasted;
  }
}

}  // namespace
