// The layouts of all windows. Each makes the widget of one window and binds it to its record; it
// holds no logic and no texts. To add a window: a file here, its layout below, and its row in
// make_window.cpp.
#pragma once

class QWidget;

QWidget* makeForm1Window();
QWidget* makeForm2Window();
QWidget* makeForm3Window();
QWidget* makeForm4Window();
QWidget* makeForm5Window();
QWidget* makeForm6Window();
QWidget* makeForm7Window();
QWidget* makeForm8Window();
QWidget* makeForm9Window();
QWidget* makeForm10Window();
QWidget* makeForm11Window();
QWidget* makeForm13Window();
QWidget* makeSetWindow();
QWidget* makePercentWindow();
QWidget* makeInterpolateWindow();
QWidget* makeDifferencesWindow();
QWidget* makeEarlierStatesWindow();
QWidget* makeAnyFormWindow();
QWidget* makePrintWindow();
QWidget* makeD2GraphWindow();
QWidget* makeDrGraphWindow();
QWidget* makeOddEvenWindow();
QWidget* makeAboutWindow();
QWidget* makeSplashWindow();
