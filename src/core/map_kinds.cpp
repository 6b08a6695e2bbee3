#include "core/map_kinds.h"

#include <cstddef>
#include <limits>

#include "core/editor_state.h"
#include "core/form1.h"

namespace {

using F = Form1;
using Family = MapFamily;

constexpr int cellWidth = 430;                // twips
constexpr int rpmWidth = 550;                 // twips
constexpr int wordWidth = 620;                // twips
constexpr std::int32_t rpmStepLimit = 15000;  // r.p.m.
constexpr std::int32_t noLimit = std::numeric_limits<std::int32_t>::max();

using Rule = ColourRule;
using After = AfterEffect;

// In the order of MapFamily. An airflow answer just below 65536 passes its bound and rounds up.
constexpr std::array<CellRules, 6> rulesOfFamilies{{
    {1, byteLimit, byteLimit, byteLimit, Rule::byteShade, After::none, false, cellWidth},
    {2, wordLimit, wordLimit + 1, wordLimit, Rule::wordShade, After::airflowView, false, wordWidth},
    {1, byteLimit, byteLimit, byteLimit, Rule::none, After::boostRow, false, cellWidth},
    {1, noLimit, noLimit, rpmStepLimit, Rule::none, After::none, true, rpmWidth},
    {1, byteLimit, byteLimit, byteLimit, Rule::byteShade, After::none, false, cellWidth},
    {1, byteLimit, byteLimit, byteLimit, Rule::byteShade, After::none, true, cellWidth},
}};

const std::array<MapKind, mapCount> kindsOfMaps{{
    {HIGH_FUEL, "HIGH_FUEL", &F::Grid1, Family::main, &F::Frame1, nullptr, 1, TP_SCALE_FUEL,
     RPM_SCALE_FUEL},
    {HIGH_FIRE, "HIGH_FIRE", &F::Grid2, Family::main, &F::Frame2, nullptr, 2, TP_SCALE_FIRE,
     RPM_SCALE_FIRE},
    {REG_FUEL, "REG_FUEL", &F::Grid3, Family::main, &F::Frame3, nullptr, 3, TP_SCALE_FUEL,
     RPM_SCALE_FUEL},
    {REG_FIRE, "REG_FIRE", &F::Grid4, Family::main, &F::Frame4, nullptr, 4, TP_SCALE_FIRE,
     RPM_SCALE_FIRE},
    {VQ_MAP, "VQ_MAP", &F::Grid5, Family::airflow, &F::Frame5, nullptr, airflowTab},
    {TP_SCALE_FUEL, "TP_SCALE_FUEL", &F::TP_FUEL, Family::tpScale, nullptr, nullptr, 1},
    {TP_SCALE_FIRE, "TP_SCALE_FIRE", &F::TP_FIRE, Family::tpScale, nullptr, nullptr, 2},
    {RPM_SCALE_FUEL, "RPM_SCALE_FUEL", &F::RPM_FUEL, Family::rpmScale, nullptr, nullptr, 1},
    {RPM_SCALE_FIRE, "RPM_SCALE_FIRE", &F::RPM_FIRE, Family::rpmScale, nullptr, nullptr, 2},
    {TTP_MAX, "TTP_MAX", &F::Grid7, Family::limitRow, nullptr, &F::Label12, globalTab},
    {TTP_MIN, "TTP_MIN", &F::Grid6, Family::limitRow, nullptr, &F::Label11, globalTab},
    {AF_LIMIT, "AF_LIMIT", &F::Grid8, Family::limitRow, nullptr, &F::Label2, globalTab},
    {ADD_FUEL, "ADD_FUEL", &F::Grid9, Family::limitRow, nullptr, &F::Label18, globalTab},
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

const CellRules& MapKind::rules() const {
  return rulesOfFamilies[static_cast<std::size_t>(family)];
}

const std::array<MapKind, mapCount>& mapKinds() { return kindsOfMaps; }

const MapKind* findMapKind(int mapId) {
  if (mapId < 1 || mapId > mapCount) return nullptr;
  return &kindsOfMaps[static_cast<std::size_t>(mapId - 1)];
}

Grid& gridOf(const MapKind& kind) { return form1().*kind.grid; }

const MapEntry& entryOf(const MapKind& kind) { return editorState.addressMap.map(kind.id); }

std::string nameOf(const MapKind& kind) {
  const std::string& caption = entryOf(kind).caption;
  return caption.empty() ? kind.keyword : caption;
}

const MapKind* mapKindOfTab(int tab) {
  for (const MapKind& kind : kindsOfMaps) {
    if (kind.frame && kind.tab == tab) return &kind;
  }
  return nullptr;
}

const MapKind* activeMap() { return mapKindOfTab(editorState.currentTab); }

Grid* activeGrid() {
  const MapKind* const map = activeMap();
  return map ? &gridOf(*map) : nullptr;
}

const MapKind* loadScaleOf(const MapKind& map) { return findMapKind(map.loadScale); }

const MapKind* speedScaleOf(const MapKind& map) { return findMapKind(map.speedScale); }

const MapKind* loadScaleBeside(int tab) {
  const MapKind* const map = mapKindOfTab(tab);
  const MapKind* const scale = map ? loadScaleOf(*map) : nullptr;
  return scale && scale->tab == tab ? scale : nullptr;
}

ScaleCell loadCellOf(const MapKind& map, int column) {
  const MapKind* const scale = loadScaleOf(map);
  if (!scale || column < 1 || column > columnsOf(entryOf(*scale))) return {};
  return {scale, 1, column};
}

ScaleCell speedCellOf(const MapKind& map, int row) {
  const MapKind* const scale = speedScaleOf(map);
  if (!scale || row < 1 || row > columnsOf(entryOf(*scale))) return {};
  return {scale, row - 1, 0};
}

const std::array<ParamKind, paramCount>& paramKinds() { return kindsOfParams; }
