// The table of windows: which layout belongs to which record. A layout file makes the widget of one
// window and binds it to its record; it holds no logic and no texts. To add a window: a file here
// with its make function, and that function's declaration and row in windows.cpp.
#pragma once

class QWidget;
class Window;

// Makes the widget of a window; null for a record that has no layout.
QWidget* makeWindow(Window& window);
