// The table of windows: which layout belongs to which record. A layout file makes the widget of one
// window and binds it to its record; it holds no logic and no texts.
#pragma once

class QMainWindow;
class QWidget;
class Window;

// Makes the widget of a window; null for a record that has no layout.
QWidget* makeWindow(Window& window);
