#include "core/step.h"

#include <algorithm>
#include <utility>

#include "controls/controls.h"
#include "core/editor_state.h"
#include "core/form1.h"

StepNotes stepNotes;

namespace {

std::size_t indexOf(const MapKind& kind) { return static_cast<std::size_t>(kind.id - 1); }

}  // namespace

ShownMaps shownNow() {
  ShownMaps shown{editorState.cellsDrawn, editorState.paramShown, {}};
  for (const MapKind& kind : mapKinds()) shown.visible[indexOf(kind)] = gridOf(kind).visible();
  return shown;
}

std::size_t sizeOf(const Step& step) {
  const std::size_t shortText = std::string().capacity();
  std::size_t size = sizeof step;
  for (const CellsOfStep& part : step.cells) {
    size += sizeof part + part.places.capacity() * sizeof(std::int32_t) +
            part.cells.capacity() * sizeof(GridCell);
    for (const GridCell& cell : part.cells) {
      if (cell.text.capacity() > shortText) size += cell.text.capacity();
    }
  }
  for (const BoxOfStep& part : step.boxes) size += sizeof part + part.text.capacity();
  for (const BytesOfStep& part : step.bytes) size += sizeof part + part.bytes.capacity();
  return size;
}

void StepNotes::begin() {
  open_ = {};
  open_.tab = editorState.currentTab;
  open_.shown = shownNow();
  for (const MapKind& kind : mapKinds()) selections_[indexOf(kind)] = gridOf(kind).selection();
  ++number_;
  touched_ = false;
  inGesture_ = true;
  settle();
}

void StepNotes::resume(Step open) {
  open_ = std::move(open);
  touched_ = false;
  inGesture_ = true;
  settle();
}

Step StepNotes::end() {
  inGesture_ = false;
  settle();
  if (touched_) dropUnchanged();
  return std::exchange(open_, {});
}

void StepNotes::forget() {
  open_ = {};
  inGesture_ = false;
  settle();
}

void StepNotes::pause(bool on) {
  paused_ += on ? 1 : -1;
  settle();
}

void StepNotes::cell(const MapKind& kind, int row, int column) {
  touched_ = true;
  const Grid& grid = gridOf(kind);
  const std::int32_t place = row * grid.columns() + column;
  std::vector<std::uint32_t>& noted = noted_[indexOf(kind)];
  const auto cells =
      static_cast<std::size_t>(grid.rows()) * static_cast<std::size_t>(grid.columns());
  if (noted.size() != cells) noted.assign(cells, 0);
  std::uint32_t& last = noted[static_cast<std::size_t>(place)];
  if (last == number_) return;
  last = number_;
  if (open_.cells.empty() || open_.cells.back().kind != &kind) {
    const auto part = std::find_if(open_.cells.begin(), open_.cells.end(),
                                   [&kind](const CellsOfStep& each) { return each.kind == &kind; });
    if (part == open_.cells.end()) {
      open_.cells.push_back({&kind, selections_[indexOf(kind)], {}, {}});
    } else {
      std::rotate(part, part + 1, open_.cells.end());
    }
  }
  open_.cells.back().places.push_back(place);
  open_.cells.back().cells.push_back(grid.cellAt(row, column));
}

void StepNotes::box(const TextBox& box) {
  if (!on_) return;
  touched_ = true;
  const auto isBox = [&box](const ParamKind& kind) { return &(form1().*kind.box) == &box; };
  const auto kind = std::find_if(paramKinds().begin(), paramKinds().end(), isBox);
  const auto holds = [&kind](const BoxOfStep& part) { return part.kind == &*kind; };
  if (std::none_of(open_.boxes.begin(), open_.boxes.end(), holds)) {
    open_.boxes.push_back({&*kind, box.text()});
  }
}

void StepNotes::byte(std::int64_t offset, std::uint8_t former) {
  touched_ = true;
  std::vector<BytesOfStep>& runs = open_.bytes;
  if (runs.empty() || runs.back().offset + std::ssize(runs.back().bytes) != offset) {
    runs.push_back({offset, {}});
  }
  runs.back().bytes.push_back(former);
}

// What stands as before the gesture is none of the step.
void StepNotes::dropUnchanged() {
  for (CellsOfStep& part : open_.cells) {
    const Grid& grid = gridOf(*part.kind);
    std::size_t kept = 0;
    for (std::size_t i = 0; i < part.places.size(); ++i) {
      const std::int32_t place = part.places[i];
      if (grid.cellAt(place / grid.columns(), place % grid.columns()) == part.cells[i]) {
        noted_[indexOf(*part.kind)][static_cast<std::size_t>(place)] = 0;
        continue;
      }
      if (kept != i) {
        part.places[kept] = place;
        part.cells[kept] = std::move(part.cells[i]);
      }
      ++kept;
    }
    part.places.resize(kept);
    part.cells.resize(kept);
  }
  std::erase_if(open_.cells, [](const CellsOfStep& part) { return part.places.empty(); });
  std::erase_if(open_.boxes, [](const BoxOfStep& part) {
    return (form1().*part.kind->box).text() == part.text;
  });
}
