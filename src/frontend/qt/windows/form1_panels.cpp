#include "frontend/qt/windows/form1_panels.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QStyle>
#include <QWheelEvent>
#include <algorithm>
#include <cstdint>

#include "core/form1.h"
#include "core/map_kinds.h"
#include "frontend/qt/bind_controls.h"
#include "frontend/qt/canvas_view.h"
#include "frontend/qt/event_tap.h"
#include "frontend/qt/grid_view.h"
#include "frontend/qt/look.h"
#include "frontend/qt/mark_painting.h"
#include "frontend/qt/windows/dialog_parts.h"

namespace {

constexpr int boxWidth = 84;
constexpr int markGap = 2;  // pixels to both sides of a mark
constexpr int unitGap = 6;  // pixels before a unit, beside that
constexpr Qt::Alignment corner = Qt::AlignTop | Qt::AlignLeft;
const QString mapName = QStringLiteral("map");
const QString loadName = QStringLiteral("load");
const QString speedName = QStringLiteral("speed");
const QString headingName = QStringLiteral("heading");
const QString pictureName = QStringLiteral("picture");
constexpr int wheelNotch = 120;  // as wheels count

// A cell of a map's parameters: label, box and, where it has one, unit.
struct Row {
  Label Form1::*label;
  TextBox Form1::*box;
  Label Form1::*unit;
};

using F = Form1;
constexpr Row hexRows[] = {
    {&F::Label3, &F::Text1, nullptr},    {&F::Label4, &F::Text2, nullptr},
    {&F::Label5, &F::Text3, nullptr},    {&F::addText1, &F::Text12, nullptr},
    {&F::addText2, &F::Text13, nullptr}, {&F::addText3, &F::Text14, nullptr},
};
constexpr Row speedRows[] = {
    {&F::Label6, &F::Text4, &F::Label30},
    {&F::Label7, &F::Text5, &F::Label31},
    {&F::Label24, &F::Text10, &F::Label32},
    {&F::Label25, &F::Text11, &F::Label33},
};
constexpr Row roadRows[] = {
    {&F::Label8, &F::Text6, &F::Label26},
    {&F::Label9, &F::Text7, &F::Label27},
    {&F::Label10, &F::Text8, &F::Label28},
    {&F::Label23, &F::Text9, &F::Label29},
};

struct SmallGrid {
  Label Form1::*label;
  Grid Form1::*grid;
};
constexpr SmallGrid smallGrids[] = {
    {&F::Label11, &F::Grid6},
    {&F::Label12, &F::Grid7},
    {&F::Label2, &F::Grid8},
    {&F::Label18, &F::Grid9},
};

// The rest of the panel stays empty to the right and below.
void keepToTheCorner(QGridLayout* cells) {
  cells->setRowStretch(cells->rowCount(), 1);
  cells->setColumnStretch(cells->columnCount(), 1);
}

GridView* addMap(QGridLayout* cells, Grid& map) {
  auto* const view = new GridView(map);
  cells->addWidget(view, 0, 0);
  return view;
}

// The load scale above the map, engine speed at its side under a heading: each scale cell stands
// over the map's column or beside the map's row that it belongs to.
GridView* addMapWithScales(QGridLayout* cells, const MapKind& kind) {
  Form1& form = form1();
  Grid& map = gridOf(kind);
  auto* const load = new GridView(gridOf(*loadScaleOf(kind)));
  auto* const speed = new GridView(gridOf(*speedScaleOf(kind)));
  auto* const view = new GridView(map);
  load->setObjectName(loadName);
  speed->setObjectName(speedName);
  load->followColumnsOf(view);
  speed->followRowsOf(view);
  auto* const heading = labelFor(kind.id == HIGH_FUEL ? form.Label15 : form.Label16);
  heading->setObjectName(headingName);
  heading->setAlignment(Qt::AlignCenter);
  auto* const side = new QVBoxLayout;
  side->setSpacing(0);
  side->addWidget(heading);
  side->addWidget(speed);
  side->addStretch();
  cells->addWidget(load, 0, 1, corner);
  cells->addLayout(side, 1, 0);
  cells->addWidget(view, 1, 1, corner);
  return view;
}

GridView* addAirflow(QGridLayout* cells, Grid& map) {
  Form1& form = form1();
  GridView* const view = addMap(cells, map);
  auto* const picture = new CanvasView(form.Picture2);
  picture->setFocusPolicy(Qt::NoFocus);
  picture->setObjectName(pictureName);
  labelOn(picture, {&form.Label14, 32, 48});
  labelOn(picture, {&form.Label21, 30, 6});
  labelOn(picture, {&form.Label17, 32, 8});
  cells->addWidget(new CanvasFrame(picture), 1, 0, corner);
  return view;
}

template <std::size_t size>
QWidget* makeParameters(const Row (&rows)[size], Label* note) {
  Form1& form = form1();
  auto* const group = new QGroupBox;
  auto* const cells = new QGridLayout(group);
  cells->setHorizontalSpacing(markGap);
  if (note) cells->addWidget(labelFor(*note), 0, 0, 1, 4);
  for (const Row& row : rows) {
    const int line = cells->rowCount();
    auto* const box = new QLineEdit;
    box->setFixedWidth(byFont(boxWidth));
    auto* const mark = new MarkView(form.*row.box);
    bind(box, form.*row.box, [mark] { mark->update(); });
    cells->addWidget(labelFor(form.*row.label), line, 0);
    cells->addWidget(mark, line, 1);
    cells->addWidget(box, line, 2);
    if (!row.unit) continue;
    QLabel* const unit = labelFor(form.*row.unit);
    unit->setContentsMargins(unitGap, 0, 0, 0);
    cells->addWidget(unit, line, 3);
  }
  keepToTheCorner(cells);
  return group;
}

void addSmallGrids(QVBoxLayout* rows) {
  Form1& form = form1();
  for (const SmallGrid& each : smallGrids) {
    rows->addWidget(labelFor(form.*each.label));
    rows->addWidget(new GridView(form.*each.grid));
    rows->addSpacing(6);
  }
}

void addGlobals(QGridLayout* cells) {
  auto* const content = new QWidget;
  auto* const parameters = new QHBoxLayout;
  parameters->setSpacing(10);
  parameters->addWidget(makeParameters(hexRows, &form1().Label22));
  parameters->addWidget(makeParameters(speedRows, nullptr));
  parameters->addWidget(makeParameters(roadRows, nullptr));
  parameters->addStretch();
  auto* const rows = new QVBoxLayout(content);
  rows->setSpacing(3);
  rows->addLayout(parameters);
  rows->addSpacing(10);
  addSmallGrids(rows);
  rows->addStretch();
  auto* const scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidgetResizable(true);
  scroll->setWidget(content);
  scroll->viewport()->setAutoFillBackground(false);
  content->setAutoFillBackground(false);
  cells->addWidget(scroll, 0, 0);
}

GridView* fillPanel(QGridLayout* cells, int tab) {
  const MapKind& kind = *mapKindOfTab(tab);
  Grid& map = gridOf(kind);
  if (loadScaleBeside(tab)) return addMapWithScales(cells, kind);
  return kind.rules().after == AfterEffect::airflowView ? addAirflow(cells, map)
                                                        : addMap(cells, map);
}

CanvasView* pictureOf(const QWidget* panel) {
  return static_cast<CanvasView*>(panel->findChild<QWidget*>(pictureName));
}

// What of a panel grows, at `percent`.
QSize mapsAt(const QWidget* panel, int percent) {
  const auto sizeOf = [&](const QString& name) {
    const auto* const view = panel->findChild<GridView*>(name);
    return view ? view->contentSizeAt(percent) : QSize(0, 0);
  };
  if (!mapOf(panel)) {
    QSize widest(0, 0);  // the panel of the parameters scrolls down
    for (const auto* view : panel->findChildren<GridView*>()) {
      widest = widest.expandedTo({view->contentSizeAt(percent).width(), 0});
    }
    return widest;
  }
  const QSize map = sizeOf(mapName), load = sizeOf(loadName), speed = sizeOf(speedName);
  if (const CanvasView* const picture = pictureOf(panel)) {
    // The one row of the airflow map scrolls.
    const int bar = panel->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return picture->sizeAt(percent) + QSize(0, map.height() + bar);
  }
  const int heading = load.isEmpty() ? 0 : pixels(Grid::designRowHeight, percent);
  return QSize(speed.width() + std::max(map.width(), load.width()),
               load.height() + std::max(map.height(), heading + speed.height()));
}

// The largest zoom in which the panel's maps need no scroll bars.
int fittingZoom(const QWidget* panel, QSize room) {
  constexpr QSize frames(24, 24);  // of views, and what lies between them
  const QMargins around = panel->contentsMargins() + panel->layout()->contentsMargins();
  room = room.shrunkBy(around) - frames;
  const QSize usual = mapsAt(panel, Zoom::usual).expandedTo({1, 1});
  const auto share = [](int has, int wants) {
    return static_cast<int>(std::int64_t{Zoom::usual} * std::max(has, 0) / wants);
  };
  int percent = std::min(share(room.width(), usual.width()), share(room.height(), usual.height()));
  percent = std::clamp(percent + 1, Zoom::least, Zoom::most);
  while (percent > Zoom::least && mapsAt(panel, percent).boundedTo(room) != mapsAt(panel, percent))
    --percent;
  return percent;
}

// Ctrl with the wheel over any part of `area` and what lies on it turns the zoom.
void turnZoomByWheel(QWidget* area) {
  const auto turn = [rest = 0](QEvent* event) mutable {
    if (event->type() != QEvent::Wheel) return false;
    const auto& wheel = *static_cast<QWheelEvent*>(event);
    if (!(wheel.modifiers() & Qt::ControlModifier)) return false;
    rest += wheel.angleDelta().y();
    const int notches = rest / wheelNotch;
    rest %= wheelNotch;
    if (notches != 0) form1().mapZoom.userTurn(notches);
    event->accept();
    return true;
  };
  tapEvents(area, turn);
  // What scrolls would take the wheel before it came to the area.
  for (auto* scrolling : area->findChildren<QAbstractScrollArea*>()) {
    tapEvents(scrolling->viewport(), turn);
  }
}

}  // namespace

