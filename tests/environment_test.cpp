// The environment dialog, entered as a user does.
#include "frontend/environment.h"

#include "platform/text_encoding.h"
#include "support.h"

namespace {

using EnvironmentTest = ProgramTest;

TEST_F(EnvironmentTest, ShowsTheSettingsAndTakesThemOverAtOkAlone) {
  loadSmallCar();
  pick("SET_DEFAULT_FOLDER");
  EXPECT_EQ(form9.caption() + form9.Text3.text() + form9.Text6.text() + form9.Text9.text(),
            "Environment set up+302");
  form9.Text1.userEdit("/maps");
  for (const char* rate : {"", "1x", "99999999999"}) {
    form9.Text5.userEdit(rate);
    form9.Command1.userClick();
    EXPECT_TRUE(form9.loaded() && editorState.addressFolder.empty()) << rate;
    EXPECT_EQ(told(), "Wrong data are inputed.") << rate;
  }
  form9.userClose();
  EXPECT_FALSE(form9.loaded());
  EXPECT_EQ(readText("zelkova.ini"), firstSettings("map.adr"));

  pick("SET_DEFAULT_FOLDER");
  const std::pair<TextBox*, const char*> entries[] = {
      {&form9.Text1, "/車"}, {&form9.Text2, "/roms"}, {&form9.Text3, "#longer"},
      {&form9.Text5, "&H2"}, {&form9.Text6, "31x"},   {&form9.Text7, "abc"},
      {&form9.Text8, "0"},   {&form9.Text9, "2.5"}};
  for (const auto& [box, text] : entries) box->userEdit(text);
  form9.Check1.userToggle();
  EXPECT_EQ(editorState.english, 1);
  form9.userEnter();
  EXPECT_EQ(editorState.gridColorRate * 10 + editorState.english, 20);
  const std::vector<std::string> lines = splitLines(readText("zelkova.ini"));
  ASSERT_EQ(lines.size(), 25U);
  EXPECT_EQ(lines[5] + lines[6] + lines[10] + lines[15], "/車/roms#longer 2 ");
  EXPECT_EQ(lines[21] + lines[22] + lines[23] + lines[24], " 31  0  0  2.5 ");
  Grid& grid = form1().Grid1;
  grid.setText(1, 1, "10");
  for (const char32_t key : {U'+', U'#'}) grid.userKey(key);
  EXPECT_EQ(grid.text(1, 1), "11");
}

}  // namespace
