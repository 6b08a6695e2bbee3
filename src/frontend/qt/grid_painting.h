// How cells, headers and the selection of a grid record are painted.
#pragma once

#include <QRect>

#include "platform/grid.h"

class QPainter;
class QWidget;

// Paints one data cell, grid lines at its right and lower edge included. `view` tells the font and
// whether the grid takes input.
void paintCell(QPainter& painter, const QRect& area, const Grid& record, int row, int column,
               const QWidget& view);

// Paints one fixed cell. A column or row that the selection touches is marked.
void paintHeaderCell(QPainter& painter, const QRect& area, const Grid& record, int row, int column,
                     const QWidget& view);

// Paints the border around the selected block, which covers `area`.
void paintSelectionBorder(QPainter& painter, const QRect& area, bool focused);