void zoomPanel(QWidget* panel) {
  Zoom& zoom = form1().mapZoom;
  if (zoom.fits()) zoom.setFitting(fittingZoom(panel, panel->size()));
  const int percent = zoom.shown();
  for (GridView* view : panel->findChildren<GridView*>()) view->setZoom(percent);
  if (CanvasView* const picture = pictureOf(panel)) picture->setZoom(percent);
  if (auto* const heading = panel->findChild<QLabel*>(headingName)) {
    heading->setFont(gridFont(percent));
    heading->setFixedHeight(pixels(Grid::designRowHeight, percent));
  }
}

QWidget* makePanel(int tab) {
  Form1& form = form1();
  auto* const panel = new QGroupBox;
  auto* const cells = new QGridLayout(panel);
  bind(panel, tab == globalTab ? form.Frame7 : form.*mapKindOfTab(tab)->frame);
  if (tab == globalTab) {
    addGlobals(cells);
  } else {
    fillPanel(cells, tab)->setObjectName(mapName);
    keepToTheCorner(cells);
  }
  turnZoomByWheel(panel);
  for (GridView* view : panel->findChildren<GridView*>()) {
    view->onShape = [panel] {
      if (form1().mapZoom.fits()) zoomPanel(panel);
    };
  }
  zoomPanel(panel);
  return panel;
}

QWidget* mapOf(const QWidget* panel) { return panel->findChild<QWidget*>(mapName); }
