#include "editing/map_copy.h"

#include <algorithm>
#include <cstdint>

#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/history.h"
#include "core/image_bytes.h"
#include "core/map_cells.h"
#include "core/map_display.h"
#include "core/progress.h"
#include "core/rom_image.h"

namespace {

const MapCopy fuelAndIgnition{"Form3",
                              {HIGH_FUEL, HIGH_FIRE, REG_FUEL, REG_FIRE},
                              {{{HIGH_FUEL, REG_FUEL}, {HIGH_FIRE, REG_FIRE}}},
                              {"燃料・点火データコピー", "Data copy. Fuel/Ignition time."},
                              {"燃料・点火　データコピー", "Data copy. Fuel/Ignition time."},
                              {{{"ハイオク → レギュラー", "High octane to Low octane"},
                                {"レギュラー → ハイオク", "Low octane to High octane"}}},
                              {{{"燃料", "Fuel"}, {"点火", "Ignition time"}}},
                              {{{"", "I copy a fuel map."}, {"", "I copy an ignition time map."}}},
                              true};

const MapCopy scales{
    "Form4",
    {TP_SCALE_FIRE, TP_SCALE_FUEL, RPM_SCALE_FIRE, RPM_SCALE_FUEL},
    {{{TP_SCALE_FUEL, TP_SCALE_FIRE}, {RPM_SCALE_FUEL, RPM_SCALE_FIRE}}},
    {"TP/回転スケールコピー", "Data copy. TP/RPM scale."},
    {"TP/回転スケール　データコピー", "Data copy. TP/RPM scale."},
    {{{"燃料 → 点火", "Fuel to Ignition time"}, {"点火 → 燃料", "Ignition time to Fuel"}}},
    {{{"TP スケール", "TP scale"}, {"回転 スケール", "RPM scale"}}},
    {{{"", "TP scale also copies it together."}, {"", "RPM scale also copies it together."}}},
    false};

bool isPresent(MapId id) { return editorState.addressMap.map(id).present(); }

// Copies the smaller size of the two, byte by byte from the front, and never past the image.
void copyMap(MapId source, MapId target) {
  const MapEntry& from = editorState.addressMap.map(source);
  const MapEntry& to = editorState.addressMap.map(target);
  const std::int64_t count = std::min({std::int64_t{from.bytes}, std::int64_t{to.bytes},
                                       imageBytesFrom(from.address), imageBytesFrom(to.address)});
  for (std::int64_t i = 0; i < count; ++i) {
    setImageByte(to.address + i, static_cast<std::uint8_t>(imageByte(from.address + i)));
  }
  if (to.present()) drawMap(target);
}

void writeBackBefore(const MapCopy& design) {
  for (const MapId id : design.writtenBack) {
    if (isPresent(id)) writeMapBack(id);
  }
}

void copyPair(MapId source, MapId target) {
  copyMap(source, target);
  showAfterEffect(*findMapKind(target));
}

bool canCopy(const MapCopy& design, const MapPair& pair) {
  return !design.needsBothMaps || (isPresent(pair.first) && isPresent(pair.second));
}

}  // namespace

MapCopyDialog form3{fuelAndIgnition};
MapCopyDialog form4{scales};

MapCopyDialog::MapCopyDialog(const MapCopy& design) : Window(design.name), design_(design) {
  wireDialog(*this, {[this] { fill(); }, &Command1, [this] { accept(); }, &Command2, &Option1});
  Option1.nameAfter({&Label1});
  Option2.nameAfter({&Label2});
  Label1.onClick = [this] { Option1.userSelect(); };
  Label2.onClick = [this] { Option2.userSelect(); };
}

void MapCopyDialog::fill() {
  setCaption(captioned(design_.title));
  Frame1.setCaption(captioned(design_.frame));
  Label1.setCaption(captioned(design_.directions[0]));
  Label2.setCaption(captioned(design_.directions[1]));
  directions.select(&Option1);
  fillCheck(Check1, 0);
  fillCheck(Check2, 1);
}

void MapCopyDialog::fillCheck(CheckBox& check, std::size_t pair) {
  const MapPair& maps = design_.pairs[pair];
  check.setCaption(captioned(design_.checks[pair]));
  check.setToolTip(captioned(design_.hints[pair]));
  check.setChecked(true);
  check.setEnabled(canCopy(design_, maps));
}

void MapCopyDialog::copyPairs() {
  const GridsPause pause;
  writeBackBefore(design_);
  const std::array<const CheckBox*, 2> checks{&Check1, &Check2};
  for (std::size_t i = 0; i < checks.size(); ++i) {
    if (!checks[i]->checked() || !checks[i]->enabled()) continue;
    const auto [first, second] = design_.pairs[i];
    Option1.selected() ? copyPair(first, second) : copyPair(second, first);
  }
}

void MapCopyDialog::accept() {
  copyPairs();
  nameStep({"データコピー", "data copy"});
  setProgress(-1);
  closeDialog(*this);
}

bool copyOverCounterpart(MapId source, MapId target) {
  for (const MapCopy* design : {&fuelAndIgnition, &scales}) {
    for (const MapPair& pair : design->pairs) {
      const bool isIt = (pair.first == source && pair.second == target) ||
                        (pair.second == source && pair.first == target);
      if (!isIt || !canCopy(*design, pair)) continue;
      const GridsPause pause;
      writeBackBefore(*design);
      copyPair(source, target);
      return true;
    }
  }
  return false;
}

void F_F() { openDialog(form3); }

void T_R() { openDialog(form4); }
