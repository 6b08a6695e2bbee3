#include "graphs/graph_3d_display.h"

#include <algorithm>
#include <string>

#include "controls/canvas_picture.h"
#include "core/dialogs.h"
#include "core/editor_state.h"
#include "core/map_kinds.h"
#include "graphs/dr_graph.h"
#include "graphs/graph_3d.h"
#include "graphs/graph_3d_editing.h"
#include "graphs/graph_3d_steps.h"
#include "platform/numbers.h"

namespace {

void redrawWhenActive(Colour marker) {
  if (DR_GRAPH.formActive) redrawGraph3D();
  markCursor(marker);
  settleGraphSteps();
}

void showTip() {
  DR_GRAPH.Label13.setVisible(true);
  DR_GRAPH.Timer1.restart(DrGraph::tipMilliseconds);
}

void endTip() {
  DR_GRAPH.Label13.setVisible(false);
  DR_GRAPH.Timer1.setEnabled(false);
}

void takeMask() { graphState.fbMask = maskOfBoxes(); }

void takeMagnification() { graphState.magnification = selectedMagnification(); }

void maskChanged() {
  takeMask();
  redrawWhenActive(markerRed);
}

void magnificationChanged() {
  takeMagnification();
  redrawWhenActive(markerYellow);
}

void showCompareChanged() {
  const bool wanted = DR_GRAPH.Check3.checked();
  editorState.graphShowCompare = wanted ? 1 : 0;
  redrawGraph3D();
  DR_GRAPH.Label20.setVisible(wanted);
  DR_GRAPH.Line4.setVisible(wanted);
  markCursor(markerYellow);
  settleGraphSteps();
}

// A stored mask that no pair of boxes stands for leaves both off.
void showStoredMask() {
  const std::int32_t mask = editorState.graphFbMask;
  DR_GRAPH.Check1.setChecked(mask == 192 || mask == 128);
  DR_GRAPH.Check2.setChecked(mask == 192 || mask == 64);
  takeMask();
}

void showStoredParameters() {
  showStoredMask();
  DR_GRAPH.Check3.setChecked(editorState.graphShowCompare != 0);
  DR_GRAPH.Text2.setText(decimalText(editorState.graphFbThreshold));
  DR_GRAPH.List1.setIndex(std::clamp(editorState.graphMagnification, 1, 5) - 1);
  takeMagnification();
  DR_GRAPH.viewDirection.select(&DR_GRAPH.Option1);
}

void emptyCanvas() {
  graphState.cursorColumn = 1;
  graphState.cursorRow = 1;
  graphState.heights = {};
  DR_GRAPH.Picture1.clear();
  for (Label* text : {&DR_GRAPH.Label1, &DR_GRAPH.Label2, &DR_GRAPH.Label3, &DR_GRAPH.Label4}) {
    text->setCaption("");
  }
  DR_GRAPH.Label17.setVisible(false);
}

void openGraph3D() {
  DR_GRAPH.formActive = false;
  DR_GRAPH.takeWords();
  DR_GRAPH.Check3.setEnabled(editorState.compareLoaded > 0);
  showTip();
  emptyCanvas();
  showStoredParameters();
  redrawGraph3D();
  drawCursorMarker(markerYellow);
  // The draw gives the comparison up when no comparison image is loaded.
  DR_GRAPH.Check3.setChecked(editorState.graphShowCompare != 0);
  DR_GRAPH.Picture1.repaint();
  beginGraphSteps();
}

void wireDisplayControls() {
  DrGraph& window = DR_GRAPH;
  window.Check1.onMouseDown = window.Check2.onMouseDown = saveGraphEdits;
  window.Check1.onChange = window.Check2.onChange = maskChanged;
  window.Check3.onChange = showCompareChanged;
  window.List1.onMouseDown = saveGraphEdits;
  window.List1.onChange = magnificationChanged;
  for (Option* option : window.viewDirection.members()) {
    option->onMouseDown = [option] {
      if (!option->selected()) saveGraphEdits();
    };
    option->onSelect = [] { redrawWhenActive(markerYellow); };
  }
  window.Text2.onLostFocus = [] { redrawWhenActive(markerYellow); };
  window.Command3.onClick = showTip;
  window.Timer1.onTimer = endTip;
}

Picture pictureOfGraph() {
  return canvasPicture(DR_GRAPH.Picture1, DR_GRAPH.labelsOnCanvas(), DR_GRAPH.linesOnCanvas());
}

std::string nameOfGraph() {
  const MapKind* const kind = mapOnShow();
  return (kind ? std::string(kind->keyword) + ' ' : std::string()) + "3D";
}

void moveBetweenSteps(void (*move)()) {
  move();
  graphKeyUp(0);
}

void wireGraph3D() {
  DrGraph& window = DR_GRAPH;
  wireDialog(window,
             {openGraph3D, &window.Command2, okGraph3D, &window.Command1, &window.Picture1});
  window.onActivate = [] { DR_GRAPH.formActive = true; };
  window.onUnload = [] { DR_GRAPH.formActive = false; };
  window.Picture1.onMouseDown = [] { DR_GRAPH.Label13.setVisible(false); };
  window.Picture1.onKeyDown = graphKeyDown;
  window.Picture1.onClick = graphClick;
  window.Picture1.onKey = graphKey;
  window.Picture1.onControlKey = graphControlKey;
  window.Picture1.onKeyUp = graphKeyUp;
  window.onUndo = [] { moveBetweenSteps(undoGraphStep); };
  window.onRedo = [] { moveBetweenSteps(redoGraphStep); };
  window.pictureMenu.wire(window.Picture1, pictureOfGraph, nameOfGraph);
  wireDisplayControls();
}

}  // namespace

void DISP_3D_Graph() {
  wireGraph3D();
  openDialog(DR_GRAPH);
}
