// Binding of widgets to control records: sets the widget from the record, takes the record's
// observer, forwards the widget's signals to the record's user-side doors. The record must outlive
// the widget; its observer is cleared when the widget dies.
#pragma once

#include <functional>

#include "controls/button.h"
#include "controls/controls.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTabBar;
class QTimer;
class QWidget;

void bind(QLabel* widget, Label& record);
void bind(QGroupBox* widget, Frame& record);
// `onShow` shows what else there is of the record beside its line.
void bind(QLineEdit* widget, TextBox& record, std::function<void()> onShow = {});
void bind(QCheckBox* widget, CheckBox& record);
// Options of one group must be children of one widget that holds no others.
void bind(QRadioButton* widget, Option& record);
void bind(QListWidget* widget, ListBox& record);
void bind(QPushButton* widget, Button& record);
void bind(QTabBar* widget, TabStrip& record);
void bind(QProgressBar* widget, ProgressBar& record);
void bind(QTimer* timer, Timer& record);

// The letter of a label leads to the field that is named after it.
void leadLabelsToFields(QWidget* window);

// Keeps a character that is typed with Alt out of a line: it is meant for a menu.
void leaveAltKeys(QLineEdit* line);

// Tells assistive programs what the control is called and what it reads out.
void showNames(QWidget* widget, const Control& record);

// Shows what every control has: enabled, visible, tool tip, name.
class SharedValues {
 public:
  SharedValues(QWidget* widget, const Control& record);
  void show();

 private:
  QWidget* widget_;
  const Control* record_;
  bool visible_ = true;
};

// Forwards a focus that the user moved; one that went with the whole window stays where it was.
void forwardFocusIn(Control& record);
void forwardFocusOut(Control& record, int focusReason);
