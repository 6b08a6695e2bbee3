// What carries meaning stands out from whatever lies under it.
#include "frontend/qt/look.h"

#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>
#include <algorithm>
#include <array>
#include <cmath>

#include "core/editor_state.h"
#include "core/map_colours.h"
#include "core/map_palette.h"
#include "frontend/qt/canvas_view.h"
#include "frontend/qt/grid_painting.h"
#include "graphs/dr_graph.h"
#include "graphs/tp_curve.h"

namespace {

constexpr double forSigns = 3;
constexpr double forTexts = 4.5;

// The program's palettes on desktops that are light, dark, and dark with weak texts.
std::vector<QPalette> palettes() {
  const QPalette light(Qt::lightGray), dark(Qt::darkGray, QColor(40, 40, 40));
  QPalette weak(Qt::black, Qt::black);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    weak.setColor(role, QColor(90, 90, 90));
    weak.setColor(QPalette::Disabled, role, Qt::green);
  }
  weak.setColor(QPalette::Highlight, Qt::cyan);
  return {paletteFor(light, light), paletteFor(dark, dark), paletteFor(weak, light)};
}

TEST(LookTest, SignsAndTextsStandOutFromEachColourOfAMapInEachPalette) {
  EXPECT_NEAR(contrast(QColor(119, 119, 119), Qt::white), 4.48, 0.005);
  editorState.gridColorRate = 1;
  for (const QPalette& palette : palettes()) {
    const QColor base = palette.color(QPalette::Base);
    std::vector<QColor> grounds{base, touchedCell(base, palette), fadedCell(base, palette)};
    for (const bool second : {false, true}) {
      useSecondColours(second);
      for (int value = 0; value <= 255; ++value) {
        grounds.push_back(shown(shownColour(cellColour(value))));
      }
    }
    useSecondColours(false);
    const auto textOn = [&palette](const QColor& ground, QPalette::ColorRole role,
                                   QPalette::ColorGroup group = QPalette::Active) {
      EXPECT_GE(contrast(palette.color(group, role), ground), forTexts)
          << ground.name().toStdString();
    };
    for (const QColor& ground : grounds) {
      const std::string name = ground.name().toStdString();
      for (const BorderLook& border : {focusedBorder, restingBorder}) {
        EXPECT_GE(std::max(contrast(border.line, ground), contrast(border.edge, ground)), forSigns)
            << name;
        EXPECT_GE(contrast(border.line, border.edge), forSigns);
      }
      EXPECT_GE(std::max(contrast(inkColour, ground), contrast(Qt::white, ground)), forSigns)
          << "marks";
      textOn(fadedCell(ground, palette), QPalette::WindowText, QPalette::Disabled);
    }
    for (const auto role : {QPalette::Window, QPalette::Button, QPalette::Base}) {
      const QColor ground = palette.color(role);
      const QColor touched = touchedCell(ground, palette);
      textOn(touched, QPalette::ButtonText);
      textOn(ground, QPalette::WindowText, QPalette::Disabled);
      EXPECT_GE(contrast(palette.color(QPalette::Highlight), touched), forSigns);
      EXPECT_GE(contrast(faintInk(palette), ground), forTexts);
      EXPECT_GE(contrast(absentInk(palette), ground), forSigns - 0.3);
    }
  }
  EXPECT_GE(contrast(accentColour, Qt::black), forSigns) << "the frame of a canvas";
}

// Lightness and the two other axes of CIE 1976 L*a*b*, of sRGB under D65.
std::array<double, 3> lab(Colour colour) {
  const QColor q = shown(colour);
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  const double r = linear(q.redF()), g = linear(q.greenF()), b = linear(q.blueF());
  const auto root = [](double t) {
    return t > 216.0 / 24389 ? std::cbrt(t) : (24389.0 / 27 * t + 16) / 116;
  };
  const double x = root((0.4124 * r + 0.3576 * g + 0.1805 * b) / 0.9505);
  const double y = root(0.2126 * r + 0.7152 * g + 0.0722 * b);
  const double z = root((0.0193 * r + 0.1192 * g + 0.9505 * b) / 1.089);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

TEST(LookTest, TheSecondColoursGrowBrighterInEvenStepsUnderReadableTexts) {
  useSecondColours(true);
  constexpr int stride = 15;
  double least = 1000, most = 0;
  for (int shade = 0; shade <= 255; ++shade) {
    const Colour ground = shownColour(shadeColour(shade));
    EXPECT_GE(contrast(shown(shownInk(white, ground)), shown(ground)), forTexts) << shade;
    if (shade + stride > 255) continue;
    const auto from = lab(ground), to = lab(shownColour(shadeColour(shade + stride)));
    EXPECT_GT(to[0], from[0] + 3) << shade;
    const double step = std::hypot(to[0] - from[0], to[1] - from[1], to[2] - from[2]);
    least = std::min(least, step);
    most = std::max(most, step);
  }
  EXPECT_LT(most, 1.25 * least);
  for (const Colour other : {white, black, rgb(0, 96, 0), rgb(255, 0, 1)}) {
    EXPECT_EQ(shownColour(other), other) << "no colour of a map";
  }
  useSecondColours(false);
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
