#include "frontend/environment.h"

#include <cstdint>

#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/recent_maps.h"
#include "core/settings_file.h"
#include "imagefiles/recent_files.h"
#include "platform/failure.h"
#include "platform/numbers.h"

Form9 form9;

namespace {

const Wording folderButton{"設定", "Setup"};
const Wording folderButtonTip{"このボタンを押して、フォルダを選択してください。",
                              "Please choose folder, as pushing this button."};
const Wording folderTip{"右の設定ボタンでフォルダを選択",
                        "I choose folder with the right set up button."};
const Wording addressFolderTitle{"アドレスファイルのフォルダを選択してください",
                                 "Select (.adr)file folder."};
const Wording romFolderTitle{"ＲＯＭデータのフォルダを選択してください", "Select ROM DATA folder."};
const Wording wrongData{"不正なデータが入力されています。", "Wrong data are inputed."};

struct ToolTip {
  TextBox Form9::*box;
  Wording text;
};

const ToolTip toolTips[] = {
    {&Form9::Text1, folderTip},
    {&Form9::Text2, folderTip},
    {&Form9::Text3, {"＋キーのアサイン", "+ set up of a key."}},
    {&Form9::Text4, {"－キーのアサイン", "- set up of a key."}},
    {&Form9::Text5, {"Gridの背景色のレート", "Rate set up of back scenery of Grid."}},
    {&Form9::Text6, {"Ｘ軸の増加ステップ数", "Number of increase steps of the X-axis"}},
    {&Form9::Text7, {"Ｙ軸の増加ステップ数", "Number of increase steps of the Y-axis"}},
    {&Form9::Text8, {"Ｘ軸の傾き比率", "Inclination ratio of the X-axis"}},
    {&Form9::Text9, {"Ｙ軸の傾き比率", "Inclination ratio of the Y-axis"}},
};

struct FieldName {
  TextBox Form9::*box;
  Label Form9::*label;
};

const FieldName fieldNames[] = {{&Form9::Text1, &Form9::Label1},
                                {&Form9::Text2, &Form9::Label2},
                                {&Form9::Text3, &Form9::Label3},
                                {&Form9::Text4, &Form9::Label4},
                                {&Form9::Text5, &Form9::Label5}};
// Steps above, ratios below, each by its axis.
const FieldName graphFieldNames[] = {{&Form9::Text6, &Form9::Label7},
                                     {&Form9::Text7, &Form9::Label8},
                                     {&Form9::Text8, &Form9::Label9},
                                     {&Form9::Text9, &Form9::Label10}};

std::int32_t wholeNumber(const TextBox& box) { return cellNumber(box.text()); }

float realNumber(const TextBox& box) { return realClamped(parseNumber(box.text())); }

}  // namespace

Form9::Form9() : Window("Form9") {
  wireDialog(*this, {[this] { setTexts(); }, &Command1, [this] { takeOver(); }, &Command2, &Text1});
  for (const FieldName& each : fieldNames) (this->*each.box).nameAfter({&(this->*each.label)});
  for (const FieldName& each : graphFieldNames) {
    (this->*each.box).nameAfter({&Label6, &(this->*each.label)});
  }
  Check1.nameAfter({&Label11});
  Command3.nameAfter({&Label1});
  Command4.nameAfter({&Label2});
  onActivate = [this] { languagePromptArmed = true; };
  onUnload = [this] { languagePromptArmed = false; };
  Check1.onChange = [this] { tellLanguageChange(); };
  Command3.onClick = [this] { Text1.setText(desktop().chooseFolder(worded(addressFolderTitle))); };
  Command4.onClick = [this] { Text2.setText(desktop().chooseFolder(worded(romFolderTitle))); };
  Command5.onClick = [] {
    clearRecentFiles();
    clearRecentMaps();
  };
}

void Form9::setTexts() {
  setCaption(captioned({"環境設定", "Environment set up"}));
  Label1.setCaption(
      captioned({"アドレスファイルのフォルダ", "Beginning folder of an address file"}));
  Label2.setCaption(captioned({"ROMデータのフォルダ", "Beginning folder of Rom file"}));
  for (TextBox* box : {&Text6, &Text7}) box->setOwnName(captioned({"ステップ数", "steps"}));
  for (TextBox* box : {&Text8, &Text9}) box->setOwnName(captioned({"比率", "ratio"}));
  for (const ToolTip& tip : toolTips) (this->*tip.box).setToolTip(captioned(tip.text));
  for (Button* button : {&Command3, &Command4}) {
    button->setCaption(captioned(folderButton));
    button->setToolTip(captioned(folderButtonTip));
  }
  Command5.setCaption(captioned({"レジストリ削除", "Registory deletion"}));
  Command5.setToolTip(captioned(
      {"最近使ったファイルのリストを削除します。　出来ればこれを行った後はアプリの再起動をお願いし"
       "ます"
       "。",
       "I delete a wrist of the file that I use recently. I wish a re-start of an application, "
       "after I do this if possible."}));
  Check1.setToolTip(
      "Please accept this switch, in case that I make you display it with English mode.");
}

// The box speaks the language just chosen; the language itself changes at OK.
void Form9::tellLanguageChange() {
  if (!languagePromptArmed) return;
  const char* const text =
      Check1.checked() ? "Please re-start- this application 1 time, because I changed a language."
                       : "言語を変更したため、このアプリケーションを一度再起動して下さい。";
  makeTopmost(*this, false);
  desktop().showBox({BoxIcon::information, BoxButtons::ok, "ZELKOVA", text});
  makeTopmost(*this, true);
}

void Form9::takeOver() {
  std::int32_t rate = 0;
  if (trapFailure([&] { rate = parseLong(Text5.text()); }) != 0) {
    showRefusal(wrongData);
    return Text5.setFocus();
  }
  editorState.addressFolder = Text1.text();
  editorState.romFolder = Text2.text();
  editorState.plusKey = Text3.text();
  editorState.minusKey = Text4.text();
  editorState.gridColorRateSetting = rate;
  editorState.gridColorRate = rate;
  editorState.english = Check1.checked() ? 1 : 0;
  editorState.graphStepX = wholeNumber(Text6);
  editorState.graphStepY = wholeNumber(Text7);
  editorState.graphRatioX = realNumber(Text8);
  editorState.graphRatioY = realNumber(Text9);
  saveSettingsOrTell("環境設定");
  closeDialog(*this);
}

void SET_DEFAULT_FOLDER() {
  form9.languagePromptArmed = false;
  form9.Check1.setChecked(editorState.english == 1);
  form9.Text1.setText(editorState.addressFolder);
  form9.Text2.setText(editorState.romFolder);
  form9.Text3.setText(editorState.plusKey);
  form9.Text4.setText(editorState.minusKey);
  form9.Text5.setText(decimalText(editorState.gridColorRateSetting));
  form9.Text6.setText(decimalText(editorState.graphStepX));
  form9.Text7.setText(decimalText(editorState.graphStepY));
  form9.Text8.setText(shortestReal(editorState.graphRatioX));
  form9.Text9.setText(shortestReal(editorState.graphRatioY));
  openDialog(form9);
}
