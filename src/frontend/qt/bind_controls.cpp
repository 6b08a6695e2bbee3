#include "frontend/qt/bind_controls.h"

#include <QCheckBox>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QEvent>
#include <QFocusEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QMouseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTimer>
#include <QValidator>
#include <algorithm>
#include <limits>
#include <memory>

#include "controls/controls.h"
#include "controls/mark_meaning.h"
#include "frontend/qt/event_tap.h"
#include "frontend/qt/look.h"
#include "frontend/qt/text.h"

namespace {

constexpr const char* recordProperty = "record";

const Control* recordOf(const QWidget* widget) {
  return static_cast<const Control*>(widget->property(recordProperty).value<void*>());
}

// A marked box tells of its mark first.
std::string descriptionOf(const Control& record) {
  const auto* const box = dynamic_cast<const TextBox*>(&record);
  const std::string meaning = box && markMeaning ? markMeaning(box->mark()) : "";
  return meaning.empty() ? record.description() : meaning + ' ' + record.description();
}

}  // namespace

void showNames(QWidget* widget, const Control& record) {
  const QString name = shown(record.spokenName()).simplified();
  const QString description = shown(descriptionOf(record)).simplified();
  if (name != widget->accessibleName()) widget->setAccessibleName(name);
  if (description != widget->accessibleDescription()) widget->setAccessibleDescription(description);
}

SharedValues::SharedValues(QWidget* widget, const Control& record)
    : widget_(widget), record_(&record) {
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
}

void SharedValues::show() {
  widget_->setEnabled(record_->enabled());
  widget_->setToolTip(shownTip(record_->toolTip()));
  showNames(widget_, *record_);
  if (visible_ == record_->visible()) return;
  visible_ = record_->visible();
  widget_->setVisible(visible_);
}

void forwardFocusIn(Control& record) { record.userFocus(); }

void forwardFocusOut(Control& record, int focusReason) {
  const bool stays = focusReason == Qt::ActiveWindowFocusReason ||
                     focusReason == Qt::PopupFocusReason || focusReason == Qt::MenuBarFocusReason;
  if (!stays) record.userLeave();
}

namespace {

// Sets the widget from the record, now and at each change: `values` shows what is the widget's own,
// `selection` what the record says of a selected part.
template <class Values, class Selection>
void follow(QWidget* widget, Control& record, Values values, Selection selection) {
  SharedValues shared(widget, record);
  auto show = [widget, shared, values]() mutable {
    const QSignalBlocker quiet(widget);
    values();
    shared.show();
  };
  record.observer = [widget, show, selection](const Change& change) mutable {
    switch (change.kind) {
      case Change::focus:
        return widget->setFocus(Qt::OtherFocusReason);
      case Change::repaint:
        return widget->repaint();
      case Change::selection:
        return selection();
      default:
        return show();
    }
  };
  record.observer({Change::values});
  widget->setProperty(recordProperty, QVariant::fromValue<void*>(static_cast<Control*>(&record)));
  QObject::connect(widget, &QObject::destroyed, [&record] { record.observer = nullptr; });
}

template <class Values>
void follow(QWidget* widget, Control& record, Values values) {
  follow(widget, record, values, [] {});
}

// Forwards what signals of the toolkit don't tell: focus and presses of the left button.
void forwardFocus(QWidget* widget, Control& record) {
  tapEvents(widget, [&record](QEvent* event) {
    if (event->type() == QEvent::FocusIn) forwardFocusIn(record);
    if (event->type() == QEvent::FocusOut) {
      forwardFocusOut(record, static_cast<QFocusEvent*>(event)->reason());
    }
    return false;
  });
}

template <class Press>
void forwardPress(QWidget* widget, Press press) {
  tapEvents(widget, [press](QEvent* event) {
    if (event->type() != QEvent::MouseButtonPress) return false;
    if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) press();
    return false;
  });
}

// A key that types a character; shortcuts and keys that go to a menu type none.
bool types(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  constexpr auto commands = Qt::ControlModifier | Qt::MetaModifier | Qt::AltModifier;
  if (key.modifiers() & commands) return false;
  const auto characters = key.text().toUcs4();
  return !characters.isEmpty() && QChar::isPrint(characters.front());
}

// Leaves of each editing in a line what the record's door leaves of it.
class EntryDoor : public QValidator {
 public:
  EntryDoor(QLineEdit* line, TextBox& record) : QValidator(line), record_(record) {
    // The record knows the limit.
    line->setMaxLength(std::numeric_limits<int>::max());
    line->setValidator(this);
    tapEvents(line, [this](QEvent* event) {
      by_ = types(*event) ? TextBox::By::keys : TextBox::By::other;
      return false;
    });
    connect(line, &QLineEdit::textEdited,
            [this](const QString& text) { record_.userEdit(stored(text), by_); });
  }
  State validate(QString& text, int& place) const override {
    const QString left = shown(record_.edited(stored(text), by_));
    if (left == text) return Acceptable;
    if (left == shown(record_.text())) return Invalid;  // the line takes the editing back
    place = std::max(place - static_cast<int>(text.size() - left.size()), 0);
    text = left;
    return Acceptable;
  }

