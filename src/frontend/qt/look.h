// How the program looks: style, palette, fonts, and the few colours that our own painting uses.
#pragma once

#include <QColor>
#include <QFont>

#include "controls/colour.h"

// Style, palette and font of the whole application. Called once, before the first window.
void dressApplication();

// Colours of texts and signs. What marks something is drawn in two colours where it crosses map
// colours, one of which stands out from each of them.
constexpr QColor inkColour(32, 36, 44);
constexpr QColor faintColour(96, 100, 110);  // what takes no input
constexpr QColor groundColour(243, 244, 247);
constexpr QColor buttonColour(232, 234, 239);
constexpr QColor accentColour(38, 104, 199);

// The font of grid cells: at 100 % "255" fits 28 pixels and "65535" 41.
QFont gridFont();
// The font of a window's headline.
QFont headlineFont();

inline QColor shown(Colour colour) { return QColor(colour.red, colour.green, colour.blue); }

constexpr int twipsPerPixel = 15;
// Twips in whole logical pixels, rounded to the nearest.
constexpr int pixels(int twips) { return (twips + twipsPerPixel / 2) / twipsPerPixel; }
