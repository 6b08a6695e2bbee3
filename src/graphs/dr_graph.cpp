#include "graphs/dr_graph.h"

#include "core/wording.h"

DrGraph DR_GRAPH;

namespace {

constexpr Colour lightOrange = rgb(255, 192, 128);
constexpr Colour orange = rgb(255, 128, 0);
constexpr Colour red = rgb(255, 72, 72);
constexpr Colour axisGreen = rgb(0, 192, 0);
constexpr Colour editedGreen = rgb(0, 255, 0);
constexpr Colour comparedRed = rgb(192, 0, 0);

struct LabelWords {
  Label DrGraph::*label;
  Wording caption;
};

constexpr LabelWords labelWords[] = {
    {&DrGraph::Label13,
     {"マウスでこの画面をクリックして、方向キーでポインターを移動させ、+/-キーで増減して下さい。",
      "Click this screen, make you transport a pointer with a direction key with a mouse, +/- "
      "please be addition and reduction with a key."}},
    {&DrGraph::Label5, {"FB/学習 ビット (ON/OFF)", "FB/learning bit (on/off)"}},
    {&DrGraph::Label6, {"FB 対象しきい値", "Marginal value"}},
    {&DrGraph::Label14, {"倍率", "Ratio"}},
    {&DrGraph::Label16, {"マップビュー方向", "Display direction"}},
    {&DrGraph::Label18, {"比較データ表示", "COMP.display"}},
    {&DrGraph::Label7,
     {"低　　　　　　　　　　　　　　負　荷　　　　　　　　　　　　　　 高",
      "min                  LOAD (TP value)                  max"}},
    {&DrGraph::Label8, {"高", "High"}},
    {&DrGraph::Label9, {"回", ""}},
    {&DrGraph::Label10, {"転", "RPM"}},
    {&DrGraph::Label11, {"数", ""}},
    {&DrGraph::Label12, {"低", "Low"}},
    {&DrGraph::Label19, {"編集中データ", "Current"}},
    {&DrGraph::Label20, {"比較用データ", "Comparison"}},
};

constexpr Wording thresholdTip{
    "この値より大きい場合にFB/学習領域とみなします。",
    "I see and form it with the case that it is more large than this value FB / learning "
    "territory."};
constexpr Wording magnificationTip{"グラフ表示の倍率を指定して下さい。",
                                   "Please designate a magnification of graph display."};
constexpr Wording directionTip{"マップの表示方向の変更", "Change of a display direction of map."};
constexpr Wording tipsTip{"編集方法の表示", "Display of an editing method."};
constexpr Wording compareTip{
    "比較データが読み込まれているときは、「赤」のラインで比較データを表示します。",
    "A check also displays comparison data. First, it is necessary to load the data for "
    "comparison. The data for comparison is expressed as a red line."};

}  // namespace

DrGraph::DrGraph()
    : Window("DR_GRAPH"),
      Line1(*this, {40, 88, 40, 352, 1}, axisGreen),
      Line2(*this, {96, 352, 568, 352, 1}, axisGreen),
      Line3(*this, {472, 42, 500, 42, 2}, editedGreen),
      Line4(*this, {472, 58, 500, 58, 2}, comparedRed) {
  setCaption("3D GRAPH EDIT");
  Label1.setColour(lightOrange);
  for (Label* readOut : {&Label2, &Label3, &Label4}) readOut->setColour(orange);
  for (Label* axis : {&Label7, &Label8, &Label9, &Label10, &Label11, &Label12}) {
    axis->setColour(axisGreen);
  }
  Label19.setColour(editedGreen);
  Label20.setColour(red);
  Label17.setColour(red);
  Label13.setColour(lightOrange);
  Text2.keyFilter = digitKey;
  Picture1.nameAfter({&Label1});
  Picture1.describeBy({&Label2, &Label3, &Label4});
  Text2.nameAfter({&Label6});
  List1.nameAfter({&Label14});
  for (CheckBox* box : {&Check1, &Check2}) box->nameAfter({&Label5});
  for (Option* option : viewDirection.members()) option->nameAfter({&Label16});
  Check3.nameAfter({&Label18});
}

std::array<PlacedLabel, 12> DrGraph::labelsOnCanvas() {
  return {{{&Label1, 8, 8},
           {&Label2, 8, 32},
           {&Label3, 8, 48},
           {&Label4, 8, 64},
           {&Label8, 8, 88},
           {&Label9, 8, 180},
           {&Label10, 8, 204},
           {&Label11, 8, 228},
           {&Label12, 8, 338},
           {&Label19, 508, 34},
           {&Label20, 508, 50},
           {&Label7, 96, 357, 472, 18}}};
}

void DrGraph::takeWords() {
  pictureMenu.takeWords();
  for (const auto& [label, caption] : labelWords) (this->*label).setCaption(captioned(caption));
  Picture1.setOwnName(captioned({"3D グラフ", "3D graph"}));
  Frame1.setCaption(captioned({"表示パラメーター", "Display parameter"}));
  Command3.setCaption(captioned({"Tips 表示", "Tips display"}));
  Text2.setToolTip(captioned(thresholdTip));
  List1.setToolTip(captioned(magnificationTip));
  Option1.setToolTip(captioned(directionTip));
  Option2.setToolTip(captioned(directionTip));
  Command3.setToolTip(captioned(tipsTip));
  Check3.setToolTip(captioned(compareTip));
}
