// The dialog of the engine's three numbers: what it shows, what may be typed, OK and its ways out.
#include "calc/engine_specification.h"

#include "support.h"

namespace {

class EngineSpecification : public ProgramTest {
 protected:
  EngineSpecification() { loadSmallCar(); }
  // Opens the dialog and pastes a text into each of its boxes.
  void fill(const char* displacement, const char* injector, const char* cylinders) {
    pick("set_spl");
    for (const auto& [box, text] : {std::pair{&form2.Text1, displacement},
                                    {&form2.Text2, injector},
                                    {&form2.Text3, cylinders}}) {
      typeOver(*box, "");
      box->userEdit(text);
    }
  }
  static std::string engine() {
    return std::to_string(editorState.displacement) + ' ' +
           std::to_string(editorState.injectorSize) + ' ' + std::to_string(editorState.cylinders) +
           form1().Label34.caption();
  }
};

TEST_F(EngineSpecification, OkStoresKeepsAndShowsTheNewEngine) {
  fill("1", "2", "3");
  form2.userEscape();
  EXPECT_EQ(engine() + readText("zelkova.ini"),
            "1998 370 4 1998/4   Inj.370" + firstSettings("map.adr"));
  fill("2568", "440cc", "5.6");
  form2.Command2.userClick();
  EXPECT_EQ(engine(), "2568 440 6 2568/6   Inj.440");
  EXPECT_NE(readText("zelkova.ini").find("\r\n 2568 \r\n 440 \r\n 6 \r\n"), std::string::npos);
  EXPECT_TRUE(form1().enabled() && !form2.loaded());
  pick("set_spl");
  EXPECT_EQ(form2.Text1.text() + " " + form2.Text2.text() + " " + form2.Text3.text(), "2568 440 6");
  for (TextBox* box : {&form2.Text1, &form2.Text2, &form2.Text3}) {
    typeOver(*box, "1a-.,+E 2\b3");
    EXPECT_EQ(box->text(), "13") << "digits alone";
  }
}

}  // namespace
