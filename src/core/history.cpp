#include "core/history.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <utility>
#include <vector>

#include "controls/gesture.h"
#include "core/differences.h"
#include "core/editor_state.h"
#include "core/form1.h"
#include "core/image_bytes.h"
#include "core/map_cells.h"
#include "core/map_display.h"
#include "core/map_kinds.h"
#include "core/map_places.h"
#include "core/status_line.h"
#include "core/step.h"
#include "platform/numbers.h"

std::function<void()> onHistoryChange;

namespace {

// Steps in the order in which they happened, with their size in memory.
class Steps {
 public:
  const Step* newest() const { return steps_.empty() ? nullptr : &steps_.back().step; }
  std::size_t bytes() const { return bytes_; }
  void put(Step step) {
    const std::size_t size = sizeOf(step);
    bytes_ += size;
    steps_.push_back({std::move(step), size});
  }
  Step take() {
    Step step = std::move(steps_.back().step);
    bytes_ -= steps_.back().size;
    steps_.pop_back();
    return step;
  }
  void dropOldestBeyond(std::size_t limit) {
    while (bytes_ > limit && steps_.size() > 1) {
      bytes_ -= steps_.front().size;
      steps_.pop_front();
    }
  }
  void clear() { *this = {}; }

 private:
  struct Sized {
    Step step;
    std::size_t size;
  };
  std::deque<Sized> steps_;
  std::size_t bytes_ = 0;
};

Steps done;
Steps undone;

class Watch final : public GestureWatch, public TextWatch {
 public:
  void gestureBegins(const GestureThread& thread) override {
    const bool goesOn = thread.control && thread == thread_ && done.newest();
    goesOn ? stepNotes.resume(done.take()) : stepNotes.begin();
    thread_ = thread;
  }
  void gestureEnds() override {
    const bool touched = stepNotes.touched();
    // Also what an earlier gesture of the thread changed and this one put back.
    touched ? followStep(stepNotes.open()) : followStep({});
    Step step = stepNotes.end();
    if (!step.empty()) {
      if (touched) sayChanged(step);
      undone.clear();
      done.put(std::move(step));
      done.dropOldestBeyond(historyLimit);
    } else {
      thread_ = {};
    }
    if (onHistoryChange) onHistoryChange();
  }
  void threadEnds() override { thread_ = {}; }
  void textChanges(TextBox& box) override { stepNotes.box(box); }

 private:
  GestureThread thread_;  // of the newest step, while it may go on
};

Watch watch;

// Where a step happened. A scale that moved with its map goes without saying.
BothTexts placeOf(const Step& step) {
  const auto both = [](const std::string& text) { return BothTexts{text, text}; };
  std::vector<const MapKind*> maps;
  for (const CellsOfStep& part : step.cells) {
    if (!part.kind->isScale()) maps.push_back(part.kind);
  }
  if (maps.size() == 1) return both(nameOf(*maps.front()));
  if (maps.size() > 1) {
    const std::string count = decimalText(static_cast<std::int32_t>(maps.size()));
    return {count + "個のマップ", count + " maps"};
  }
  if (!step.cells.empty()) return both(nameOf(*step.cells.front().kind));
  if (!step.boxes.empty()) return both((form1().*step.boxes.front().kind->label).caption());
  return both("&H" + hexText(static_cast<std::uint32_t>(step.bytes.front().offset)));
}

std::string nameOf(const Step* step) {
  if (!step) return {};
  const BothTexts place = placeOf(*step);
  const auto& [japanese, english] = step->what;
  return captionedBoth({(japanese.empty() ? "入力" : japanese) + "、" + place.japanese,
                        (english.empty() ? "entry" : english) + ", " + place.english});
}

void swapShown(ShownMaps& other) {
  const ShownMaps now = shownNow();
  editorState.cellsDrawn = other.cellsDrawn;
  editorState.paramShown = other.paramShown;
  for (const MapKind& kind : mapKinds())
    gridOf(kind).setVisible(other.visible[static_cast<std::size_t>(kind.id - 1)]);
  other = now;
}

void swapCells(CellsOfStep& part) {
  Grid& grid = gridOf(*part.kind);
  for (std::size_t i = 0; i < part.places.size(); ++i) {
    const std::int32_t place = part.places[i];
    grid.swapCell(place / grid.columns(), place % grid.columns(), part.cells[i]);
  }
}

void swapBox(BoxOfStep& part) {
  TextBox& box = form1().*part.kind->box;
  std::string now = box.text();
  box.setText(std::exchange(part.text, std::move(now)));
}

void swapBytes(BytesOfStep& run, bool back) {
  const auto count = std::ssize(run.bytes);
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    const std::ptrdiff_t at = back ? count - 1 - i : i;
    const auto now = static_cast<std::uint8_t>(imageByte(run.offset + at));
    setImageByte(run.offset + at, std::exchange(run.bytes[static_cast<std::size_t>(at)], now));
  }
}

