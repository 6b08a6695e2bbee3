#include "core/address_map.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <string_view>

#include "core/address_items.h"
#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/global_parameters.h"
#include "core/map_kinds.h"
#include "core/text_files.h"
#include "core/wording.h"
#include "platform/failure.h"
#include "platform/numbers.h"

namespace {

constexpr int mostLimitedBytes = std::numeric_limits<int>::max() / 2;  // two digits each

constexpr Colour presentColour = black;
constexpr Colour absentColour = rgb(128, 128, 128);

// The order in which keywords are looked for; a failing value leaves the later ones absent.
constexpr std::array earlyMaps{HIGH_FUEL,     HIGH_FIRE,     REG_FUEL,       REG_FIRE,      VQ_MAP,
                               TP_SCALE_FUEL, TP_SCALE_FIRE, RPM_SCALE_FUEL, RPM_SCALE_FIRE};
constexpr std::array paramOrder{K_DATA,       ADD_BYTE1,    ADD_BYTE2,  ADD_BYTE3,    REV1_LIMIT,
                                REV2_LIMIT,   REV3_LIMIT,   REV4_LIMIT, SPEED1_LIMIT, SPEED2_LIMIT,
                                SPEED3_LIMIT, SPEED4_LIMIT, IGN_TIME,   FB_SWITCH};
constexpr std::array lateMaps{TTP_MAX,  TTP_MIN,  ADD_FUEL, AF_LIMIT, ADD_MAP1, ADD_MAP2,
                              ADD_MAP3, ADD_MAP4, ADD_MAP5, ADD_MAP6, ADD_MAP7, ADD_MAP8};

// A value line of the block whose keyword stands at `keyword`.
const std::string& valueLine(int keyword, int line) {
  const auto position = static_cast<std::size_t>(keyword + line);
  if (position >= editorState.lines.size()) throw Failure(badSubscript);
  return editorState.lines[position];
}

std::int32_t wholeNumber(int keyword, int line) { return parseLong(valueLine(keyword, line)); }

float realNumber(int keyword, int line) {
  const double number = parseScale(valueLine(keyword, line));
  if (std::abs(number) > std::numeric_limits<float>::max()) throw Failure(overflow);
  return static_cast<float>(number);
}

// The caption, the place and the length as they stand in the file.
std::string placeToolTip(int keyword, const std::string& caption) {
  return caption + " " + valueLine(keyword, 1) + ":" + valueLine(keyword, 4) + "byte";
}

void sizeGrid(const MapKind& kind, const MapEntry& entry) {
  const std::int64_t dataColumns =
      kind.family == MapFamily::airflow ? entry.bytes / 2 : entry.columns;
  const std::int64_t dataRows = kind.family == MapFamily::airflow ? 1 : entry.rows;
  if (dataColumns < 0 || dataRows < 0) throw Failure(badSubscript);
  if ((dataColumns + 1) * (dataRows + 1) > Grid::maximumCells) throw Failure(badSubscript);
  gridOf(kind).resize(static_cast<int>(dataRows) + 1, static_cast<int>(dataColumns) + 1);
}

void showMapCaption(const MapKind& kind, int keyword, const std::string& caption) {
  Form1& form = form1();
  if (kind.frame) {
    (form.*kind.frame).setCaption(caption);
    form.TabStrip1.setTabToolTip(kind.tab, caption);
  } else if (kind.label) {
    (form.*kind.label).setCaption(caption);
    gridOf(kind).setToolTip(placeToolTip(keyword, caption));
  }
}

bool hasFixedSize(const MapKind& kind) {
  return kind.family == MapFamily::tpScale || kind.family == MapFamily::rpmScale;
}

void readMap(const MapKind& kind, int keyword) {
  MapEntry& entry = editorState.addressMap.map(kind.id);
  entry.address = wholeNumber(keyword, 1);
  entry.columns = wholeNumber(keyword, 2);
  entry.rows = wholeNumber(keyword, 3);
  entry.bytes = wholeNumber(keyword, 4);
  if (kind.scaled()) entry.scale = wholeNumber(keyword, 5);
  entry.caption = valueLine(keyword, 6);
  if (!hasFixedSize(kind)) sizeGrid(kind, entry);
  showMapCaption(kind, keyword, entry.caption);
}

void readParam(const ParamKind& kind, int keyword) {
  ParamEntry& entry = editorState.addressMap.param(kind.id);
  entry.address = wholeNumber(keyword, 1);
  entry.columns = wholeNumber(keyword, 2);
  entry.rows = wholeNumber(keyword, 3);
  entry.bytes = wholeNumber(keyword, 4);
  if (kind.scaled()) entry.scale = realNumber(keyword, 5);
  entry.caption = valueLine(keyword, 6);
  TextBox& box = form1().*kind.box;
  (form1().*kind.label).setCaption(entry.caption);
  box.setToolTip(placeToolTip(keyword, entry.caption));
  if (kind.limitedLength) box.setMaxLength(std::clamp(entry.bytes, 0, mostLimitedBytes) * 2);
}

// Runs `read` for each item that equals `keyword`, so that the last occurrence stands.
void forEachKeyword(std::string_view keyword, const std::function<void(int)>& read) {
  for (int i = 0; i < editorState.lineCount; ++i) {
    if (editorState.lines[static_cast<std::size_t>(i)] == keyword) read(i);
  }
}

template <class Order>
void readMaps(const Order& order) {
  for (const MapId id : order) {
    const MapKind& kind = *findMapKind(id);
    forEachKeyword(kind.keyword, [&kind](int keyword) { readMap(kind, keyword); });
  }
}

void readParams() {
  for (const ParamId id : paramOrder) {
    const ParamKind& kind = paramKinds()[static_cast<std::size_t>(id)];
    forEachKeyword(kind.keyword, [&kind](int keyword) { readParam(kind, keyword); });
  }
}

void forgetEntries() {
  AddressMap& map = editorState.addressMap;
  map.typeUnit.clear();
  for (MapEntry& entry : map.maps) entry.bytes = 0;
  for (ParamEntry& entry : map.params) entry.bytes = 0;
}

void parseLines() {
  forEachKeyword("TYPE_UNIT",
                 [](int keyword) { editorState.addressMap.typeUnit = valueLine(keyword, 1); });
  readMaps(earlyMaps);
  readParams();
  readMaps(lateMaps);
  editorState.probeAddress = editorState.addressMap.param(K_DATA).address;
}

bool hasTooManyItems(std::string_view bytes) {
  AddressItems items(bytes);
  int count = 0;
  while (const std::optional<std::string> item = items.next()) {
    if (!item->starts_with('#')) ++count;
  }
  return count > maximumLines;
}

}  // namespace

