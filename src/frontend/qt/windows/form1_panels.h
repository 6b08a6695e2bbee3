// The panels of the main window's tabs.
#pragma once

class QWidget;

// Makes the panel of tab 1 to 14.
QWidget* makePanel(int tab);
// What has the focus when the panel comes to the front: the map, or the first box that takes input;
// null if there is none.
QWidget* firstFocusOf(QWidget* panel);