// Cells, boxes, bytes and what is shown change places with what stands there now. Of bytes that
// changed twice the last change goes back first.
void swapWithNow(Step& step, bool back) {
  for (CellsOfStep& part : step.cells) swapCells(part);
  for (BoxOfStep& part : step.boxes) swapBox(part);
  if (back) {
    std::for_each(step.bytes.rbegin(), step.bytes.rend(), [](auto& run) { swapBytes(run, true); });
  } else {
    for (BytesOfStep& run : step.bytes) swapBytes(run, false);
  }
  swapShown(step.shown);
}

GridBlock blockOf(const CellsOfStep& part, int columns) {
  const auto [first, last] = std::minmax_element(part.places.begin(), part.places.end());
  GridBlock block{*first / columns, columns, *last / columns, 0};
  for (const std::int32_t place : part.places) {
    block.left = std::min(block.left, place % columns);
    block.right = std::max(block.right, place % columns);
  }
  return block;
}

bool meet(const GridSelection& selection, const GridBlock& block) {
  const auto [top, bottom] = std::minmax(selection.row, selection.rowSel);
  const auto [left, right] = std::minmax(selection.column, selection.columnSel);
  return top <= block.bottom && bottom >= block.top && left <= block.right && right >= block.left;
}

// The selection of before the gesture, or all that changed where that lies elsewhere.
void selectChanged(const CellsOfStep& part) {
  Grid& grid = gridOf(*part.kind);
  const GridBlock block = blockOf(part, grid.columns());
  grid.setSelection(meet(part.selection, block)
                        ? part.selection
                        : GridSelection{block.top, block.left, block.bottom, block.right});
  grid.lightUp(part.places);
}

void showPlace(const Step& step) {
  for (const CellsOfStep& part : step.cells) selectChanged(part);
  if (!step.cells.empty()) {
    const auto onTab = [&step](const CellsOfStep& part) { return part.kind->tab == step.tab; };
    const auto part = std::find_if(step.cells.begin(), step.cells.end(), onTab);
    const MapKind& kind = part == step.cells.end() ? *step.cells.front().kind : *part->kind;
    showTab(kind.tab);
    gridOf(kind).setFocus();
  } else if (!step.boxes.empty()) {
    showTab(globalTab);
    (form1().*step.boxes.front().kind->box).setFocus();
  }
}

void move(Steps& from, Steps& to, bool back) {
  if (!from.newest()) return;
  watch.threadEnds();
  const StepPause following;
  Step step = from.take();
  {
    const GridsPause repainting;
    swapWithNow(step, back);
    for (const CellsOfStep& part : step.cells) showAfterEffect(*part.kind);
    followStep(step);
    sayChanged(step);
  }
  showPlace(step);
  to.put(std::move(step));
}

}  // namespace

void keepHistory() {
  forgetHistory();
  watchGestures(&watch);
  for (const ParamKind& kind : paramKinds()) (form1().*kind.box).watch = &watch;
}

void nameStep(const Wording& what) { stepNotes.name({what.japanese, what.english}); }

void nameStep(const Wording& what, const std::string& figure) {
  stepNotes.name({what.japanese + (" " + figure), what.english + (" " + figure)});
}

bool canUndo() { return done.newest() != nullptr; }

bool canRedo() { return undone.newest() != nullptr; }

std::string undoName() { return nameOf(done.newest()); }

std::string redoName() { return nameOf(undone.newest()); }

void undoStep() { move(done, undone, true); }

void redoStep() { move(undone, done, false); }

void forgetHistory() {
  stepNotes.forget();
  done.clear();
  undone.clear();
  watch.threadEnds();
}

std::size_t historyBytes() { return done.bytes() + undone.bytes(); }
