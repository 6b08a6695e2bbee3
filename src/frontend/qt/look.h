// How the program looks: style, palette, fonts, and the few colours that our own painting uses.
#pragma once

#include <QColor>
#include <QFont>

#include "controls/colour.h"

// Style, palette and font of the whole application. Called once, before the first window.
void dressApplication();

// The font of grid cells: at 100 % "255" fits 28 pixels and "65535" 41.
QFont gridFont();
// The font of a window's headline.
QFont headlineFont();

inline QColor shown(Colour colour) { return QColor(colour.red, colour.green, colour.blue); }

constexpr int twipsPerPixel = 15;
// Twips in whole logical pixels, rounded to the nearest.
constexpr int pixels(int twips) { return (twips + twipsPerPixel / 2) / twipsPerPixel; }
