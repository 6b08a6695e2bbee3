// The engine's figures in one line of the main window.
#pragma once

// "1998/4   Inj.370" with the leading blank of a positive displacement.
void showEngineSummary();