 private:
  TextBox& record_;
  TextBox::By by_ = TextBox::By::other;
};

// A click moves the cursor after it gave the focus; the whole text is selected behind it.
void selectAllAtClick(QLineEdit* line) {
  tapEvents(line, [line](QEvent* event) {
    if (event->type() == QEvent::FocusIn &&
        static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason) {
      QTimer::singleShot(0, line, &QLineEdit::selectAll);
    }
    return false;
  });
}

// A bar that stands at 0 is out of sight.
void showProgress(QProgressBar* widget, const ProgressBar& record) {
  const QSignalBlocker quiet(widget);
  widget->setValue(record.value());
  widget->setEnabled(record.enabled());
  widget->setToolTip(shownTip(record.toolTip()));
  showNames(widget, record);
  widget->setVisible(record.visible() && record.value() > 0);
}

// A box takes dropped text, but files are for its window.
void leaveFiles(QLineEdit* line) {
  tapEvents(line, [](QEvent* event) {
    if (event->type() != QEvent::DragEnter) return false;
    if (!static_cast<QDropEvent*>(event)->mimeData()->hasUrls()) return false;
    event->ignore();
    return true;
  });
}

}  // namespace

void leadLabelsToFields(QWidget* window) {
  const QList<QLabel*> labels = window->findChildren<QLabel*>();
  for (QWidget* field : window->findChildren<QWidget*>()) {
    const bool takesLetter = qobject_cast<QLineEdit*>(field) || qobject_cast<QListWidget*>(field) ||
                             qobject_cast<QRadioButton*>(field);
    const Control* const record = takesLetter ? recordOf(field) : nullptr;
    if (!record || record->namedAfter().empty()) continue;
    for (QLabel* label : labels) {
      const Control* const head = recordOf(label);
      if (head != record->namedAfter().front() || label->buddy()) continue;
      label->setBuddy(field);
      head->observer({Change::values});
    }
  }
}

void leaveAltKeys(QLineEdit* line) {
  tapEvents(line, [](QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const auto* const key = static_cast<QKeyEvent*>(event);
    const auto modifiers = key->modifiers() & (Qt::AltModifier | Qt::ControlModifier);
    if (modifiers != Qt::AltModifier || key->text().isEmpty()) return false;
    event->ignore();
    return true;
  });
}

void bind(QLabel* widget, Label& record) {
  widget->setTextFormat(Qt::PlainText);
  follow(widget, record, [widget, &record, colour = black]() mutable {
    // Only a label with a field looks for the letter that leads there.
    widget->setText(widget->buddy() ? letteredCaption(record) : shown(record.caption()));
    if (widget->parentWidget() && !widget->parentWidget()->layout()) widget->adjustSize();
    if (record.colour() == colour) return;
    colour = record.colour();
    // Black stands for the desktop's colour of text.
    QPalette palette = colour == black ? QPalette() : widget->palette();
    if (colour != black) palette.setColor(QPalette::WindowText, shown(colour));
    widget->setPalette(palette);
  });
  if (!record.onClick) return;
  widget->setCursor(Qt::PointingHandCursor);
  forwardPress(widget, [&record] { record.userClick(); });
}

void bind(QGroupBox* widget, Frame& record) {
  follow(widget, record, [widget, &record] { widget->setTitle(shownCaption(record.caption())); });
  forwardPress(widget, [&record] { record.userClick(); });
}

// A box whose changes the history keeps leaves the keys of undo and redo to it.
void leaveStepKeys(QLineEdit* line) {
  tapEvents(line, [](QEvent* event) {
    if (event->type() != QEvent::ShortcutOverride) return false;
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (!key->matches(QKeySequence::Undo) && !key->matches(QKeySequence::Redo)) return false;
    event->ignore();
    return true;
  });
}

void bind(QLineEdit* widget, TextBox& record, std::function<void()> onShow) {
  if (record.watch) leaveStepKeys(widget);
  // An input method would bring characters past the key filter.
  if (record.keyFilter) widget->setAttribute(Qt::WA_InputMethodEnabled, false);
  new EntryDoor(widget, record);
  follow(
      widget, record,
      [widget, &record, onShow = std::move(onShow)] {
        const QString text = shown(record.text());
        if (widget->text() != text) widget->setText(text);
        if (onShow) onShow();
      },
      [widget] { widget->selectAll(); });
  forwardFocus(widget, record);
  selectAllAtClick(widget);
  leaveFiles(widget);
  leaveAltKeys(widget);
}

