// The window of the 3D graph from its opening on: the menu command, the opening steps, the display
// controls and the tip.
#pragma once

// The menu command.
void DISP_3D_Graph();
