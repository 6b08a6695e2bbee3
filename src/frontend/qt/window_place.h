// Where the main window stood when it was last seen: kept in the per-user store.
#pragma once

#include <QList>
#include <QRect>

class QWidget;

// Gives a window that isn't shown yet the place and the size that it had in the last run, maximised
// if it was, and keeps them from now on whenever it is hidden.
void keepPlace(QWidget* window);

// `wanted` on one of the screens: the one that holds most of it, or the first if none holds any,
// no larger than that one and wholly on it.
QRect onScreens(QRect wanted, const QList<QRect>& screens);
