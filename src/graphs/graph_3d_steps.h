// The steps of the 3D window: single height changes, and the edits that a redraw from the grid
// drops, can be taken back while the window is open.
#pragma once

// The window opened and shows its map.
void beginGraphSteps();
// After a gesture of the window; one that changed nothing is no step.
void settleGraphSteps();

// The former or the later heights and boxes; the picture and the read-outs are the caller's.
void undoGraphStep();
void redoGraphStep();