void bind(QCheckBox* widget, CheckBox& record) {
  follow(widget, record, [widget, &record] {
    widget->setText(letteredCaption(record));
    widget->setChecked(record.checked());
  });
  forwardPress(widget, [&record] { record.userMouseDown(); });
  QObject::connect(widget, &QCheckBox::clicked, [&record] { record.userToggle(); });
  forwardFocus(widget, record);
}

void bind(QRadioButton* widget, Option& record) {
  follow(widget, record, [widget, &record] {
    widget->setText(letteredCaption(record));
    // The toolkit keeps an exclusive button from being cleared; the record decides.
    widget->setAutoExclusive(false);
    widget->setChecked(record.selected());
    widget->setAutoExclusive(true);
  });
  forwardPress(widget, [&record] { record.userMouseDown(); });
  QObject::connect(widget, &QRadioButton::clicked, [&record] {
    record.userSelect();
    for (Option* member : record.group().members()) {
      if (member->observer) member->observer({Change::values});
    }
  });
  forwardFocus(widget, record);
}

void bind(QListWidget* widget, ListBox& record) {
  for (const std::string& item : record.items()) widget->addItem(shown(item));
  // Told by its index, the view keeps a list without a choice as it is when it gets the focus.
  follow(widget, record,
         [widget, &record] { widget->setCurrentIndex(widget->model()->index(record.index(), 0)); });
  forwardPress(widget->viewport(), [&record] { record.userMouseDown(); });
  // The list is still busy with the change that it tells; a refused one is taken back behind it.
  QObject::connect(widget, &QListWidget::currentRowChanged, widget,
                   [&record](int row) { record.userSelect(row); });
  QObject::connect(
      widget, &QListWidget::currentRowChanged, widget,
      [&record](int row) {
        if (row != record.index()) record.observer({Change::values});
      },
      Qt::QueuedConnection);
  forwardFocus(widget, record);
}

void bind(QPushButton* widget, Button& record) {
  follow(widget, record, [widget, &record] { widget->setText(letteredCaption(record)); });
  const Window& window = record.window();
  widget->setDefault(window.defaultButton == &record);
  QObject::connect(widget, &QPushButton::clicked, [&record] { record.userClick(); });
  forwardFocus(widget, record);
}

void bind(QTabBar* widget, TabStrip& record) {
  for (int number = 1; number <= record.count(); ++number) widget->addTab({});
  follow(widget, record, [widget, &record] {
    for (int number = 1; number <= record.count(); ++number) {
      widget->setTabText(number - 1, shownCaption(record.tab(number).caption));
      const TabStrip::Tab& tab = record.tab(number);
      widget->setTabToolTip(
          number - 1, shownTip(tab.note.empty() ? tab.toolTip : tab.toolTip + "\n" + tab.note));
    }
    widget->setCurrentIndex(record.selected() - 1);
  });
  QObject::connect(widget, &QTabBar::tabBarClicked, [widget, &record](int index) {
    // The strip itself changes to another tab; only a click on the tab in force is told here.
    if (index == widget->currentIndex()) record.userSelect(index + 1);
  });
  QObject::connect(widget, &QTabBar::currentChanged,
                   [&record](int index) { record.userSelect(index + 1); });
}

void bind(QProgressBar* widget, ProgressBar& record) {
  constexpr int repaintMilliseconds = 50;
  const auto sinceRepaint = std::make_shared<QElapsedTimer>();
  auto* const rest = new QTimer(widget);
  rest->setSingleShot(true);
  widget->setRange(0, 100);
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
  const auto show = [widget, &record] { showProgress(widget, record); };
  QObject::connect(rest, &QTimer::timeout, widget, show);
  record.observer = [widget, rest, sinceRepaint, show](const Change&) {
    if (sinceRepaint->isValid() && sinceRepaint->elapsed() < repaintMilliseconds) {
      if (!rest->isActive()) rest->start(repaintMilliseconds);
      return;
    }
    show();
    if (widget->isVisible()) widget->repaint();
    sinceRepaint->start();
  };
  show();
  QObject::connect(widget, &QObject::destroyed, [&record] { record.observer = nullptr; });
}

void bind(QTimer* timer, Timer& record) {
  timer->setSingleShot(false);
  const auto keepTime = [timer, &record] {
    if (record.enabled()) {
      timer->start(record.interval());
    } else {
      timer->stop();
    }
  };
  record.observer = [keepTime](const Change&) { keepTime(); };
  keepTime();
  QObject::connect(timer, &QTimer::timeout, [&record] { record.fire(); });
  QObject::connect(timer, &QObject::destroyed, [&record] { record.observer = nullptr; });
}
