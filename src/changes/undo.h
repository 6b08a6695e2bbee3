// Undo and redo: what one gesture changed goes back, or comes again, in one step.
#pragma once

// The menu commands.
void undoChange();
void redoChange();

// The two menu rows say what the next step is, and are enabled while there is one.
void showHistory();