void readAddressFile(const std::string& path) {
  editorState.lineCount = 0;
  const std::string text = readTextFile(path, hasTooManyItems);
  AddressItems items(text);
  while (const std::optional<std::string> item = items.next()) {
    if (editorState.lineCount == maximumLines) throw Failure(badSubscript);
    editorState.lines[static_cast<std::size_t>(editorState.lineCount)] = *item;
    if (!item->starts_with('#')) ++editorState.lineCount;
  }
}

void SET_MAP_ADDR() {
  forgetEntries();
  const int number = trapFailure(parseLines);
  if (number != 0) showRoutineError("SET_MAP_ADDR");
  applyEntryPresence();
}

void applyEntryPresence() {
  const AddressMap& map = editorState.addressMap;
  for (const MapKind& kind : mapKinds()) gridOf(kind).setEnabled(map.map(kind.id).present());
  for (const ParamKind& kind : paramKinds()) {
    const ParamEntry& entry = map.param(kind.id);
    const bool shown = !kind.scaled() || entry.bytes <= maximumScaledBytes;
    (form1().*kind.box).setEnabled(entry.present() && shown);
    (form1().*kind.label).setColour(entry.present() ? presentColour : absentColour);
  }
}

void resetAdditionalCaptions() {
  const std::string word = worded({"ADD マップ", "ADD Map"});
  for (const MapKind& kind : mapKinds()) {
    if (kind.family != MapFamily::additional) continue;
    (form1().*kind.frame).setCaption(word + decimalText(kind.id - ADD_MAP1 + 1));
  }
}

void showTypeUnit() {
  const std::string& typeUnit = editorState.addressMap.typeUnit;
  const Wording prompt{"機種別アドレスマップが読み込まれていません。",
                       "Please load an address map(*.adr) first. "};
  form1().Label1.setCaption(typeUnit.empty() ? captioned(prompt) : typeUnit);
}
