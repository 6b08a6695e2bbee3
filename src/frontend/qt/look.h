// How the program looks: style, palette, fonts, and the few colours that our own painting uses.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

#include "controls/colour.h"

// Style, palette and font of the whole application. Called once, before the first window.
void dressApplication();
// Makes the calm palette a dark one when the desktop answers that windows are to be dark. A palette
// of the desktop's own stays.
void followDarkDesktop();

// The palette of the program on a desktop whose own is `desktops`: that one, with its texts made
// readable where they aren't; where the desktop has only the toolkit's, a calm one, light or dark
// as that is.
QPalette paletteFor(const QPalette& desktops, const QPalette& toolkits);

// The colours of the calm light palette. What marks something is drawn in two colours where it
// crosses map colours, one of which stands out from each of them.
constexpr QColor inkColour(32, 36, 44);
constexpr QColor faintColour(96, 100, 110);  // what takes no input
constexpr QColor groundColour(243, 244, 247);
constexpr QColor buttonColour(232, 234, 239);
constexpr QColor accentColour(38, 104, 199);

// How much one colour stands out from another: 1 to 21, as WCAG 2.1 counts.
double contrast(const QColor& one, const QColor& other);
// A colour between two, `share` of the way from the first.
QColor mixed(const QColor& one, const QColor& other, double share);
// A text of less weight than those beside it, and one of what isn't there.
QColor faintInk(const QPalette& palette);
QColor absentInk(const QPalette& palette);

// The font of grid cells in a zoom of so many percent: at 100 % "255" fits 28 pixels and
// "65535" 41.
QFont gridFont(int percent = 100);
// By what such a font is larger than at 100 %.
double gridScale(const QFont& font);
// How large what is designed for the usual font must be for the user's, in percent: 100 where that
// is no larger. And a width that text must fit.
int fontZoom();
int byFont(int width);
// The font of a window's headline.
QFont headlineFont();

inline QColor shown(Colour colour) { return QColor(colour.red, colour.green, colour.blue); }

constexpr int twipsPerPixel = 15;
// Twips in whole logical pixels, in a zoom of so many percent, rounded to the nearest.
constexpr int pixels(int twips, int percent = 100) {
  constexpr int unit = 100 * twipsPerPixel;
  return (twips * percent + unit / 2) / unit;
}
