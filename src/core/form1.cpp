#include "core/form1.h"

#include <memory>
#include <utility>

#include "core/editor_state.h"

namespace {

constexpr Colour mapLines = rgb(64, 64, 64);
constexpr Grid::Look mapLook{white, mapLines, white};
constexpr Grid::Look scaleLook{};
// The size of a grid that no address map has sized yet, header row and column included.
constexpr int designRows = 2;
constexpr int designColumns = 17;
constexpr int airflowDesignColumns = 8;
constexpr int rpmRows = 16;

std::unique_ptr<Form1> mainWindow;

std::vector<TabStrip::Tab> designTabs() {
  return {{"ﾊｲｵｸ燃料ﾏｯﾌﾟ", "ﾊｲｵｸ燃料補正ﾏｯﾌﾟの編集"},
          {"ﾊｲｵｸ点火ﾏｯﾌﾟ", "ﾊｲｵｸ点火補正ﾏｯﾌﾟの編集"},
          {"ﾚｷﾞｭﾗｰ燃料ﾏｯﾌﾟ", "ﾚｷﾞｭﾗｰ燃料補正ﾏｯﾌﾟの編集"},
          {"ﾚｷﾞｭﾗｰ点火ﾏｯﾌﾟ", "ﾚｷﾞｭﾗｰ点火補正ﾏｯﾌﾟの編集"},
          {"VQ ﾏｯﾌﾟ", "VQ MAP(ｴｱﾌﾛﾏｯﾌﾟ)の編集"},
          {"Add ﾏｯﾌﾟ1", "追加ﾏｯﾌﾟ１の編集"},
          {"Add ﾏｯﾌﾟ2", "追加ﾏｯﾌﾟ2の編集"},
          {"Add ﾏｯﾌﾟ3", "追加ﾏｯﾌﾟ3の編集"},
          {"Add ﾏｯﾌﾟ4", "追加ﾏｯﾌﾟ4の編集"},
          {"Add ﾏｯﾌﾟ5", "追加ﾏｯﾌﾟ5の編集"},
          {"Add ﾏｯﾌﾟ6", "追加ﾏｯﾌﾟ6の編集"},
          {"Add ﾏｯﾌﾟ7", "追加ﾏｯﾌﾟ7の編集"},
          {"Add ﾏｯﾌﾟ8", "追加ﾏｯﾌﾟ8の編集"},
          {"GLOBAL", "各種定数、ﾘﾐｯﾀｰの編集"}};
}

Grid mapGrid(Window& owner, int columns = designColumns) {
  return Grid(owner, designRows, columns, 1, 1, mapLook);
}

Grid tpGrid(Window& owner) { return Grid(owner, designRows, designColumns, 1, 1, scaleLook); }

Grid rpmGrid(Window& owner) { return Grid(owner, rpmRows, 1, 0, 0, scaleLook); }

using F = Form1;
using Family = MapFamily;

const std::array<MapKind, mapCount> kindsOfMaps{{
    {HIGH_FUEL, "HIGH_FUEL", &F::Grid1, Family::main, &F::Frame1, nullptr, 1},
    {HIGH_FIRE, "HIGH_FIRE", &F::Grid2, Family::main, &F::Frame2, nullptr, 2},
    {REG_FUEL, "REG_FUEL", &F::Grid3, Family::main, &F::Frame3, nullptr, 3},
    {REG_FIRE, "REG_FIRE", &F::Grid4, Family::main, &F::Frame4, nullptr, 4},
    {VQ_MAP, "VQ_MAP", &F::Grid5, Family::airflow, &F::Frame5, nullptr, 5},
    {TP_SCALE_FUEL, "TP_SCALE_FUEL", &F::TP_FUEL, Family::tpScale, nullptr, nullptr, 0},
    {TP_SCALE_FIRE, "TP_SCALE_FIRE", &F::TP_FIRE, Family::tpScale, nullptr, nullptr, 0},
    {RPM_SCALE_FUEL, "RPM_SCALE_FUEL", &F::RPM_FUEL, Family::rpmScale, nullptr, nullptr, 0},
    {RPM_SCALE_FIRE, "RPM_SCALE_FIRE", &F::RPM_FIRE, Family::rpmScale, nullptr, nullptr, 0},
    {TTP_MAX, "TTP_MAX", &F::Grid7, Family::limitRow, nullptr, &F::Label12, 0},
    {TTP_MIN, "TTP_MIN", &F::Grid6, Family::limitRow, nullptr, &F::Label11, 0},
    {AF_LIMIT, "AF_LIMIT", &F::Grid8, Family::limitRow, nullptr, &F::Label2, 0},
    {ADD_FUEL, "ADD_FUEL", &F::Grid9, Family::limitRow, nullptr, &F::Label18, 0},
    {ADD_MAP1, "ADD_MAP1", &F::AddGrid1, Family::additional, &F::Frame6, nullptr, 6},
    {ADD_MAP2, "ADD_MAP2", &F::AddGrid2, Family::additional, &F::Frame8, nullptr, 7},
    {ADD_MAP3, "ADD_MAP3", &F::AddGrid3, Family::additional, &F::Frame9, nullptr, 8},
    {ADD_MAP4, "ADD_MAP4", &F::AddGrid4, Family::additional, &F::Frame10, nullptr, 9},
    {ADD_MAP5, "ADD_MAP5", &F::AddGrid11, Family::additional, &F::Frame11, nullptr, 10},
    {ADD_MAP6, "ADD_MAP6", &F::AddGrid12, Family::additional, &F::Frame12, nullptr, 11},
    {ADD_MAP7, "ADD_MAP7", &F::AddGrid13, Family::additional, &F::Frame13, nullptr, 12},
    {ADD_MAP8, "ADD_MAP8", &F::AddGrid14, Family::additional, &F::Frame14, nullptr, 13},
}};

const std::array<ParamKind, paramCount> kindsOfParams{{
    {K_DATA, "K_DATA", &F::Text1, &F::Label3, nullptr, false},
    {IGN_TIME, "IGN_TIME", &F::Text2, &F::Label4, nullptr, true},
    {FB_SWITCH, "FB_SWITCH", &F::Text3, &F::Label5, nullptr, true},
    {ADD_BYTE1, "ADD_BYTE1", &F::Text12, &F::addText1, nullptr, false},
    {ADD_BYTE2, "ADD_BYTE2", &F::Text13, &F::addText2, nullptr, false},
    {ADD_BYTE3, "ADD_BYTE3", &F::Text14, &F::addText3, nullptr, false},
    {REV1_LIMIT, "REV1_LIMIT", &F::Text4, &F::Label6, &F::Label30, false},
    {REV2_LIMIT, "REV2_LIMIT", &F::Text5, &F::Label7, &F::Label31, false},
    {REV3_LIMIT, "REV3_LIMIT", &F::Text10, &F::Label24, &F::Label32, false},
    {REV4_LIMIT, "REV4_LIMIT", &F::Text11, &F::Label25, &F::Label33, false},
    {SPEED1_LIMIT, "SPEED1_LIMIT", &F::Text6, &F::Label8, &F::Label26, false},
    {SPEED2_LIMIT, "SPEED2_LIMIT", &F::Text7, &F::Label9, &F::Label27, false},
    {SPEED3_LIMIT, "SPEED3_LIMIT", &F::Text8, &F::Label10, &F::Label28, false},
    {SPEED4_LIMIT, "SPEED4_LIMIT", &F::Text9, &F::Label23, &F::Label29, false},
}};

}  // namespace

