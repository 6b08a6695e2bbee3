#include "frontend/qt/bind_menu.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QFontMetrics>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <optional>
#include <unordered_map>

#include "frontend/qt/text.h"

namespace {

std::unordered_map<const MenuItem*, QMenu*> menus;
std::optional<QPoint> placeInForce;

QMenu* makeMenu(MenuItem& item, QWidget* parent);
void addMissing(QWidget* parent, const MenuItem& item);

// A title in the menu bar opens its menu with Alt and its first letter, where that is a Latin one.
QString titleOf(const MenuItem& item) {
  const QString caption = shownCaption(item.caption());
  const bool latin = !caption.isEmpty() && caption[0].isLetter() && caption[0].unicode() < 128;
  return latin ? QLatin1Char('&') + caption : caption;
}

// A long path keeps its beginning and the file's name; the tool tip has all of it.
void showCaption(QAction* action, const std::string& caption) {
  constexpr int longest = 560;  // pixels
  const QString whole = shown(caption);
  const QFontMetrics metrics(QApplication::font("QMenu"));
  const QString fitting = metrics.elidedText(whole, Qt::ElideMiddle, longest);
  action->setText(shownCaption(stored(fitting)));
  action->setToolTip(fitting == whole ? QString() : shownTip(caption));
}

// Shows an item's values on its action, and what was added below it.
void follow(QAction* action, MenuItem& item, bool isTitle) {
  const auto show = [action, &item, isTitle] {
    action->setSeparator(item.caption() == "-");
    if (!action->isSeparator()) {
      isTitle ? action->setText(titleOf(item)) : showCaption(action, item.caption());
    }
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
  const bool isBar = qobject_cast<QMenuBar*>(parent) != nullptr;
  for (auto i = static_cast<std::size_t>(parent->actions().size()); i < children.size(); ++i) {
    QAction* const action = makeAction(*children[i], parent);
    action->setObjectName(shown(children[i]->name()));
    parent->addAction(action);
    follow(action, *children[i], isBar);
  }
}

QMenu* makeMenu(MenuItem& item, QWidget* parent) {
  auto* const menu = new QMenu(parent);
  menu->setToolTipsVisible(true);
  menu->setObjectName(shown(item.name()));
  menus[&item] = menu;
  QObject::connect(menu, &QObject::destroyed, [&item] { menus.erase(&item); });
  QObject::connect(menu, &QMenu::aboutToShow, [&item] { item.userOpen(); });
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
  QObject::connect(bar, &QObject::destroyed, [&root] { root.observer = nullptr; });
}

QMenu* menuOf(MenuItem& item, QWidget* owner) {
  const auto found = menus.find(&item);
  return found != menus.end() ? found->second : makeMenu(item, owner);
}
