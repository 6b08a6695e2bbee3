// The environment dialog, the languages, the splash window and the version window, entered as a
// user does.
#include "frontend/environment.h"

#include "core/map_display.h"
#include "frontend/about.h"
#include "frontend/splash.h"
#include "frontend/startup.h"
#include "support.h"

namespace {

class EnvironmentTest : public ProgramTest {
 protected:
  void open() { pick("SET_DEFAULT_FOLDER"); }
  std::vector<std::string> settingsLines() const {
    std::vector<std::string> lines;
    std::string line;
    for (const char c : readText("zelkova.ini")) {
      if (c == '\n') {
        lines.push_back(line);
        line.clear();
      } else if (c != '\r') {
        line += c;
      }
    }
    return lines;
  }
};

TEST_F(EnvironmentTest, ShowsTheSettingsAndTakesThemOverAtOkAlone) {
  startWithMap(smallMap());
  open();
  EXPECT_FALSE(form1().enabled());
  EXPECT_EQ(form9.caption(), "Environment set up");
  EXPECT_EQ(form9.Text3.text(), "+");
  EXPECT_EQ(form9.Text6.text(), "30");
  EXPECT_EQ(form9.Text9.text(), "2");
  EXPECT_TRUE(form9.Check1.checked());
  const Bytes before = readBytes("zelkova.ini");
  form9.Text1.userEdit("/maps");
  form9.userClose();
  EXPECT_TRUE(form1().enabled());
  EXPECT_EQ(readBytes("zelkova.ini"), before);

  open();
  form9.Text1.userEdit("/車");
  form9.Text2.userEdit("/roms");
  form9.Text3.userEdit("up");
  form9.Text5.userEdit("&H2");
  form9.Text6.userEdit("31x");
  form9.Text7.userEdit("abc");
  form9.Text8.userEdit("0");
  form9.Text9.userEdit("2.5");
  form9.userEnter();
  EXPECT_EQ(editorState.addressFolder, "/車");
  EXPECT_EQ(editorState.romFolder, "/roms");
  EXPECT_EQ(editorState.gridColorRate, 2);
  EXPECT_EQ(editorState.gridColorRateSetting, 2);
  const std::vector<std::string> lines = settingsLines();
  ASSERT_EQ(lines.size(), 25u);
  EXPECT_EQ(lines[5], "/車");
  EXPECT_EQ(lines[10], "up");
  EXPECT_EQ(lines[15], " 2 ");
  EXPECT_EQ(lines[21], " 31 ");
  EXPECT_EQ(lines[22], " 0 ");
  EXPECT_EQ(lines[23], " 0 ");
  EXPECT_EQ(lines[24], " 2.5 ");
}

TEST_F(EnvironmentTest, RefusesAColourRateThatIsNoNumberAndStaysOpen) {
  startWithMap(smallMap());
  for (const char* rate : {"", "x", "1x", "99999999999"}) {
    open();
    form9.Text1.userEdit("/elsewhere");
    form9.Text5.userEdit(rate);
    form9.Command1.userClick();
    EXPECT_TRUE(form9.loaded()) << rate;
    EXPECT_EQ(lastBox(), "Wrong data are inputed.") << rate;
    EXPECT_EQ(editorState.addressFolder, "") << rate;
    form9.Command2.userClick();
  }
}

TEST_F(EnvironmentTest, TellsOfTheRestartInTheLanguageJustChosen) {
  startWithMap(smallMap());
  open();
  EXPECT_TRUE(desk.boxes.empty());
  form9.Check1.userToggle();
  EXPECT_EQ(lastBox(), "言語を変更したため、このアプリケーションを一度再起動して下さい。");
  form9.Check1.userToggle();
  EXPECT_EQ(lastBox(), "Please re-start- this application 1 time, because I changed a language.");
  EXPECT_EQ(editorState.english, 1);
  form9.Check1.userToggle();
  form9.Command1.userClick();
  EXPECT_EQ(editorState.english, 0);
  EXPECT_EQ(form1().menuBar.find("file_load")->caption(), "File");
  open();
  EXPECT_EQ(form9.caption(), "環境設定");
  form9.Command2.userClick();
}

TEST_F(EnvironmentTest, FoldersComeFromTheChooserAndACancelledChooserEmptiesTheField) {
  startWithMap(smallMap());
  open();
  desk.folderAnswers = {"/chosen", ""};
  form9.Command3.userClick();
  EXPECT_EQ(form9.Text1.text(), "/chosen");
  form9.Text2.userEdit("/old");
  form9.Command4.userClick();
  EXPECT_EQ(form9.Text2.text(), "");
  EXPECT_EQ(desk.folderTitles,
            (std::vector<std::string>{"Select (.adr)file folder.", "Select ROM DATA folder."}));
  form9.Command2.userClick();
}

TEST_F(EnvironmentTest, AChangedStepKeyWorksAtOnce) {
  startWithMap(smallMap());
  loadImage(patternImage(1024));
  open();
  form9.Text3.userEdit("#longer");
  form9.Command1.userClick();
  Grid& grid = form1().Grid1;
  grid.setText(1, 1, "10");
  grid.userKey(U'+');
  EXPECT_EQ(grid.text(1, 1), "10");
  grid.userKey(U'#');
  EXPECT_EQ(grid.text(1, 1), "11");
}

TEST_F(EnvironmentTest, CaptionsOfTheMainWindowComeInBothLanguages) {
  writeText("zelkova.ini", firstSettings("none.adr"));
  start();
  EXPECT_EQ(form1().Label1.caption(), "Please load an address map(*.adr) first. ");
  EXPECT_EQ(form1().TabStrip1.tab(2).caption, "Hi octane Ig-time map");
  EXPECT_EQ(form1().Frame5.caption(), "VQ map");
  EXPECT_EQ(form1().Frame6.caption(), "ADD Map1");
  EXPECT_EQ(form1().menuBar.find("comp_bin")->caption(), "Load (BIN)");

  discardForm1();
  editorState = EditorState{};
  std::string settings = firstSettings("none.adr");
  settings.replace(settings.find(" 1 \r\n 1 \r\n256"), 12, " 1 \r\n 0 \r\n2");
  writeText("zelkova.ini", settings);
  start();
  EXPECT_EQ(form1().Label1.caption(), "機種別アドレスマップが読み込まれていません。");
  EXPECT_EQ(form1().TabStrip1.tab(2).caption, "ﾊｲｵｸ点火ﾏｯﾌﾟ");
  EXPECT_EQ(form1().Frame6.caption(), "ADD マップ1");
}

TEST_F(EnvironmentTest, TheSplashWindowGivesWayToAKeyAClickOrItsTimer) {
  const std::function<void()> endings[] = {
      [] { frmSplash.userKey(); }, [] { frmSplash.Picture2.userClick(); },
      [] { frmSplash.Frame1.userClick(); }, [] { frmSplash.Timer1.fire(); }};
  for (const std::function<void()>& ending : endings) {
    discardForm1();
    desk.shownWindows.clear();
    desk.sounds.clear();
    startProgram(folder);
    EXPECT_EQ(desk.shownWindows, std::vector<Window*>{&frmSplash});
    EXPECT_TRUE(form1().loaded());
    EXPECT_EQ(frmSplash.Timer1.interval(), 4500);
    EXPECT_EQ(desk.sounds, std::vector<std::string>{"once " + path("first_demo.wav")});
    ending();
    EXPECT_EQ(desk.shownWindows, std::vector<Window*>{&form1()});
    frmSplash.Timer1.fire();
    frmSplash.userKey();
    EXPECT_EQ(desk.shownWindows, std::vector<Window*>{&form1()});
    EXPECT_EQ(desk.sounds.size(), 1u);
  }
}

TEST_F(EnvironmentTest, TheVersionWindowPlaysOnlyForTheExactWord) {
  startWithMap(smallMap());
  struct Case {
    const char* aboutSound;
    bool plays;
  };
  for (const Case& each : {Case{"TRAN", true}, Case{"tran", false}, Case{"", false}}) {
    editorState.aboutSound = each.aboutSound;
    desk.sounds.clear();
    pick("ver_displ");
    EXPECT_EQ(frmAbout.lblVersion.caption(), "Version 1.98.48E");
    EXPECT_EQ(frmAbout.caption(), "Version Info.");
    frmAbout.userEscape();
    EXPECT_FALSE(frmAbout.loaded());
    const std::vector<std::string> played{"stop", "looping " + path("info_demo.wav"), "stop"};
    EXPECT_EQ(desk.sounds, each.plays ? played : std::vector<std::string>{}) << each.aboutSound;
  }
}

TEST_F(EnvironmentTest, TheSupportLinkOpensTheManualAndEndsTheWindow) {
  startWithMap(smallMap());
  pick("ver_displ");
  desk.programsStart = false;
  frmAbout.Label6.userClick();
  EXPECT_EQ(desk.addresses, std::vector<std::string>{path("manual/index.html")});
  EXPECT_FALSE(frmAbout.loaded());
  EXPECT_TRUE(form1().enabled());
}

}  // namespace
