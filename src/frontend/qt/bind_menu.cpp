#include "frontend/qt/bind_menu.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <optional>
#include <unordered_map>

#include "controls/letters.h"
#include "frontend/qt/event_tap.h"
#include "frontend/qt/text.h"

namespace {

std::unordered_map<const MenuItem*, QMenu*> menus;
std::optional<QPoint> placeInForce;

QMenu* makeMenu(MenuItem& item, QWidget* parent);
void addMissing(QWidget* parent, const MenuItem& item);

// A long path keeps its beginning and the file's name; the tool tip has all of it.
void showCaption(QAction* action, const MenuItem& item) {
  constexpr int longest = 560;  // pixels
  const QString whole = shown(item.caption());
  const QFontMetrics metrics(QApplication::font("QMenu"));
  const QString fitting = metrics.elidedText(whole, Qt::ElideMiddle, longest);
  action->setText(fitting == whole ? letteredCaption(item) : shownCaption(stored(fitting)));
  action->setToolTip(fitting == whole ? QString() : shownTip(item.caption()));
}

char letterOf(const QKeyEvent& key) {
  const int code = key.key();
  return code > Qt::Key_Space && code < Qt::Key_AsciiTilde ? static_cast<char>(code) : '\0';
}

// In an open menu a row's letter chooses it, also where its caption in this language lacks it.
bool takeLetter(QMenu* menu, const MenuItem& item, const QKeyEvent& key) {
  const auto& children = item.children();
  for (std::size_t i = 0; i < children.size(); ++i) {
    const MenuItem& child = *children[i];
    QAction* const action = menu->actions().value(static_cast<qsizetype>(i));
    const bool own = placeOfLetter(child.caption(), child.letter()) != std::string::npos;
    if (own || child.letter() == 0 || child.letter() != letterOf(key)) continue;
    if (!action || !action->isVisible() || !action->isEnabled()) return true;
    menu->setActiveAction(action);
    QApplication::postEvent(menu, new QKeyEvent(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier));
    return true;
  }
  return false;
}

// F10 opens the first menu. Alt with a title's letter opens that menu; where the caption in this
// language has the letter, the toolkit itself sees to that.
void addBarKeys(QMenuBar* bar, const MenuItem& root) {
  const auto add = [bar](const QKeySequence& keys, qsizetype number) {
    QObject::connect(new QShortcut(keys, bar), &QShortcut::activated, bar,
                     [bar, number] { bar->setActiveAction(bar->actions().value(number)); });
  };
  add(Qt::Key_F10, 0);
  qsizetype number = 0;
  for (const auto& child : root.children()) {
    if (child->letter() && placeOfLetter(child->caption(), child->letter()) == std::string::npos) {
      add(QKeySequence(QStringLiteral("Alt+") + QLatin1Char(child->letter())), number);
    }
    ++number;
  }
}

// Shows an item's values on its action, and what was added below it.
void follow(QAction* action, MenuItem& item) {
  const auto show = [action, &item] {
    action->setSeparator(item.caption() == "-");
    if (!action->isSeparator()) showCaption(action, item);
    action->setCheckable(item.checked().has_value());
    action->setChecked(item.checked().value_or(false));
    action->setVisible(item.visible());
    action->setEnabled(item.enabled());
  };
  item.observer = [action, &item, show](const Change& change) {
    if (change.kind != Change::shape) return show();
    if (action->menu()) return addMissing(action->menu(), item);
    action->setMenu(makeMenu(item, qobject_cast<QWidget*>(action->parent())));
  };
  show();
  QObject::connect(action, &QObject::destroyed, [&item] { item.observer = nullptr; });
}

QAction* makeAction(MenuItem& item, QWidget* parent) {
  if (!item.children().empty()) return makeMenu(item, parent)->menuAction();
  auto* const action = new QAction(parent);
  action->setShortcuts(
      QKeySequence::listFromString(shown(item.shortcut()), QKeySequence::PortableText));
  QObject::connect(action, &QAction::triggered, [action, &item] {
    action->setChecked(item.checked().value_or(false));  // the record decides
    item.userPick();
  });
  return action;
}

// Items are only ever added, at the end.
void addMissing(QWidget* parent, const MenuItem& item) {
  const auto& children = item.children();
  for (auto i = static_cast<std::size_t>(parent->actions().size()); i < children.size(); ++i) {
    QAction* const action = makeAction(*children[i], parent);
    action->setObjectName(shown(children[i]->name()));
    parent->addAction(action);
    follow(action, *children[i]);
  }
}

QMenu* makeMenu(MenuItem& item, QWidget* parent) {
  auto* const menu = new QMenu(parent);
  menu->setToolTipsVisible(true);
  menu->setObjectName(shown(item.name()));
  menus[&item] = menu;
  QObject::connect(menu, &QObject::destroyed, [&item] { menus.erase(&item); });
  QObject::connect(menu, &QMenu::aboutToShow, [&item] { item.userOpen(); });
  tapEvents(menu, [menu, &item](QEvent* event) {
    return event->type() == QEvent::KeyPress &&
           takeLetter(menu, item, *static_cast<QKeyEvent*>(event));
  });
  addMissing(menu, item);
  return menu;
}

}  // namespace

QPoint menuPlace() { return placeInForce.value_or(QCursor::pos()); }

MenuPlace::MenuPlace(QPoint onScreen) { placeInForce = onScreen; }

MenuPlace::~MenuPlace() { placeInForce.reset(); }

void bind(QMenuBar* bar, MenuItem& root) {
  root.observer = [bar, &root](const Change& change) {
    if (change.kind == Change::shape) addMissing(bar, root);
  };
  addMissing(bar, root);
  addBarKeys(bar, root);
  QObject::connect(bar, &QObject::destroyed, [&root] { root.observer = nullptr; });
}

QMenu* menuOf(MenuItem& item, QWidget* owner) {
  const auto found = menus.find(&item);
  if (found != menus.end()) return found->second;
  QMenu* const menu = makeMenu(item, owner);
  follow(menu->menuAction(), item);
  return menu;
}
