// The main window's record: the edit store. Its grids and text boxes hold what the user edits; the
// image follows at the next write-back.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "controls/button.h"
#include "controls/canvas.h"
#include "controls/controls.h"
#include "controls/grid.h"
#include "controls/window.h"
#include "controls/zoom.h"
#include "core/wording.h"

struct Form1 : Window {
  Form1();

  // Brings the panel of tab `tab` before the others.
  void bringPanelToFront(int tab);
  int frontPanel() const { return frontPanel_; }

  // What tabs and frames say before an address map names the maps.
  static std::vector<TabStrip::Tab> designTabs();
  static constexpr std::array mainFrames{"ハイオク燃料マップ", "ハイオク点火マップ",
                                         "レギュラー燃料マップ", "レギュラー点火マップ"};
  static constexpr Wording airflowFrame{"VQ マップ", "VQ map"};

  TabStrip TabStrip1;
  ProgressBar ProgressBar1{*this};

  Frame Frame1{*this, mainFrames[0]}, Frame2{*this, mainFrames[1]}, Frame3{*this, mainFrames[2]},
      Frame4{*this, mainFrames[3]}, Frame5{*this, airflowFrame.japanese}, Frame6{*this},
      Frame7{*this, "GLOBAL"}, Frame8{*this}, Frame9{*this}, Frame10{*this}, Frame11{*this},
      Frame12{*this}, Frame13{*this}, Frame14{*this};

  Grid Grid1, Grid2, Grid3, Grid4, Grid5, Grid6, Grid7, Grid8, Grid9;
  Grid AddGrid1, AddGrid2, AddGrid3, AddGrid4, AddGrid11, AddGrid12, AddGrid13, AddGrid14;
  Grid TP_FUEL, TP_FIRE, RPM_FUEL, RPM_FIRE;

  // The airflow view and the names on it.
  static constexpr int viewWidth = 569;
  static constexpr int viewHeight = 241;
  Canvas Picture2{*this, viewWidth, viewHeight};
  Label Label14{*this, "2D VQMAP VIEW"}, Label17{*this, "ZELKOVA"}, Label21{*this, "ZELKOVA"};

  // Status: model, operation under way, file size, engine, comparison file.
  Label Label1{*this, "機種別アドレスマップが読み込まれていません。"}, Label13{*this},
      Label20{*this}, Label34{*this}, Label35{*this}, Label37{*this, "仕様"};
  // Headings of the engine-speed scales.
  Label Label15{*this, "回転数"}, Label16{*this, "回転数"};

  // The single parameters.
  Label Label22{*this, "16進数　(この枠内のみ)"};
  Label Label3{*this, "K_DATA"}, Label4{*this, "IGN_TIME"}, Label5{*this, "FB_SWITCH"},
      Label6{*this, "REV1_LIMIT"}, Label7{*this, "REV2_LIMIT"}, Label24{*this, "REV3_LIMIT"},
      Label25{*this, "REV4_LIMIT"}, Label8{*this, "SPEED1_LIMIT"}, Label9{*this, "SPEED2_LIMIT"},
      Label10{*this, "SPEED3_LIMIT"}, Label23{*this, "SPEED4_LIMIT"}, addText1{*this, "ADD_BYTE1"},
      addText2{*this, "ADD_BYTE2"}, addText3{*this, "ADD_BYTE3"};
  Label Label30{*this, "RPM"}, Label31{*this, "RPM"}, Label32{*this, "RPM"}, Label33{*this, "RPM"};
  Label Label26{*this, "Km/h"}, Label27{*this, "Km/h"}, Label28{*this, "Km/h"},
      Label29{*this, "Km/h"};
  TextBox Text1{*this, "N/A"}, Text2{*this, "N/A"}, Text3{*this, "N/A"}, Text4{*this, "N/A"},
      Text5{*this, "N/A"}, Text6{*this, "N/A"}, Text7{*this, "N/A"}, Text8{*this, "N/A"},
      Text9{*this, "N/A"}, Text10{*this, "N/A"}, Text11{*this, "N/A"}, Text12{*this, "N/A"},
      Text13{*this, "N/A"}, Text14{*this, "N/A"};
  // The four small grids beside them.
  Label Label11{*this, "TTP_MIN"}, Label12{*this, "TTP_MAX"}, Label2{*this, "AF_LIMIT"},
      Label18{*this, "ADD_FUEL"};

  // How large the panels' maps are.
  Zoom mapZoom{*this};
  // The notice strip: what no box says, with at most two things to do about it.
  Label noticeText{*this};
  Button noticeAction1{*this}, noticeAction2{*this}, noticeClose{*this};
  Timer noticeTimer{*this, 0};
  // Runs out when an unsaved image is to be kept.
  Timer stateTimer{*this, 0};
  // The status line: what the cursor is on, what isn't saved, what the last command did.
  Label cursorStatus{*this}, unsavedStatus{*this}, doneStatus{*this};

  MenuItem menuBar{*this, "menuBar"};
  std::array<MenuItem*, 10> mnuRecentFile{};

 private:
  int frontPanel_ = 1;
};

// The main window; made at the first look at it. `discardForm1` ends its life.
Form1& form1();
void discardForm1();