Form1::Form1()
    : Window("Form1"),
      TabStrip1(*this, designTabs()),
      Grid1(mapGrid(*this)),
      Grid2(mapGrid(*this)),
      Grid3(mapGrid(*this)),
      Grid4(mapGrid(*this)),
      Grid5(mapGrid(*this, airflowDesignColumns)),
      Grid6(mapGrid(*this)),
      Grid7(mapGrid(*this)),
      Grid8(mapGrid(*this)),
      Grid9(mapGrid(*this)),
      AddGrid1(mapGrid(*this)),
      AddGrid2(mapGrid(*this)),
      AddGrid3(mapGrid(*this)),
      AddGrid4(mapGrid(*this)),
      AddGrid11(mapGrid(*this)),
      AddGrid12(mapGrid(*this)),
      AddGrid13(mapGrid(*this)),
      AddGrid14(mapGrid(*this)),
      TP_FUEL(tpGrid(*this)),
      TP_FIRE(tpGrid(*this)),
      RPM_FUEL(rpmGrid(*this)),
      RPM_FIRE(rpmGrid(*this)) {
  setCaption("ZELKOVA");
  Label14.setColour(rgb(192, 192, 0));
  Label17.setColour(rgb(128, 128, 128));
  Label21.setColour(rgb(64, 64, 64));
}

void Form1::bringPanelToFront(int tab) {
  frontPanel_ = tab;
  if (observer) observer({Change::shape});
}

Form1& form1() {
  if (!mainWindow) mainWindow = std::make_unique<Form1>();
  return *mainWindow;
}

void discardForm1() { mainWindow.reset(); }

const std::array<MapKind, mapCount>& mapKinds() { return kindsOfMaps; }

const MapKind* findMapKind(int mapId) {
  if (mapId < 1 || mapId > mapCount) return nullptr;
  return &kindsOfMaps[static_cast<std::size_t>(mapId - 1)];
}

Grid& gridOf(const MapKind& kind) { return form1().*kind.grid; }

const MapKind* mapKindOfTab(int tab) {
  for (const MapKind& kind : kindsOfMaps) {
    if (kind.tab == tab && tab > 0) return &kind;
  }
  return nullptr;
}

Grid* activeGrid() {
  const MapKind* kind = mapKindOfTab(editorState.currentTab);
  return kind ? &gridOf(*kind) : nullptr;
}

const std::array<ParamKind, paramCount>& paramKinds() { return kindsOfParams; }
