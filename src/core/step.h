// What one gesture of the user changes: cells of maps, boxes of parameters, bytes of the image. The
// doors to all three note what stood there, once for each gesture.
//
// Headers, boost rows and the airflow view follow from the cells and are never noted; neither are
// the bytes that a write-back stores, since they follow from cells and boxes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "controls/grid.h"
#include "core/map_kinds.h"
#include "core/wording.h"

struct CellsOfStep {
  const MapKind* kind;
  GridSelection selection;           // before the gesture
  std::vector<std::int32_t> places;  // row times the grid's columns, plus column
  std::vector<GridCell> cells;       // of the other side of the step, in the order of `places`
};

struct BoxOfStep {
  const ParamKind* kind;
  std::string text;
};

// A run of the image's bytes, in the order in which they changed.
struct BytesOfStep {
  std::int64_t offset;
  std::vector<std::uint8_t> bytes;
};

// Which cells and boxes stand for the image's bytes, and which grids can be seen.
struct ShownMaps {
  std::array<std::int32_t, mapCount + 1> cellsDrawn{};
  std::array<bool, paramCount> paramShown{};
  std::array<bool, mapCount> visible{};
};

ShownMaps shownNow();

struct Step {
  BothTexts what;  // "addition -5"; empty: an entry
  std::int32_t tab = 1;
  ShownMaps shown;
  std::vector<CellsOfStep> cells;
  std::vector<BoxOfStep> boxes;
  std::vector<BytesOfStep> bytes;
  bool empty() const { return cells.empty() && boxes.empty() && bytes.empty(); }
};

// Bytes that a step takes in memory.
std::size_t sizeOf(const Step& step);

// The notes of the gesture under way.
class StepNotes {
 public:
  bool on() const { return on_; }
  // A gesture begins, or `open` goes on.
  void begin();
  void resume(Step open);
  // All that was noted so far, of which some may stand as before.
  const Step& open() const { return open_; }
  // Whether this gesture noted anything.
  bool touched() const { return touched_; }
  // Gives the step of what differs from before, and notes nothing more.
  Step end();
  void forget();
  // Pauses nest.
  void pause(bool on);

  void name(BothTexts what) { open_.what = std::move(what); }
  void cell(const MapKind& kind, int row, int column);
  void box(const TextBox& box);
  void byte(std::int64_t offset, std::uint8_t former);

 private:
  void settle() { on_ = inGesture_ && paused_ == 0; }
  void dropUnchanged();

  Step open_;
  std::array<GridSelection, mapCount> selections_{};
  // The gesture in which each map's cell was noted last, by place.
  std::array<std::vector<std::uint32_t>, mapCount> noted_;
  std::uint32_t number_ = 0;
  int paused_ = 0;
  bool touched_ = false;
  bool inGesture_ = false;
  bool on_ = false;
};

extern StepNotes stepNotes;

// What is written meanwhile follows from cells and boxes and is no change.
class StepPause {
 public:
  StepPause() { stepNotes.pause(true); }
  ~StepPause() { stepNotes.pause(false); }
  StepPause(const StepPause&) = delete;
  StepPause& operator=(const StepPause&) = delete;
};
