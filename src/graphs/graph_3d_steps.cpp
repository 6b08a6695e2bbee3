#include "graphs/graph_3d_steps.h"

#include <optional>
#include <string>

#include "graphs/dr_graph.h"
#include "graphs/edit_steps.h"
#include "graphs/graph_3d.h"

namespace {

// The heights, and the boxes that tell what they mean.
struct GraphEdits {
  GraphTable heights{};
  decltype(GraphState::fbFlags) fbFlags{};
  bool upperBit = false;
  bool lowerBit = false;
  int magnificationLine = 0;
  std::string threshold;
  bool operator==(const GraphEdits&) const = default;
};

EditSteps<GraphEdits> steps;

GraphEdits editsNow() {
  return {graphState.heights,        graphState.fbFlags,     DR_GRAPH.Check1.checked(),
          DR_GRAPH.Check2.checked(), DR_GRAPH.List1.index(), DR_GRAPH.Text2.text()};
}

void take(const std::optional<GraphEdits>& edits) {
  if (!edits) return;
  DR_GRAPH.Check1.setChecked(edits->upperBit);
  DR_GRAPH.Check2.setChecked(edits->lowerBit);
  DR_GRAPH.List1.setIndex(edits->magnificationLine);
  DR_GRAPH.Text2.setText(edits->threshold);
  graphState.fbMask = maskOfBoxes();
  graphState.magnification = selectedMagnification();
  graphState.heights = edits->heights;
  graphState.fbFlags = edits->fbFlags;
}

}  // namespace

void beginGraphSteps() { steps.begin(editsNow()); }

void settleGraphSteps() { steps.settle(editsNow()); }

void undoGraphStep() { take(steps.undo()); }

void redoGraphStep() { take(steps.redo()); }
