#include "core/address_map.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/map_kinds.h"
#include "core/notices.h"
#include "core/text_files.h"
#include "core/wording.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/numbers.h"
#include "rom/address_items.h"
#include "rom/address_parse.h"
#include "rom/map_values.h"

namespace {

constexpr int mostLimitedBytes = std::numeric_limits<int>::max() / 2;  // two digits each

constexpr Colour presentColour = black;
constexpr Colour absentColour = rgb(128, 128, 128);

void nameMap(const MapKind& kind, const std::string& caption, const std::string& toolTip) {
  Form1& form = form1();
  if (kind.frame) {
    (form.*kind.frame).setCaption(caption);
    form.TabStrip1.setTabToolTip(kind.tab, toolTip);
  } else if (kind.label) {
    (form.*kind.label).setCaption(caption);
    gridOf(kind).setToolTip(toolTip);
  }
}

void nameParam(const ParamKind& kind, const std::string& caption, const std::string& toolTip) {
  (form1().*kind.label).setCaption(caption);
  (form1().*kind.box).setToolTip(toolTip);
}

void showMap(const MapKind& kind, const EntryLook& look) {
  if (!kind.isScale()) gridOf(kind).resize(look.rows, look.columns);
  nameMap(kind, look.caption, kind.frame ? look.caption : look.toolTip);
}

void showParam(const ParamKind& kind, const EntryLook& look) {
  nameParam(kind, look.caption, look.toolTip);
  if (!kind.limitedLength) return;
  (form1().*kind.box).setMaxLength(std::clamp(look.bytes, 0, mostLimitedBytes) * 2);
}

void showEntries(const ParsedAddressMap& parsed) {
  for (const MapKind& kind : mapKinds()) {
    for (const EntryLook& look : parsed.maps[static_cast<std::size_t>(kind.id - 1)]) {
      showMap(kind, look);
    }
  }
  for (const ParamKind& kind : paramKinds()) {
    for (const EntryLook& look : parsed.params[static_cast<std::size_t>(kind.id)]) {
      showParam(kind, look);
    }
  }
}

// What the frame of a map says before an address map names it.
std::string designCaption(const MapKind& kind) {
  if (kind.family == MapFamily::additional) {
    return worded({"ADD マップ", "ADD Map"}) + decimalText(kind.id - ADD_MAP1 + 1);
  }
  if (kind.family == MapFamily::airflow) return captioned(Form1::airflowFrame);
  return Form1::mainFrames[static_cast<std::size_t>(kind.id - HIGH_FUEL)];
}

// The tabs of the additional maps are numbered; below it they say what the map is.
void showSecondLine(const MapKind& kind, const MapEntry& entry) {
  if (kind.family != MapFamily::additional) return;
  form1().TabStrip1.setSecondLine(kind.tab, entry.present() ? entry.caption : std::string());
}

bool isEmpty(const ParsedAddressMap& parsed) {
  const auto hasNone = [](const auto& looks) { return looks.empty(); };
  return parsed.failure == 0 && parsed.map.typeUnit.empty() &&
         std::ranges::all_of(parsed.maps, hasNone) && std::ranges::all_of(parsed.params, hasNone);
}

void tellWhetherEmpty(const ParsedAddressMap& parsed) {
  constexpr const char* subject = "no address map";
  withdrawNotice(subject);
  if (!isEmpty(parsed)) return;
  const std::string name = fileNameOf(editorState.addressFilePath);
  tellNotice({subject,
              NoticeKind::warning,
              {name + "はアドレスマップではありません。キーワードが1つもありません。",
               name + " is no address map: none of its lines is a keyword."}});
}

bool hasTooManyItems(std::string_view bytes) {
  std::vector<std::string> lines(maximumLines);
  std::int32_t count = 0;
  return trapFailure([&] { takeItems(bytes, lines, count); }) == badSubscript;
}

}  // namespace

void readAddressFile(const std::string& path) {
  editorState.lineCount = 0;
  const std::string text = readTextFile(path, hasTooManyItems);
  takeItems(text, editorState.lines, editorState.lineCount);
}

void applyAddressMap(const ParsedAddressMap& parsed) {
  editorState.addressMap = parsed.map;
  if (parsed.failure == 0) editorState.probeAddress = parsed.map.param(K_DATA).address;
  const int number = trapFailure([&] { showEntries(parsed); });
  if (parsed.failure != 0 || number != 0) showRoutineError("SET_MAP_ADDR");
  applyEntryPresence();
  tellWhetherEmpty(parsed);
}

void SET_MAP_ADDR() {
  applyAddressMap(parseAddressMap(
      editorState.lines, static_cast<std::size_t>(editorState.lineCount), editorState.addressMap));
}

void applyEntryPresence() {
  const AddressMap& map = editorState.addressMap;
  for (const MapKind& kind : mapKinds()) {
    gridOf(kind).setEnabled(map.map(kind.id).present());
    showSecondLine(kind, map.map(kind.id));
  }
  for (const ParamKind& kind : paramKinds()) {
    const ParamEntry& entry = map.param(kind.id);
    const bool shown = !kind.scaled() || entry.bytes <= maximumScaledBytes;
    (form1().*kind.box).setEnabled(entry.present() && shown);
    (form1().*kind.label).setColour(entry.present() ? presentColour : absentColour);
  }
}

void resetEntryNames() {
  const std::vector<TabStrip::Tab> tabs = Form1::designTabs();
  for (const MapKind& kind : mapKinds()) {
    if (kind.frame) {
      nameMap(kind, designCaption(kind), tabs[static_cast<std::size_t>(kind.tab - 1)].toolTip);
    } else {
      nameMap(kind, kind.keyword, "");
    }
  }
  for (const ParamKind& kind : paramKinds()) nameParam(kind, kind.keyword, "");
}

void showTypeUnit() {
  const std::string& typeUnit = editorState.addressMap.typeUnit;
  const Wording prompt{"機種別アドレスマップが読み込まれていません。",
                       "Please load an address map(*.adr) first. "};
  form1().Label1.setCaption(typeUnit.empty() ? captioned(prompt) : typeUnit);
}
