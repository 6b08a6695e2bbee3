#include "core/map_kinds.h"

#include <cstddef>
#include <limits>

#include "controls/grid.h"
#include "core/editor_state.h"
#include "core/form1.h"

namespace {

using F = Form1;

constexpr int cellWidth = 430;                // twips
constexpr int rpmWidth = 550;                 // twips
constexpr int wordWidth = 620;                // twips
constexpr std::int32_t rpmStepLimit = 15000;  // r.p.m.
constexpr std::int32_t noLimit = std::numeric_limits<std::int32_t>::max();

using Rule = ColourRule;
using After = AfterEffect;

// In the order of MapFamily. An airflow answer just below 65536 passes its bound and rounds up.
constexpr std::array<CellRules, 6> rulesOfFamilies{{
    {byteLimit, byteLimit, byteLimit, Rule::byteShade, After::none, cellWidth},
    {wordLimit, wordLimit + 1, wordLimit, Rule::wordShade, After::airflowView, wordWidth},
    {byteLimit, byteLimit, byteLimit, Rule::none, After::boostRow, cellWidth},
    {noLimit, noLimit, rpmStepLimit, Rule::none, After::none, rpmWidth},
    {byteLimit, byteLimit, byteLimit, Rule::byteShade, After::none, cellWidth},
    {byteLimit, byteLimit, byteLimit, Rule::byteShade, After::none, cellWidth},
}};

const std::array<MapKind, mapCount> kindsOfMaps{{
    {traitsOf(HIGH_FUEL), &F::Grid1, &F::Frame1, nullptr, 1},
    {traitsOf(HIGH_FIRE), &F::Grid2, &F::Frame2, nullptr, 2},
    {traitsOf(REG_FUEL), &F::Grid3, &F::Frame3, nullptr, 3},
    {traitsOf(REG_FIRE), &F::Grid4, &F::Frame4, nullptr, 4},
    {traitsOf(VQ_MAP), &F::Grid5, &F::Frame5, nullptr, airflowTab},
    {traitsOf(TP_SCALE_FUEL), &F::TP_FUEL, nullptr, nullptr, 1},
    {traitsOf(TP_SCALE_FIRE), &F::TP_FIRE, nullptr, nullptr, 2},
    {traitsOf(RPM_SCALE_FUEL), &F::RPM_FUEL, nullptr, nullptr, 1},
    {traitsOf(RPM_SCALE_FIRE), &F::RPM_FIRE, nullptr, nullptr, 2},
    {traitsOf(TTP_MAX), &F::Grid7, nullptr, &F::Label12, globalTab},
    {traitsOf(TTP_MIN), &F::Grid6, nullptr, &F::Label11, globalTab},
    {traitsOf(AF_LIMIT), &F::Grid8, nullptr, &F::Label2, globalTab},
    {traitsOf(ADD_FUEL), &F::Grid9, nullptr, &F::Label18, globalTab},
    {traitsOf(ADD_MAP1), &F::AddGrid1, &F::Frame6, nullptr, 6},
    {traitsOf(ADD_MAP2), &F::AddGrid2, &F::Frame8, nullptr, 7},
    {traitsOf(ADD_MAP3), &F::AddGrid3, &F::Frame9, nullptr, 8},
    {traitsOf(ADD_MAP4), &F::AddGrid4, &F::Frame10, nullptr, 9},
    {traitsOf(ADD_MAP5), &F::AddGrid11, &F::Frame11, nullptr, 10},
    {traitsOf(ADD_MAP6), &F::AddGrid12, &F::Frame12, nullptr, 11},
    {traitsOf(ADD_MAP7), &F::AddGrid13, &F::Frame13, nullptr, 12},
    {traitsOf(ADD_MAP8), &F::AddGrid14, &F::Frame14, nullptr, 13},
}};

const std::array<ParamKind, paramCount> kindsOfParams{{
    {traitsOf(K_DATA), &F::Text1, &F::Label3, nullptr, false},
    {traitsOf(IGN_TIME), &F::Text2, &F::Label4, nullptr, true},
    {traitsOf(FB_SWITCH), &F::Text3, &F::Label5, nullptr, true},
    {traitsOf(ADD_BYTE1), &F::Text12, &F::addText1, nullptr, false},
    {traitsOf(ADD_BYTE2), &F::Text13, &F::addText2, nullptr, false},
    {traitsOf(ADD_BYTE3), &F::Text14, &F::addText3, nullptr, false},
    {traitsOf(REV1_LIMIT), &F::Text4, &F::Label6, &F::Label30, false},
    {traitsOf(REV2_LIMIT), &F::Text5, &F::Label7, &F::Label31, false},
    {traitsOf(REV3_LIMIT), &F::Text10, &F::Label24, &F::Label32, false},
    {traitsOf(REV4_LIMIT), &F::Text11, &F::Label25, &F::Label33, false},
    {traitsOf(SPEED1_LIMIT), &F::Text6, &F::Label8, &F::Label26, false},
    {traitsOf(SPEED2_LIMIT), &F::Text7, &F::Label9, &F::Label27, false},
    {traitsOf(SPEED3_LIMIT), &F::Text8, &F::Label10, &F::Label28, false},
    {traitsOf(SPEED4_LIMIT), &F::Text9, &F::Label23, &F::Label29, false},
}};

static_assert(maximumMapCells == Grid::maximumCells);

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
