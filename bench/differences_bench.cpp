// What noting, marks and the list of differences add to the gestures that they follow.
#include <benchmark/benchmark.h>

#include "changes/differences_window.h"
#include "controls/gesture.h"
#include "core/difference_list.h"
#include "core/differences.h"
#include "core/form1.h"
#include "core/history.h"
#include "core/step.h"
#include "full_car.h"

namespace {

enum Kept { nothing, steps, stepsAndMarks };

void startHolding(std::int64_t kept) {
  fullCar();
  static const std::int32_t imageSize = editorState.imageSize;
  editorState.imageSize = kept == stepsAndMarks ? imageSize : 0;  // none: nothing to compare with
  editorState.currentTab = 1;
  editorState.plusKey = "+";
  editorState.minusKey = "-";
  Grid& grid = form1().Grid1;
  grid.setSelection({1, 1, grid.rows() - 1, grid.columns() - 1});
  keepHistory();
  if (kept == nothing) watchGestures(nullptr);
}

void pressAndRelease(char32_t key) {
  form1().Grid1.userKey(key);
  form1().Grid1.userKeyUp();
  form1().Grid1.userKeyRest();
}

void holdStepKeyOver(benchmark::State& state, bool wholeMap) {
  startHolding(state.range(0));
  if (!wholeMap) form1().Grid1.setSelection({2, 2, 2, 2});
  bool up = true;
  for (auto _ : state) {
    pressAndRelease(up ? U'+' : U'-');
    up = !up;
  }
  forgetHistory();
}

// From press to release over a whole map.
void holdStepKey(benchmark::State& state) { holdStepKeyOver(state, true); }

// One cell of a map, there and back.
void stepOneCell(benchmark::State& state) { holdStepKeyOver(state, false); }

void undoAndRedo(benchmark::State& state) {
  startHolding(stepsAndMarks);
  pressAndRelease(U'+');
  bool back = true;
  for (auto _ : state) {
    back ? undoStep() : redoStep();
    back = !back;
  }
  forgetHistory();
}

// All maps differ, and 1 MiB of the image's bytes in a thousand places.
void listAll(benchmark::State& state) {
  fullCar();
  keepHistory();
  editorState.image.resize(1 << 20);
  editorState.imageSize = 1 << 20;
  editorState.savedImage = editorState.image;
  for (std::size_t at = 0; at < editorState.savedImage.size(); at += 1021) {
    editorState.savedImage[at] ^= 1;
  }
  differencesOutdated();
  followStep({});
  for (auto _ : state) benchmark::DoNotOptimize(differences());
}

BENCHMARK(holdStepKey)->DenseRange(nothing, stepsAndMarks)->Unit(benchmark::kMicrosecond);
BENCHMARK(stepOneCell)->DenseRange(nothing, stepsAndMarks)->Unit(benchmark::kMicrosecond);
BENCHMARK(undoAndRedo)->Unit(benchmark::kMicrosecond);
BENCHMARK(listAll)->Unit(benchmark::kMicrosecond);

}  // namespace
