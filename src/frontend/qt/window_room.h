// How large a window may be on its screen.
#pragma once

#include <QSize>

class QWidget;

// What the screen has beside its bars, less the window's frame.
QSize roomFor(const QWidget* window);
// The size at which a window opens: what its layout asks for, or as much as the screen has room
// for. Where something is cut in one direction, its scroll bar gets room in the other.
QSize openingSize(const QWidget* window);
