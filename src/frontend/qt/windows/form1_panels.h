// The panels of the main window's tabs.
#pragma once

class QWidget;

// Makes the panel of tab 1 to 14.
QWidget* makePanel(int tab);
// The map of a panel, null for the parameters'.
QWidget* mapOf(const QWidget* panel);
// Shows the panel's grids and pictures as large as the main window's zoom asks for; boxes and their
// captions stay.
void zoomPanel(QWidget* panel);
