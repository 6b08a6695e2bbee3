// The main window's own work: tabs, closing with its question, and the small commands.
#pragma once

// Gives the main window its handlers: tabs, grids, parameter boxes, closing.
void wireForm1();

// Asks the main window to unload: writes back, asks if data would be lost, ends the program.
void closeForm1();

// Starts a calculator and goes on at once.
void CALCU();
