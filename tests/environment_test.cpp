// The environment dialog, the splash window and the version window, entered as a user does.
#include "frontend/environment.h"

#include "frontend/about.h"
#include "frontend/splash.h"
#include "frontend/startup.h"
#include "platform/text_encoding.h"
#include "support.h"

namespace {

using EnvironmentTest = ProgramTest;

TEST_F(EnvironmentTest, ShowsTheSettingsAndTakesThemOverAtOkAlone) {
  loadSmallCar();
  editorState.romFolder = "/r";
  pick("SET_DEFAULT_FOLDER");
  EXPECT_EQ(form9.Text1.text() + "|" + form9.Text2.text(), "|/r");
  EXPECT_EQ(form9.Text3.text() + " " + form9.Text6.text() + " " + form9.Text9.text(), "+ 30 2");
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
  form9.userEnter();
  EXPECT_EQ(editorState.gridColorRate, 2);
  const std::vector<std::string> lines = splitLines(readText("zelkova.ini"));
  ASSERT_EQ(lines.size(), 25U);
  EXPECT_EQ(lines[5] + lines[6] + lines[10] + lines[15], "/車/roms#longer 2 ");
  EXPECT_EQ(lines[21] + lines[22] + lines[23] + lines[24], " 31  0  0  2.5 ");
  Grid& grid = form1().Grid1;
  grid.setText(1, 1, "10");
  for (const char32_t key : {U'+', U'#'}) grid.userKey(key);
  EXPECT_EQ(grid.text(1, 1), "11");
}

TEST_F(EnvironmentTest, TellsOfTheRestartInTheLanguageJustChosenAndAsksForFolders) {
  loadSmallCar();
  pick("SET_DEFAULT_FOLDER");
  for (int i = 0; i < 2; ++i) form9.Check1.userToggle();
  EXPECT_EQ(told(),
            "言語を変更したため、このアプリケーションを一度再起動して下さい。|"
            "Please re-start- this application 1 time, because I changed a language.");
  form9.Check1.userToggle();
  EXPECT_EQ(editorState.english, 1);
  form9.Command1.userClick();
  EXPECT_EQ(editorState.english, 0);
  EXPECT_EQ(form1().menuBar.find("file_load")->caption(), "File");
  pick("SET_DEFAULT_FOLDER");
  desk.folderAnswers = {"/chosen", ""};
  form9.Text2.userEdit("/old");
  for (Button* button : {&form9.Command3, &form9.Command4}) button->userClick();
  EXPECT_EQ(form9.caption() + form9.Text1.text() + form9.Text2.text(), "環境設定/chosen")
      << "a cancelled chooser empties the field";
  form9.Command2.userClick();
}

TEST_F(EnvironmentTest, TheSplashWindowGivesWayToAKeyAClickOrItsTimer) {
  const std::function<void()> endings[] = {
      [] { frmSplash.userKey(); }, [] { frmSplash.Picture2.userClick(); },
      [] { frmSplash.Frame1.userClick(); }, [] { frmSplash.Timer1.fire(); }};
  for (const std::function<void()>& ending : endings) {
    discardForm1();
    desk.shownWindows.clear();
    startProgram(folder);
    EXPECT_EQ(desk.shownWindows, std::vector<Window*>{&frmSplash});
    EXPECT_TRUE(form1().loaded() && frmSplash.Timer1.interval() == 4500);
    for (const auto& again : {ending, endings[3], endings[0]}) {
      again();
      EXPECT_EQ(desk.shownWindows, std::vector<Window*>{&form1()});
    }
  }
}

TEST_F(EnvironmentTest, TheVersionWindowPlaysOnlyForTheExactWordAndOpensTheManual) {
  startWithMap(smallMap());
  for (const char* word : {"TRAN", "tran", ""}) {
    editorState.aboutSound = word;
    pick("ver_displ");
    EXPECT_EQ(frmAbout.lblVersion.caption(), "Version 1.98.48E");
    frmAbout.userEscape();
    EXPECT_FALSE(frmAbout.loaded());
  }
  EXPECT_EQ(desk.sounds,
            (std::vector<std::string>{"stop", "looping " + path("info_demo.wav"), "stop"}));
  pick("ver_displ");
  desk.programsStart = false;
  frmAbout.Label6.userClick();
  EXPECT_EQ(desk.addresses, std::vector{joinPath(path("manual"), "index.html")});
  EXPECT_TRUE(form1().enabled() && !frmAbout.loaded());
}

}  // namespace
