// The main window: model and status above, the tabs with their panels, the operation under way and
// the progress bar below. A panel is made when its tab first comes to the front.
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QProgressBar>
#include <QShortcut>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>

#include "core/form1.h"
#include "core/map_kinds.h"
#include "frontend/qt/bind_controls.h"
#include "frontend/qt/bind_menu.h"
#include "frontend/qt/bind_window.h"
#include "frontend/qt/event_tap.h"
#include "frontend/qt/look.h"
#include "frontend/qt/side_tabs.h"
#include "frontend/qt/text.h"
#include "frontend/qt/window_room.h"
#include "frontend/qt/windows/dialog_parts.h"
#include "frontend/qt/windows/form1_panels.h"
#include "frontend/qt/windows/layouts.h"
#include "frontend/qt/windows/notice_strip.h"

namespace {

constexpr QSize usualSize(1060, 680);
constexpr QSize smallestSize(800, 420);  // the airflow view fits beside the tabs
constexpr int progressWidth = 220;
constexpr int progressHeight = 14;
constexpr int doneGap = 12;  // pixels before what the last command did

QLayout* makeHeadline(Form1& form) {
  auto* const model = labelFor(form.Label1);
  model->setFont(headlineFont());
  auto* const engine = new QHBoxLayout;
  engine->addStretch();
  engine->addWidget(labelFor(form.Label37));
  engine->addWidget(labelFor(form.Label34));
  auto* const files = new QHBoxLayout;
  files->setSpacing(24);
  files->addStretch();
  files->addWidget(labelFor(form.Label35));
  files->addWidget(labelFor(form.Label20));
  auto* const right = new QVBoxLayout;
  right->setSpacing(2);
  right->addLayout(engine);
  right->addLayout(files);
  auto* const line = new QHBoxLayout;
  line->addWidget(model, 1);
  line->addLayout(right);
  return line;
}

bool isAbsent(int tabIndex) {
  const MapKind* const kind = mapKindOfTab(tabIndex + 1);
  return kind && !gridOf(*kind).enabled();
}

QTabBar* makeTabs(Form1& form) {
  auto* const tabs = new SideTabs;
  tabs->setAbsent(isAbsent);
  tabs->setSecondLine(
      [&form](int index) { return shown(form.TabStrip1.tab(index + 1).secondLine); });
  tabs->setMarked([&form](int index) { return !form.TabStrip1.tab(index + 1).note.empty(); });
  tabs->setObjectName(QStringLiteral("TabStrip1"));
  bind(tabs, form.TabStrip1);
  return tabs;
}

// Ctrl+Tab and Ctrl with a page key go from tab to tab, wherever the focus is.
void addTabKeys(QWidget* window, QTabBar* tabs) {
  const auto go = [tabs](int step) {
    return [tabs, step] { tabs->setCurrentIndex((tabs->currentIndex() + step) % tabs->count()); };
  };
  for (const auto key : {Qt::CTRL | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageDown}) {
    QObject::connect(new QShortcut(key, window), &QShortcut::activated, window, go(1));
  }
  for (const auto key : {Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageUp}) {
    QObject::connect(new QShortcut(key, window), &QShortcut::activated, window,
                     go(tabs->count() - 1));
  }
}

// Shows the record's front panel, which is made first if this is its first time. Its map gets
// the focus, unless it is absent or the user walks along the tabs; a parameter's box would take a
// stray key.
void showFrontPanel(QStackedWidget* stack, QTabBar* tabs, const Form1& form) {
  const QString name = QString::number(form.frontPanel());
  auto* panel = stack->findChild<QWidget*>(name, Qt::FindDirectChildrenOnly);
  const bool isNew = !panel;
  if (isNew) {
    panel = makePanel(form.frontPanel());
    panel->setObjectName(name);
    stack->addWidget(panel);
  }
  if (!isNew && stack->currentWidget() == panel) return;
  panel->resize(stack->size());
  zoomPanel(panel);
  QWidget* const map = tabs->hasFocus() ? nullptr : mapOf(panel);
  stack->setCurrentWidget(panel);
  (map && map->isEnabled() ? map : tabs)->setFocus();
}

// The panel at the front follows the zoom, and the others when they come there.
void followZoom(QStackedWidget* stack, Form1& form) {
  const auto show = [stack] {
    if (QWidget* const panel = stack->currentWidget()) zoomPanel(panel);
  };
  form.mapZoom.observer = show;
  QObject::connect(stack, &QObject::destroyed, [&form] { form.mapZoom.observer = nullptr; });
  tapEvents(stack, [stack, show, &form](QEvent* event) {
    if (event->type() == QEvent::Resize && form.mapZoom.fits()) {
      // Behind the layout, which the panel's size follows.
      QMetaObject::invokeMethod(stack, show, Qt::QueuedConnection);
    }
    return false;
  });
}

QStatusBar* makeStatusBar(Form1& form) {
  auto* const bar = new QStatusBar;
  auto* const progress = new QProgressBar(bar);
  progress->setFixedWidth(progressWidth);
  progress->setTextVisible(false);
  progress->setFixedHeight(progressHeight);
  bind(progress, form.ProgressBar1);
  // While nothing runs, its room is the status line's.
  QSizePolicy policy = progress->sizePolicy();
  policy.setRetainSizeWhenHidden(false);
  progress->setSizePolicy(policy);
  bar->setContentsMargins(6, 0, 6, 0);
  bar->addWidget(labelFor(form.Label13));
  bar->addWidget(lineFor(form.cursorStatus), 1);
  bar->addWidget(labelFor(form.unsavedStatus));
  QLabel* const done = labelFor(form.doneStatus);
  done->setContentsMargins(doneGap, 0, 0, 0);
  bar->addWidget(done);
  bar->addPermanentWidget(progress);
  return bar;
}

}  // namespace

QWidget* makeForm1Window() {
  Form1& form = form1();
  auto* const window = new QMainWindow;
  bind(window->menuBar(), form.menuBar);
  auto* const stack = new QStackedWidget;
  auto* const centre = new QWidget;
  auto* const rows = new QVBoxLayout(centre);
  rows->setContentsMargins(10, 8, 10, 4);
  rows->addWidget(makeNoticeStrip());
  rows->addLayout(makeHeadline(form));
  auto* const panels = new QHBoxLayout;
  QTabBar* const tabs = makeTabs(form);
  addTabKeys(window, tabs);
  panels->addWidget(tabs, 0, Qt::AlignTop);
  panels->addWidget(stack, 1);
  rows->addLayout(panels, 1);
  window->setCentralWidget(centre);
  window->setStatusBar(makeStatusBar(form));
  window->setMinimumSize(smallestSize.boundedTo(roomFor(window)));
  window->resize((usualSize * fontZoom() / 100).boundedTo(roomFor(window)));
  const auto showPanel = [stack, tabs, &form] { showFrontPanel(stack, tabs, form); };
  showPanel();
  followZoom(stack, form);
  bind(new QTimer(window), form.stateTimer);
  bindWindow(window, form, showPanel);
  return window;
}
