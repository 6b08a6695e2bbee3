#include "core/map_kinds.h"

#include "core/editor_state.h"
#include "core/form1.h"

namespace {

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
