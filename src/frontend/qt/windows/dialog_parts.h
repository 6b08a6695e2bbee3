// What the layouts of the dialogs have in common: the window itself, widgets bound to their
// records, and the row of buttons at its foot.
#pragma once

#include <initializer_list>

#include "controls/button.h"
#include "controls/controls.h"
#include "controls/grid.h"

class QBoxLayout;
class QDialog;
class QGridLayout;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QWidget;

// A dialog over the main window that takes all input.
QDialog* newDialog();
// The rows of a dialog that is as large as its contents, and wide enough for its title.
QBoxLayout* rowsOf(QDialog* dialog);

QLabel* labelFor(Label& record);
// A label of several lines where its text is long.
QLabel* noteFor(Label& record);
// A label that takes the room it gets, whatever its text.
QLabel* lineFor(Label& record);
QLineEdit* boxFor(TextBox& record);
QWidget* checkFor(CheckBox& record);
QPushButton* buttonFor(Button& record);
// A list of at least this many pixels: many rows make no window that hides the main one.
QWidget* listFor(Grid& record, int width, int height);
// A label and its box, and the label of its unit if it has one, in the next row of `cells`.
void addField(QGridLayout* cells, Label& label, TextBox& box, Label* unit = nullptr);
// Options with the labels that tell what they mean, one below the other.
struct LabelledOption {
  Option& option;
  Label& label;
};
QWidget* optionsFor(std::initializer_list<LabelledOption> options);

// Buttons of one width at the right, with room above them.
QLayout* buttonRow(std::initializer_list<Button*> buttons);
