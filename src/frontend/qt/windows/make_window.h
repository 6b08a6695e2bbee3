// The table of windows: which layout belongs to which record.
#pragma once

#include <vector>

class QWidget;
class Window;

// Makes the widget of a window; null for a record that has no layout.
QWidget* makeWindow(Window& window);
// Every window of the program, the main window first.
std::vector<Window*> allWindows();
