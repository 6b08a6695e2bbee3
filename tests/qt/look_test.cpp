// What carries meaning stands out from whatever lies under it.
#include "frontend/qt/look.h"

#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>
#include <algorithm>
#include <cmath>

#include "core/editor_state.h"
#include "core/map_colours.h"
#include "frontend/qt/canvas_view.h"
#include "frontend/qt/grid_painting.h"
#include "graphs/dr_graph.h"
#include "graphs/tp_curve.h"

namespace {

constexpr double forSigns = 3;
constexpr double forTexts = 4.5;

double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
  const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

TEST(LookTest, SignsAndTextsStandOutFromEachColourOfAMap) {
  editorState.gridColorRate = 1;
  std::vector<QColor> grounds{Qt::white, touchedCell(Qt::white), fadedCell(Qt::white)};
  for (int value = 0; value <= 255; ++value) grounds.push_back(shown(cellColour(value)));
  for (const QColor& ground : grounds) {
    const std::string name = ground.name().toStdString();
    for (const BorderLook& border : {focusedBorder, restingBorder}) {
      EXPECT_GE(std::max(contrast(border.line, ground), contrast(border.edge, ground)), forSigns)
          << name;
      EXPECT_GE(contrast(border.line, border.edge), forSigns);
    }
    EXPECT_GE(contrast(faintColour, fadedCell(ground)), forTexts) << name;
  }
  for (const QColor& ground : {groundColour, buttonColour, QColor(Qt::white)}) {
    EXPECT_GE(contrast(faintColour, ground), forTexts);
    EXPECT_GE(contrast(accentColour, touchedCell(ground)), forSigns);
    EXPECT_GE(contrast(inkColour, touchedCell(ground)), forTexts);
  }
  EXPECT_GE(contrast(accentColour, Qt::black), forSigns) << "the frame of a canvas";
}

TEST(LookTest, LabelsOnCanvasesStandOutFromTheirGround) {
  constexpr QColor boxGround(32, 32, 32);
  const DrGraph& graph = DR_GRAPH;
  const Label* const labels[] = {&graph.Label1,  &graph.Label2,    &graph.Label7,
                                 &graph.Label13, &graph.Label17,   &graph.Label19,
                                 &graph.Label20, &D2_GRAPH.Label1, &D2_GRAPH.Label2};
  for (const Label* label : labels) {
    EXPECT_GE(contrast(shown(label->colour()), boxGround), forTexts);
  }
}

TEST(LookTest, ACanvasShowsThatItHasTheFocusAndScrollsInAWindowThatIsTooSmall) {
  QWidget window;
  QVBoxLayout rows(&window);
  Window record{"window"};
  Canvas canvas{record, 593, 377};
  auto* const view = new CanvasView(canvas);
  auto* const frame = new CanvasFrame(view);
  auto* const other = new QPushButton;
  rows.addWidget(frame);
  rows.addWidget(other);
  window.resize(700, 500);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  const auto edge = [frame] { return frame->grab().toImage().pixelColor(0, 40); };
  EXPECT_TRUE(frame->viewport()->rect().contains(view->geometry()));
  view->setFocus();
  EXPECT_EQ(edge(), accentColour);
  other->setFocus();
  EXPECT_NE(edge(), accentColour);
  window.resize(300, 200);
  QCoreApplication::processEvents();
  EXPECT_TRUE(window.rect().contains(other->geometry()));
  EXPECT_EQ(frame->verticalScrollBar()->maximum() + frame->viewport()->height(), 377);
}

}  // namespace
